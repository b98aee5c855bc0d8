// A client that survives its service: CHILD_ROLE(returningClient) registers with the iAP2 manager of the
// given name.
//
// "register" finds the service and registers; "return" waits for the service's death first, and for the next
// one to come. "told" asks for the numbers of the events so far.
#include <accessory/AppleiAP2ManagerNotifierAdapter.h>
#include <accessory/IAppleiAP2Manager.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <mutex>

#include "tests/load/Load.h"
#include "tests/platform/TestObjects.h"
#include "tests/support/ChildRole.h"

namespace accessory::load {
namespace {

using android::sp;

class NumberListener : public AppleiAP2ManagerNotifierAdapter {
  public:
    int attach(unsigned int number) override {
        const std::lock_guard lock(mLock);
        mTold += std::to_string(number) + ' ';
        return 0;
    }

    std::string takeTold() {
        const std::lock_guard lock(mLock);
        return std::exchange(mTold, {});
    }

  private:
    std::mutex mLock;
    std::string mTold;
};

class ReturningClient {
  public:
    explicit ReturningClient(const std::string& service) : mName(service.c_str()) {}

    /// @return what the registration said.
    int registerNow() {
        sp<android::IBinder> binder;
        test::eventually(
            [&] { return (binder = android::defaultServiceManager()->getService(mName)) != nullptr; },
            kLongPatience);
        mService = binder;
        mDeath = new test::Recipient;
        if (binder == nullptr || binder->linkToDeath(mDeath, nullptr, 0) != android::NO_ERROR) return -1;
        return IAppleiAP2Manager::asInterface(binder)->setNotifier(mNotifier);
    }

    int returnAfterDeath() {
        if (!test::eventually([this] { return mDeath->notices() > 0; }, kLongPatience)) return -1;
        return mDeath->notices() == 1 ? registerNow() : -1;
    }

    std::string takeTold() { return mNumberListener->takeTold(); }

  private:
    const android::String16 mName;
    const sp<NumberListener> mNumberListener{new NumberListener};
    const sp<IAppleiAP2ManagerNotifier> mNotifier{new BnAppleiAP2ManagerNotifier(mNumberListener)};
    sp<android::IBinder> mService;
    sp<test::Recipient> mDeath;
};

CHILD_ROLE(returningClient) {
    android::ProcessState::self()->startThreadPool();
    ReturningClient client(args.at(0));
    parent.send("ready");
    for (std::string order = parent.expectLine(kLongPatience); order != "bye";
         order = parent.expectLine(kLongPatience)) {
        if (order == "register") parent.send(std::to_string(client.registerNow()));
        if (order == "return") parent.send(std::to_string(client.returnAfterDeath()));
        if (order == "told") parent.send(client.takeTold());
    }
    return 0;
}

}  // namespace
}  // namespace accessory::load
