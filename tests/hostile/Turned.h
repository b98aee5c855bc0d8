// What a hostile sender makes of a request's bytes.
#pragma once

#include <string>
#include <vector>

#include "tests/AccessoryManager/Bytes.h"

namespace accessory::test {

struct Turned {
    std::string how;
    Bytes bytes;
};

/// Every beginning of @p request, the empty one too.
std::vector<Turned> cutAtEveryByte(const Bytes& request);

/// @p request with bytes behind it that nobody asked for.
std::vector<Turned> withMoreBehind(const Bytes& request);

/// Every 32-bit word of @p request replaced by 0, 1, -1, one more than it was, the number of bytes that
/// follow it, one more than that, INT_MAX, INT_MIN and the largest length that is believed.
std::vector<Turned> withEveryWordReplaced(const Bytes& request);

/// From every word on nothing but letters, so that a string which begins there or before does not end.
std::vector<Turned> withStringsThatDoNotEnd(const Bytes& request);

/// All of the above.
std::vector<Turned> turnedInEveryWay(const Bytes& request);

}  // namespace accessory::test
