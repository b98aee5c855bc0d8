#include "tests/hostile/Subjects.h"

#include <accessory/IAccessoryManager.h>
#include <accessory/IAppleUSBAudioManager.h>
#include <accessory/IAppleUSBAudioManagerNotifier.h>
#include <accessory/testing/Kept.h>

#include <numeric>
#include <stdexcept>
#include <utility>

#include "tests/AppleiAP2/manager/ManagerRecorder.h"
#include "tests/AppleiAP2/notifier/Recorder.h"

namespace accessory::test {

using android::sp;

namespace {

/// Counts calls; answers the sum of what they brought.
class Counted {
  public:
    size_t takeCalls() { return std::exchange(mCalls, 0); }

  protected:
    template <typename... Values>
    int sum(Values... values) {
        ++mCalls;
        return static_cast<int>((0U + ... + values));
    }

  private:
    size_t mCalls = 0;
};

class Accessories : public AccessoryManagerImplItf, public Counted {
  public:
    int32_t getDeviceCount() override { return sum(); }
    int32_t getFeature(unsigned int accessoryId) override { return sum(accessoryId); }
    android::String8 getPath(unsigned int accessoryId) override {
        sum(accessoryId);
        return android::String8("/dev/x");
    }
    int32_t getAccessoryId(const android::String8& path) override {
        const std::string bytes(path.string(), path.size());
        return sum(std::accumulate(bytes.begin(), bytes.end(), 0U));
    }
    int dump(const android::Vector<android::String16>& /*args*/, android::String8& /*result*/) override {
        return 0;
    }
};

class Audio : public AppleUSBAudioManagerImplItf, public Counted {
  public:
    int startup() override { return sum(); }
    int shutdown() override { return sum(); }
    int addNotifier(const sp<AppleUSBAudioManagerNotifierItf>& /*notifier*/) override { return 0; }
    int getIds(unsigned int* ids, unsigned int* count) override {
        std::iota(ids, ids + 10, 1U);
        *count = 0xffffffff;
        return sum();
    }
    int start(unsigned int value) override { return sum(value); }
    int stop(unsigned int value) override { return sum(value); }
    int setSampleRate(unsigned int value1, unsigned int value2) override { return sum(value1, value2); }
    int setVolume(unsigned int value1, unsigned int value2) override { return sum(value1, value2); }
    int play(unsigned int value) override { return sum(value); }
    int pause(unsigned int value) override { return sum(value); }
    int dump(const android::Vector<android::String16>& /*args*/, android::String8& /*result*/) override {
        return 0;
    }
};

class AudioEvents : public AppleUSBAudioManagerNotifierImplItf, public Counted {
  public:
    int attach(unsigned int accessoryId) override { return sum(accessoryId); }
    int detach(unsigned int accessoryId) override { return sum(accessoryId); }
};

template <typename Stub, typename Implementation>
Subject subject(const tools::Interface& interface, const sp<Implementation>& implementation) {
    const sp<android::IBinder> stub = testkit::kept(new Stub(implementation));
    const auto takeTold = [implementation]() -> size_t {
        if constexpr (std::is_base_of_v<Counted, Implementation>) {
            return implementation->takeCalls();
        } else {
            return implementation->takeTold().size();
        }
    };
    return {interface, stub, takeTold};
}

}  // namespace

Subject subjectOf(const std::string& name) {
    const tools::Interface& interface = *tools::findInterface(name);
    if (name == "IAccessoryManager") return subject<BnAccessoryManager>(interface, sp(new Accessories));
    if (name == "IAppleiAP2Manager") return subject<BnAppleiAP2Manager>(interface, sp(new ManagerRecorder));
    if (name == "IAppleiAP2ManagerNotifier")
        return subject<BnAppleiAP2ManagerNotifier>(interface, sp(new Recorder));
    if (name == "IAppleUSBAudioManager") return subject<BnAppleUSBAudioManager>(interface, sp(new Audio));
    if (name == "IAppleUSBAudioManagerNotifier")
        return subject<BnAppleUSBAudioManagerNotifier>(interface, sp(new AudioEvents));
    throw std::out_of_range("no stub of " + name);
}

}  // namespace accessory::test
