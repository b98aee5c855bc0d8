#include <binder/IServiceManager.h>

#include <chrono>
#include <string>

#include "OutOfMemory.h"
#include "Transport.h"

namespace android {

namespace {

constexpr std::chrono::seconds kPatience{5};
constexpr size_t kLongestName = 127;

/// The name as plain characters; empty when it is not usable as one.
std::string usableName(const String16& name) {
    if (name.size() > kLongestName) return {};
    std::string plain;
    for (size_t i = 0; i < name.size(); ++i) {
        const char16_t unit = name.string()[i];
        if (unit <= u' ' || unit > u'~' || unit == u'/') return {};
        plain.push_back(static_cast<char>(unit));
    }
    return plain;
}

/// Stands for the services of all processes; has no binder of its own because nothing needs to call it.
class ServiceManager : public IServiceManager {
  public:
    sp<IBinder> getService(const String16& name) const override { return find(name, kPatience); }
    sp<IBinder> checkService(const String16& name) const override {
        return find(name, std::chrono::milliseconds::zero());
    }

    status_t addService(const String16& name, const sp<IBinder>& service, bool /*allowIsolated*/,
                        int /*dumpsysFlags*/) override {
        return runtime::unlessExhausted([&] {
            const std::string plain = usableName(name);
            if (plain.empty() || service == nullptr || service->localBinder() == nullptr) {
                return static_cast<status_t>(BAD_VALUE);
            }
            return runtime::Transport::instance().publish(plain, service->localBinder());
        });
    }

    Vector<String16> listServices(int /*dumpsysFlags*/) override {
        Vector<String16> names;
        runtime::unlessExhausted([&] {
            for (const std::string& name : runtime::Transport::instance().names())
                names.add(String16(name.c_str()));
            return NO_ERROR;
        });
        return names;
    }

  protected:
    IBinder* onAsBinder() override { return nullptr; }

  private:
    static sp<IBinder> find(const String16& name, std::chrono::milliseconds patience) {
        sp<IBinder> found;
        runtime::unlessExhausted([&] {
            const std::string plain = usableName(name);
            if (!plain.empty()) found = runtime::Transport::instance().find(plain, patience);
            return NO_ERROR;
        });
        return found;
    }
};

}  // namespace

const String16& IServiceManager::getInterfaceDescriptor() const {
    static const auto* const descriptor = new String16("android.os.IServiceManager");
    return *descriptor;
}

sp<IServiceManager> defaultServiceManager() {
    static const auto* const manager =
        runtime::patiently([] { return new sp<IServiceManager>(new ServiceManager()); });
    return *manager;
}

}  // namespace android
