// AtOnce: for calls that a count which nobody should believe could keep busy for half a minute.
#pragma once

#include <gtest/gtest.h>

#include <chrono>

namespace accessory::test {

/// Runs @p action. @return failure when it took longer than any machine needs.
template <typename Action>
testing::AssertionResult endsAtOnce(const Action& action) {
    constexpr std::chrono::seconds kAtMost{5};
    const auto begin = std::chrono::steady_clock::now();
    action();
    if (std::chrono::steady_clock::now() - begin < kAtMost) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "took longer than " << kAtMost.count() << " s";
}

}  // namespace accessory::test
