// Shows how full the phones' batteries are, and goes on with the next service when one has ended.
#include <accessory/AppleiAP2ManagerNotifierAdapter.h>
#include <accessory/IAppleiAP2Manager.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <cstdio>
#include <future>

using accessory::iAP2PowerUpdateMask;
using accessory::IAppleiAP2Manager;
using android::IBinder;
using android::sp;

/// For one service; the next one gets another, so that nothing of the old one is taken for news.
class Batteries : public accessory::AppleiAP2ManagerNotifierAdapter {
  public:
    explicit Batteries(const sp<IAppleiAP2Manager>& manager) : mManager(manager) {}

    /// A request from within an event: all but registering and deregistering may be made here.
    int attach(unsigned int accId) override {
        sp<iAP2PowerUpdateMask> wanted = new iAP2PowerUpdateMask;
        wanted->mask = iAP2PowerUpdateMask::kChargeLevel;
        return mManager->startPowerUpdate(accId, wanted);
    }

    int powerUpdate(unsigned int accId, const sp<accessory::iAP2PowerUpdate>& power) override {
        if ((power->getMask() & iAP2PowerUpdateMask::kChargeLevel) == 0) return 0;
        printf("phone %u is at %d %%\n", accId, power->getChargeLevel());
        return 0;
    }

  private:
    const sp<IAppleiAP2Manager> mManager;
};

class EndOfService : public IBinder::DeathRecipient {
  public:
    void wait() { mEnded.get_future().wait(); }

  private:
    void binderDied(const android::wp<IBinder>& /*who*/) override { mEnded.set_value(); }

    std::promise<void> mEnded;
};

/// However long it takes; each look waits 5 s for the name.
sp<IBinder> nextService() {
    sp<IBinder> service;
    while (service == nullptr)
        service = android::defaultServiceManager()->getService(IAppleiAP2Manager::descriptor);
    return service;
}

/// A phone that comes meanwhile may be asked twice, by its event and by its identifier; the second request
/// takes the place of the first.
void askForAll(IAppleiAP2Manager& manager, Batteries& batteries) {
    manager.startup(static_cast<accessory::AppleiAP2TransportMode>(0));  // the phones on USB
    unsigned int ids[10], count = 0;
    manager.getAccessoryIds(ids, &count);
    for (unsigned int i = 0; i < count; ++i)
        batteries.attach(ids[i]);
}

/// Linked first: calls of a dead service look like successes, so its death alone tells. Returns then.
void follow(const sp<IBinder>& service) {
    const sp<EndOfService> end = new EndOfService;
    if (service->linkToDeath(end) != android::NO_ERROR) return;  // it is dead already
    const sp<IAppleiAP2Manager> manager = IAppleiAP2Manager::asInterface(service);
    const sp<Batteries> batteries = new Batteries(manager);
    if (manager->setNotifier(new accessory::BnAppleiAP2ManagerNotifier(batteries)) != 0) {
        fprintf(stderr, "this service takes no clients\n");
    }
    askForAll(*manager, *batteries);
    end->wait();
}

int main() {
    setvbuf(stdout, nullptr, _IOLBF, 0);
    android::ProcessState::self()->startThreadPool();
    for (;;) {
        follow(nextService());
        printf("the service has ended; waiting for the next\n");
    }
}
