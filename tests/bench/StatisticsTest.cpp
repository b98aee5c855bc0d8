#include "bench/support/Statistics.h"

#include <gtest/gtest.h>

using namespace accessory::bench;  // NOLINT(google-build-using-namespace): the tests' vocabulary

namespace {

TEST(Statistics, TakesTheMiddleOfAnOddNumberOfSamples) { EXPECT_EQ(3, median({5, 1, 3})); }

TEST(Statistics, TakesTheUpperMiddleOfAnEvenNumberOfSamples) { EXPECT_EQ(3, median({4, 1, 3, 2})); }

TEST(Statistics, TellsWhatOneOfAHundredExceeds) {
    std::vector<double> samples;
    for (int i = 0; i < 100; ++i)
        samples.push_back(i);
    EXPECT_EQ(99, percentile(samples, 0.99));
    EXPECT_EQ(0, percentile(samples, 0));
}

TEST(Statistics, IsZeroWithoutSamples) { EXPECT_EQ(0, median({})); }

TEST(Statistics, FindsTheSlopeOfALine) { EXPECT_DOUBLE_EQ(2, slope({1, 10, 100}, {7, 25, 205})); }

TEST(Statistics, HasNoSlopeAtASinglePoint) { EXPECT_EQ(0, slope({1}, {7})); }

}  // namespace
