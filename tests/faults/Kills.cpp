#include "tests/faults/Kills.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "tests/faults/Depot.h"

namespace accessory::test {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using Clock = std::chrono::steady_clock;

namespace {

constexpr double kLimitMs = 100;

double millisecondsBetween(Clock::time_point from, Clock::time_point to) {
    return std::max(0.0, std::chrono::duration<double, std::milli>(to - from).count());
}

long numberFrom(const char* variable, long otherwise) {
    const char* const text = std::getenv(variable);
    return text != nullptr ? std::strtol(text, nullptr, 10) : otherwise;
}

/// A descriptor that becomes readable at the end of a process.
class ProcessEnd {
  public:
    explicit ProcessEnd(pid_t pid) : mFd(static_cast<int>(syscall(SYS_pidfd_open, pid, 0))) {
        EXPECT_GE(mFd, 0);
    }
    ~ProcessEnd() { close(mFd); }
    ProcessEnd(const ProcessEnd&) = delete;
    ProcessEnd& operator=(const ProcessEnd&) = delete;

    void await() const {
        pollfd end{mFd, POLLIN, 0};
        EXPECT_EQ(1, poll(&end, 1, static_cast<int>(kPatience.count())));
    }

  private:
    const int mFd;
};

}  // namespace

int killsToDo() {
    constexpr long kSomeTens = 30;
    return static_cast<int>(numberFrom("ACCESSORY_KILLS", kSomeTens));
}

unsigned killSeed() {
    const auto seed = static_cast<unsigned>(numberFrom("ACCESSORY_SEED", std::random_device()() % 1'000'000));
    std::printf("ACCESSORY_SEED=%u\n", seed);
    return seed;
}

void spin(std::chrono::microseconds time) {
    const auto until = Clock::now() + time;
    while (Clock::now() < until) {
    }
}

StayingCall::StayingCall(sp<IBinder> object)
    : mThread([this, object = std::move(object)] {
          mStatus = Call(object, kStay).run();
          mEnd = Clock::now();
      }) {}

void StayingCall::join() {
    if (mThread.joinable()) mThread.join();
}

void Latencies::kill(ChildProcess& child, StayingCall& call) {
    const ProcessEnd end(child.pid());
    child.kill(SIGKILL);
    const auto killed = Clock::now();
    end.await();
    mMachine.push_back(millisecondsBetween(killed, Clock::now()));
    call.join();
    EXPECT_EQ(DEAD_OBJECT, call.status());
    mKnown.push_back(millisecondsBetween(killed, call.end()));
    child.wait();
}

void Latencies::check(const char* who) {
    ASSERT_FALSE(mKnown.empty());
    size_t late = 0;
    size_t unfit = 0;
    for (size_t i = 0; i < mKnown.size(); ++i) {
        if (mKnown[i] <= kLimitMs) continue;
        mMachine[i] > kLimitMs ? ++unfit : ++late;
    }
    const size_t allowed = (mKnown.size() + 99) / 100;
    EXPECT_LE(late, allowed);
    std::sort(mKnown.begin(), mKnown.end());
    std::sort(mMachine.begin(), mMachine.end());
    std::printf(
        "%s: %zu waiting calls ended with DEAD_OBJECT after %.2f ms (median), %.2f ms (worst); above "
        "100 ms %zu, and %zu where the machine itself was late (its median %.2f ms, worst %.2f ms)\n",
        who, mKnown.size(), mKnown[mKnown.size() / 2], mKnown.back(), late, unfit,
        mMachine[mMachine.size() / 2], mMachine.back());
}

}  // namespace accessory::test
