// The smallest client: asks an accessory service for everything it knows, then waits for the service to end.
#include <accessory/IAccessoryManager.h>
#include <binder/IServiceManager.h>
#include <unistd.h>

#include <cstdio>
#include <future>

using accessory::IAccessoryManager;
using android::IBinder;
using android::sp;
using android::String16;
using android::String8;
using android::Vector;

namespace {

class DeathNotice : public IBinder::DeathRecipient {
  public:
    void binderDied(const android::wp<IBinder>& /*who*/) override { mDied.set_value(); }
    void wait() { mDied.get_future().wait(); }

  private:
    std::promise<void> mDied;
};

void ask(IAccessoryManager& manager) {
    printf("%d accessories are attached\n", manager.getDeviceCount());
    for (const char* path : {"/devices/usb1/1-1", "/devices/usb1/1-2", "/devices/bluetooth/hci0"}) {
        const int id = manager.getAccessoryId(String8(path));
        printf("accessory %d: feature 0x%02x, path %s\n", id,
               manager.getFeature(static_cast<unsigned int>(id)),
               manager.getPath(static_cast<unsigned int>(id)).string());
    }
    printf("an unknown path has the identifier %d\n", manager.getAccessoryId(String8("/devices/none")));
    printf("an unknown accessory has the path '%s'\n", manager.getPath(99).string());
}

void printDump(const sp<IBinder>& service, const char* title, const Vector<String16>& args) {
    printf("%s\n", title);
    fflush(stdout);
    service->dump(STDOUT_FILENO, args);
}

}  // namespace

int main() {
    const sp<IBinder> service =
        android::defaultServiceManager()->getService(String16("accessory.AccessoryManager"));
    if (service == nullptr) {
        fprintf(stderr, "accessory_client: no accessory service here; start accessory_service first\n");
        return 1;
    }
    const sp<DeathNotice> notice = new DeathNotice();
    service->linkToDeath(notice);

    ask(*IAccessoryManager::asInterface(service));
    Vector<String16> notifiers;
    notifiers.add(String16("notifier"));
    printDump(service, "the service's dump:", {});
    printDump(service, "its dump of the registered notifiers:", notifiers);

    printf("waiting for the service to end\n");
    fflush(stdout);
    notice->wait();
    printf("the service has ended; a ping answers %d\n", service->pingBinder());
}
