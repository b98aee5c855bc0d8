// Every allocation of a journey fails once, at either end: the journey arrives or is refused clearly, and the
// next one arrives. The failures of one journey run in turn, n = 1, 2, ..., until none is left to fail.
#include <gtest/gtest.h>

#include "tests/failures/EachFailure.h"

// When a member of a record finds no memory, libutils does not let go the counters of the object that never
// came to be: the constructor of its base has made them, and its destructor leaves those of an object to
// which nobody ever held a reference. The objects themselves are looked after all the same.
extern "C" __attribute__((visibility("default"), used)) const char* __lsan_default_suppressions() {
    return "leak:android::RefBase::RefBase\n";
}

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
