// The service of the tests with two processes: CHILD_ROLE(managerService) publishes a stub over a
// ManagerRecorder, RunningManager starts it and finds its binder.
#pragma once

#include <accessory/IAppleiAP2Manager.h>

#include <string>

#include "tests/support/ChildProcess.h"

namespace accessory::test {

/// A service in a process of its own. It answers every request with kAnswer, and as ManagerRecorder does.
class RunningManager {
  public:
    static constexpr int kAnswer = -1234;
    /// stop() of this accessory never answers and says "waiting" to the test.
    static constexpr unsigned int kWaitForever = 0xdead;
    /// Of this accessory no feature is known.
    static constexpr unsigned int kWithoutFeatures = 0xfea;
    /// Once this one is stopped there is no version.
    static constexpr unsigned int kTakesTheVersion = 0xe25;

    RunningManager();

    const android::sp<android::IBinder>& binder() const { return mBinder; }
    android::sp<IAppleiAP2Manager> manager() const { return IAppleiAP2Manager::asInterface(mBinder); }

    /// What its implementation was told since the last time, with '|' behind each call.
    std::string told();

    void kill();

    ChildProcess process;

  private:
    explicit RunningManager(const std::string& name);

    android::sp<android::IBinder> mBinder;
};

}  // namespace accessory::test
