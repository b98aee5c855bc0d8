#include "tests/failures/ShortTransfer.h"

#include <algorithm>
#include <atomic>

#include "tests/failures/NthFailure.h"

namespace accessory::test {

namespace {

constexpr size_t kMostBytes = 7;

std::atomic<bool> gShort{false};
std::atomic<size_t> gTransfers{0};

}  // namespace

void shortenTransfers() { gShort = true; }

size_t shortened(size_t size) {
    return gShort && !TestsOwn::isHere() ? std::min(size, gTransfers++ % kMostBytes + 1) : size;
}

}  // namespace accessory::test
