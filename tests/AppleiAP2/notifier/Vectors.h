// Inputs for the stub's fuzzer and its replay: all events, and requests that a peer made up.
#pragma once

#include <vector>

#include "tests/AppleiAP2/notifier/Wire.h"

namespace accessory::test {

/// Each is a code as a word, then the arguments behind the token; with kWhole in the code, all of the
/// request.
std::vector<Bytes> stubVectors();

inline constexpr uint32_t kWhole = 0x80000000;

}  // namespace accessory::test
