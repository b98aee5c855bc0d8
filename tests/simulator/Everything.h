// askForEverything(): the requests for all that a device can tell, always in the same order.
#pragma once

#include <accessory/AppleiAP2ManagerNotifierAdapter.h>
#include <accessory/IAppleiAP2Manager.h>

#include <functional>

namespace accessory::simulator::test {

/// @return how many requests that were; every one of them must succeed, or the test has failed.
int askForEverything(IAppleiAP2Manager& manager, unsigned int accId);

/// Does something on every attach event. No event comes meanwhile, and at --speed 0 no time passes either:
/// whatever it asks for is answered in the same order in every run.
class OnAttach : public AppleiAP2ManagerNotifierAdapter {
  public:
    explicit OnAttach(std::function<void(unsigned int accId)> action) : mAction(std::move(action)) {}

    int attach(unsigned int accId) override {
        mAction(accId);
        return 0;
    }

  private:
    const std::function<void(unsigned int accId)> mAction;
};

}  // namespace accessory::simulator::test
