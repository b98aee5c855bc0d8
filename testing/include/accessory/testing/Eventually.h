// eventually(): waits for what another thread or process is about to do, up to a deadline.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace accessory::testkit {

/// How long a test waits for anything before it fails. Generous: only a failing test waits that long.
inline constexpr std::chrono::milliseconds kPatience{10'000};

/// Asks @p condition every millisecond until it holds.
/// @return failure when it still does not after @p patience; for use in EXPECT_TRUE and ASSERT_TRUE.
template <typename Condition>
testing::AssertionResult eventually(Condition condition, std::chrono::milliseconds patience = kPatience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return testing::AssertionFailure() << "not within " << patience.count() << " ms";
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return testing::AssertionSuccess();
}

}  // namespace accessory::testkit
