// Inputs for the fuzzer of the manager's stub and its replay: all examples, and requests that a peer made up.
#pragma once

#include <vector>

#include "tests/AppleiAP2/notifier/Wire.h"

namespace accessory::test {

/// Each is a code as a word, then the arguments behind the token; with kWholeRequest in the code, all of the
/// request.
std::vector<Bytes> managerVectors();

inline constexpr uint32_t kWholeRequest = 0x80000000;

}  // namespace accessory::test
