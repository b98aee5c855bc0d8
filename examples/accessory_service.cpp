// The smallest accessory service: a few fixed accessories behind IAccessoryManager, until it is killed.
#include <accessory/IAccessoryManager.h>
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <vector>

using android::sp;
using android::String16;
using android::String8;
using android::Vector;

namespace {

struct Accessory {
    int id;
    int feature;
    const char* path;
};

class FixedAccessories : public accessory::AccessoryManagerImplItf {
  public:
    int32_t getDeviceCount() override { return static_cast<int32_t>(mAccessories.size()); }

    int32_t getFeature(unsigned int accessoryId) override {
        const Accessory* const found = find(accessoryId);
        return found != nullptr ? found->feature : 0;
    }

    String8 getPath(unsigned int accessoryId) override {
        const Accessory* const found = find(accessoryId);
        return String8(found != nullptr ? found->path : "");
    }

    int32_t getAccessoryId(const String8& path) override {
        for (const Accessory& accessory : mAccessories) {
            if (path == accessory.path) return accessory.id;
        }
        return -1;
    }

    int dump(const Vector<String16>& /*args*/, String8& result) override {
        for (const Accessory& accessory : mAccessories) {
            result.appendFormat("accessory %d at %s\n", accessory.id, accessory.path);
        }
        return 0;
    }

  private:
    const Accessory* find(unsigned int id) const {
        for (const Accessory& accessory : mAccessories) {
            if (static_cast<unsigned int>(accessory.id) == id) return &accessory;
        }
        return nullptr;
    }

    const std::vector<Accessory> mAccessories = {
        {1, 0x21, "/devices/usb1/1-1"}, {2, 0x05, "/devices/usb1/1-2"}, {7, 0x40, "/devices/bluetooth/hci0"}};
};

}  // namespace

int main() {
    const sp<android::IBinder> stub = new accessory::BnAccessoryManager(new FixedAccessories());
    const android::status_t status =
        android::defaultServiceManager()->addService(String16("accessory.AccessoryManager"), stub);
    if (status != android::NO_ERROR) {
        fprintf(stderr, "accessory_service: the service cannot be published: %s\n", strerror(-status));
        return 1;
    }
    printf("serving accessory.AccessoryManager as process %d\n", getpid());
    fflush(stdout);
    android::IPCThreadState::self()->joinThreadPool();
}
