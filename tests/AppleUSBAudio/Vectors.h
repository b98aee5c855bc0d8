// Inputs for the fuzzers of both stubs and their replay.
#pragma once

#include <vector>

#include "tests/AccessoryManager/Bytes.h"

namespace accessory::test {

/// In an input's code: the bytes behind it are the whole request, not what follows the token.
inline constexpr uint32_t kWhole = 0x80000000;

/// Each is a code as a word, then the arguments behind the token.
std::vector<Bytes> audioManagerVectors();
std::vector<Bytes> audioNotifierVectors();

}  // namespace accessory::test
