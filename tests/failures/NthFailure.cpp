#include "tests/failures/NthFailure.h"

#include <algorithm>
#include <atomic>

namespace accessory::test {

namespace {

std::atomic<int> gAllocationsLeft{0};
std::atomic<int> gSystemCallsLeft{0};
std::atomic<int> gError{0};
std::atomic<bool> gHappened{false};
thread_local bool tExempt = false;

/// Counts down to the failure; below zero nothing is armed.
bool isItsTurn(std::atomic<int>* left) {
    if (tExempt || *left <= 0 || left->fetch_sub(1) != 1) return false;
    gHappened = true;
    return true;
}

}  // namespace

void armFailure(Failing what, int n, int error) {
    gHappened = false;
    gError = error;
    (what == Failing::kAllocations ? gAllocationsLeft : gSystemCallsLeft) = n;
}

bool disarmFailure() {
    gAllocationsLeft = 0;
    gSystemCallsLeft = 0;
    return gHappened;
}

TestsOwn::TestsOwn() { tExempt = true; }
TestsOwn::~TestsOwn() { tExempt = false; }
bool TestsOwn::isHere() { return tExempt; }

bool isAllocationToFail() { return isItsTurn(&gAllocationsLeft); }

int errorToFailWith(std::initializer_list<int> possible) {
    const int wanted = gError;
    if (wanted == 0) return isItsTurn(&gSystemCallsLeft) ? *possible.begin() : 0;
    const bool can = std::find(possible.begin(), possible.end(), wanted) != possible.end();
    return can && isItsTurn(&gSystemCallsLeft) ? wanted : 0;
}

}  // namespace accessory::test
