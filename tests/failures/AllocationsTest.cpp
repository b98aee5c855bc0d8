// Every allocation of a journey fails once, at either end: the journey arrives or is refused clearly, and the
// next one arrives. The failures of one journey run in turn, n = 1, 2, ..., until none is left to fail.
#include <gtest/gtest.h>

#include "tests/failures/EachFailure.h"

namespace accessory::test {
namespace {

class FailedAllocation : public testing::TestWithParam<Journey> {};

TEST_P(FailedAllocation, OfTheClientEndsInAClearErrorAndTheNextJourneyArrives) {
    EachFailure(GetParam(), Failing::kAllocations, 0).atTheClient();
}

TEST_P(FailedAllocation, OfTheServiceEndsInAClearErrorAndTheNextJourneyArrives) {
    EachFailure(GetParam(), Failing::kAllocations, 0).atTheService();
}

INSTANTIATE_TEST_SUITE_P(Each, FailedAllocation, testing::ValuesIn(journeys()), nameOfJourney);

}  // namespace
}  // namespace accessory::test
