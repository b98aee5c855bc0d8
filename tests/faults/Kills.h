// What the tests that kill share: how often, at which random moments, and how soon a waiting caller knew.
#pragma once

#include <binder/IBinder.h>

#include <chrono>
#include <random>
#include <thread>
#include <vector>

#include "tests/support/ChildProcess.h"

namespace accessory::test {

/// ACCESSORY_KILLS, else some tens.
int killsToDo();

/// ACCESSORY_SEED, else a fresh one; printed, so that a run can be had again.
unsigned killSeed();

/// Does nothing for so long, on the processor: a random moment is wanted, not a pause.
void spin(std::chrono::microseconds time);

/// A call that is never answered, on a thread of its own.
class StayingCall {
  public:
    explicit StayingCall(android::sp<android::IBinder> object);
    ~StayingCall() { join(); }
    StayingCall(const StayingCall&) = delete;
    StayingCall& operator=(const StayingCall&) = delete;

    /// Waits for its end.
    void join();
    /// After join().
    android::status_t status() const { return mStatus; }
    std::chrono::steady_clock::time_point end() const { return mEnd; }

  private:
    android::status_t mStatus = android::NO_ERROR;
    std::chrono::steady_clock::time_point mEnd;
    std::thread mThread;
};

/// How long after kill() had returned something was known here.
class Latencies {
  public:
    /// Kills @p child and waits until @p call has ended.
    void kill(ChildProcess& child, StayingCall& call);

    /// Prints the figures. Of a hundred kills 99 are to be known within 100 ms; where the machine itself did
    /// not come round to telling this process of the end in that time, nothing can be said, and they are
    /// counted apart.
    void check(const char* who);

  private:
    std::vector<double> mKnown;    // ms, at the waiting call
    std::vector<double> mMachine;  // ms, until the kernel told this process of the other one's end
};

}  // namespace accessory::test
