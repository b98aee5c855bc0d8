// The client of the tests with two processes: CHILD_ROLE(notifierClient) hosts a stub over a Recorder,
// RunningClient starts it and finds its binder.
#pragma once

#include <accessory/IAppleiAP2ManagerNotifier.h>

#include <string>

#include "tests/support/ChildProcess.h"

namespace accessory::test {

/// A client in a process of its own. It answers every event with kAnswer.
class RunningClient {
  public:
    static constexpr int kAnswer = -1234;
    /// notify() with this event never answers and says "waiting" to the test.
    static constexpr unsigned int kWaitForever = 0xdead;

    RunningClient();

    const android::sp<android::IBinder>& binder() const { return mBinder; }
    android::sp<IAppleiAP2ManagerNotifier> notifier() const;

    /// What its implementation was told since the last time, with '|' behind each call.
    std::string told();

    /// What it has logged under the interface's tag since the last time, as "priority text" with '|' behind
    /// each line.
    std::string log();

    void kill();

    ChildProcess process;

  private:
    explicit RunningClient(const std::string& name);

    android::sp<android::IBinder> mBinder;
};

}  // namespace accessory::test
