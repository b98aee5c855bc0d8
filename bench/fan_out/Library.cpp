// This library: clients register a notifier with the manager, its broadcaster calls one after the other and
// waits for each answer.
#include <accessory/AppleiAP2ManagerNotifierAdapter.h>
#include <accessory/IAppleiAP2Manager.h>
#include <binder/IPCThreadState.h>
#include <binder/ProcessState.h>

#include "bench/fan_out/FanOut.h"
#include "bench/support/IdleManager.h"

#include "bench/support/ManagerService.h"

namespace accessory::bench {
namespace {

using android::sp;

constexpr char kName[] = "fan_out";

class Manager : public IdleManager {
  public:
    int addNotifier(const sp<AppleiAP2ManagerNotifierItf>& notifier) override {
        events = notifier;
        return 0;
    }

    sp<AppleiAP2ManagerNotifierItf> events;
};

class LibraryBroadcaster : public Broadcaster {
  public:
    void raise(uint32_t event) override { mManager->events->notify(kAccessory, event); }

  private:
    const sp<Manager> mManager = new Manager;
    const sp<android::IBinder> mStub = publishManager(mManager, kName);
};

class Client : public AppleiAP2ManagerNotifierAdapter {
  public:
    explicit Client(const Heard& heard) : mHeard(heard) {}

    int notify(unsigned int accessory, unsigned int event) override {
        if (accessory == kAccessory) mHeard(event);
        return 0;
    }

  private:
    const Heard mHeard;
};

std::unique_ptr<Broadcaster> broadcast(const std::string& /*folder*/) {
    return std::make_unique<LibraryBroadcaster>();
}

void listen(const std::string& /*folder*/, const Heard& heard, const Registered& registered) {
    const sp<IAppleiAP2Manager> manager = managerNamed(kName);
    const sp<IAppleiAP2ManagerNotifier> notifier = new BnAppleiAP2ManagerNotifier(new Client(heard));
    manager->setNotifier(notifier);
    registered();
    android::IPCThreadState::self()->joinThreadPool();
}

const FanOutRegistration kLibrary({"library", 0, broadcast, listen});

}  // namespace
}  // namespace accessory::bench
