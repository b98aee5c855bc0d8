// Nothing in the runtime asks what time of day it is, so the clock on the wall may jump as it likes.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/time.h>

#include <atomic>
#include <ctime>

#include "tests/failures/FailingService.h"
#include "tests/failures/Journeys.h"

#define VISIBLE extern "C" __attribute__((visibility("default")))

namespace {

std::atomic<int> gAsked{0};

/// A year ahead and a year behind in turn.
time_t jump() {
    constexpr time_t kYear = time_t{365} * 24 * 3600;
    return gAsked++ % 2 == 0 ? kYear : -kYear;
}

}  // namespace

VISIBLE int clock_gettime(clockid_t clock, timespec* out) noexcept {
    using Function = int(clockid_t, timespec*);
    static auto* const genuine = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, "clock_gettime"));
    const int status = genuine(clock, out);
    if (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE) out->tv_sec += jump();
    return status;
}

VISIBLE time_t time(time_t* out) noexcept {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (out != nullptr) *out = now.tv_sec;
    return now.tv_sec;
}

/// A wait until a time of day counts as asking for it.
VISIBLE int pthread_cond_timedwait(pthread_cond_t* condition, pthread_mutex_t* lock,
                                   const timespec* deadline) {
    using Function = int(pthread_cond_t*, pthread_mutex_t*, const timespec*);
    static auto* const genuine = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, "pthread_cond_timedwait"));
    ++gAsked;
    return genuine(condition, lock, deadline);
}

namespace accessory::test {
namespace {

CHILD_ROLE(travelThroughTime) {
    const Journey& journey = journeyNamed(args.at(0));
    journey.prepare(args.at(1));
    const int before = gAsked;
    EXPECT_EQ(Outcome::kArrived, journey.run(args.at(1)));
    EXPECT_EQ(before, gAsked);
    return 0;
}

class JumpingClock : public testing::TestWithParam<Journey> {};

TEST_P(JumpingClock, IsNeverAsked) {
    FailingService service;
    ChildProcess client("travelThroughTime", {GetParam().name, service.name()});
    EXPECT_PRED1(testing::ExitedWithCode(0), client.wait());
}

INSTANTIATE_TEST_SUITE_P(Each, JumpingClock, testing::ValuesIn(journeys()),
                         [](const testing::TestParamInfo<Journey>& info) {
                             return std::string(info.param.name);
                         });

TEST(ClockOnTheWall, IsSeenByThisProgram) {
    const int before = gAsked;
    time(nullptr);
    EXPECT_EQ(before + 1, gAsked);
}

}  // namespace
}  // namespace accessory::test
