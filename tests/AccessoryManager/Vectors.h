// Inputs for the fuzzer of the stub and its replay.
#pragma once

#include <vector>

#include "tests/AccessoryManager/Bytes.h"

namespace accessory::test {

/// In an input's code: the bytes behind it are the whole request, not what follows the token.
inline constexpr uint32_t kWholeRequest = 0x80000000;

/// Each is a code as a word, then the arguments behind the token.
std::vector<Bytes> accessoryVectors();

struct AccessoryRequest {
    uint32_t code = 0;
    Bytes bytes;  ///< token included
};

/// The request of such an input.
AccessoryRequest accessoryRequest(const uint8_t* data, size_t size);

}  // namespace accessory::test
