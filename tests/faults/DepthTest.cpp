// How deep calls may nest: between two processes to the limit and beyond, in a ring as far as threads reach.
#include <gtest/gtest.h>

#include <memory>
#include <thread>

#include "tests/faults/Ring.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

/// The deepest nesting that the runtime allows on one connection, in calls.
constexpr int kDeepest = 256;

class Depth : public testing::TestWithParam<int> {};

/// A pair is a ring of two: every second call comes back to the thread that made the one before.
TEST_P(Depth, OfTwoProcessesIsReachedOnOneThreadOfEach) {
    const Ring pair(2, 1);
    int made = 0;
    EXPECT_EQ(NO_ERROR, pair.turn(GetParam(), &made));
    EXPECT_EQ(GetParam(), made);
}

/// In a ring of three every call needs a thread of its own.
TEST_P(Depth, OfThreeProcessesIsReachedWithAThreadForEachCall) {
    const Ring ring(3, (GetParam() + 2) / 3);
    int made = 0;
    EXPECT_EQ(NO_ERROR, ring.turn(GetParam(), &made));
    EXPECT_EQ(GetParam(), made);
}

INSTANTIATE_TEST_SUITE_P(Calls, Depth, testing::Values(1, 2, 8, 32, 64, 255, kDeepest),
                         testing::PrintToStringParamName());

TEST(TooDeepNesting, IsRefusedBetweenTwoProcessesWhichGoOn) {
    const Ring pair(2, 1);
    for (const int tooMany : {kDeepest + 1, 2 * kDeepest, 10'000}) {
        int made = 0;
        EXPECT_EQ(FAILED_TRANSACTION, pair.turn(tooMany, &made)) << tooMany;
        EXPECT_EQ(NO_ERROR, pair.turn(kDeepest, &made));
        EXPECT_EQ(kDeepest, made);
    }
}

TEST(TooDeepNesting, InARingWithThreadsHasNoLimitButThese) {
    const Ring ring(3, 110);
    int made = 0;
    EXPECT_EQ(NO_ERROR, ring.turn(320, &made));
    EXPECT_EQ(320, made);
}

TEST(ARingWithoutThreadsLeft, StandsStillUntilOneOfItDies) {
    Ring ring(3, 2);
    std::thread turning([&] {
        int made = 0;
        EXPECT_EQ(DEAD_OBJECT, ring.turn(7, &made));
    });
    EXPECT_TRUE(eventually([&] { return ring.callsUnderWay() == 6; }));
    ring.process(1).kill(SIGKILL);
    turning.join();
}

TEST(ACallToOneself, ThroughAnObjectThatCameHomeNeedsNoThread) {
    const ServiceProcess service(1);
    ask(service.object(), kKeep, service.object());
    Call call(service.object(), kAskKept);
    call << kCaller;
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(NO_ERROR, call.reply.readInt32());
    EXPECT_EQ(getpid(), call.reply.readInt32()) << "the caller is who called the process";
}

TEST(ACallToOneself, ThroughAnotherProcessThatHasTheObjectComesBackToTheSameThread) {
    const ServiceProcess service(1);
    const ServiceProcess other(1);
    ask(other.object(), kKeep, service.object());
    ask(service.object(), kKeep, askForObject(other.object(), kKept));
    Call call(service.object(), kAskKept);
    call << kWaiting;
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(NO_ERROR, call.reply.readInt32());
    EXPECT_EQ(0, call.reply.readInt32());
}

}  // namespace
}  // namespace accessory::test
