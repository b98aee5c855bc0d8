// What a warm small call costs besides time, exactly.
#include "bench/support/CallCost.h"

#include <gtest/gtest.h>
#include <utils/String8.h>

#include <system_error>

#include "bench/support/Heap.h"

using accessory::bench::allocations;
using accessory::bench::CallCost;
using accessory::bench::measureCallCost;

namespace {

constexpr size_t kWindows = 50;
constexpr size_t kCalls = 100;

TEST(CallCost, CountsTheBlocksThatALibraryAsksFor) {
    const size_t before = allocations();
    const android::String8 text("longer than any string that is kept without a block of its own");
    EXPECT_EQ(before + 1, allocations());
}

TEST(CallCost, OfAWarmSmallCallIsNoMemoryAndTwoSystemCallsOnEitherSide) {
    CallCost cost;
    try {
        cost = measureCallCost(kWindows, kCalls);
    } catch (const std::system_error& error) {
        GTEST_SKIP() << "processes cannot be traced here: " << error.what();
    }
    EXPECT_EQ(0u, cost.callerAllocations);
    EXPECT_EQ(0u, cost.serviceAllocations);
    EXPECT_EQ(2 * kCalls, cost.callerSystemCalls);
    // The service's wait for the first or the next call may lie on either side of the window's edge.
    EXPECT_LE(2 * kCalls - 1, cost.serviceSystemCalls);
    EXPECT_GE(2 * kCalls + 1, cost.serviceSystemCalls);
}

}  // namespace
