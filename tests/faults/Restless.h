// Restless: what a client does all the time, one step after the other, in an order that a seed decides.
#pragma once

#include <accessory/IAppleiAP2Manager.h>
#include <accessory/IAppleiAP2ManagerNotifier.h>

#include <random>
#include <vector>

namespace accessory::test {

/// Registers, deregisters, requests, passes objects to a depot and takes some from there, makes large calls.
class Restless {
  public:
    /// @param manager  of the service that registers.
    /// @param depot    of the same process as @p manager.
    /// @param notifier registers and deregisters; null for one that does neither.
    Restless(android::sp<IAppleiAP2Manager> manager, android::sp<android::IBinder> depot,
             android::sp<IAppleiAP2ManagerNotifier> notifier, unsigned seed);

    /// @return false when the depot was found dead.
    bool step();

  private:
    bool exchangeLargeData();
    bool passAnObject();
    bool takeAnObject(uint32_t code);
    bool letItCallBack();

    const android::sp<IAppleiAP2Manager> mManager;
    const android::sp<android::IBinder> mDepot;
    const android::sp<IAppleiAP2ManagerNotifier> mNotifier;
    std::mt19937 mRandom;
    std::vector<android::sp<android::IBinder>> mTaken;
};

}  // namespace accessory::test
