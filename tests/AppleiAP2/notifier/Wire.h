// The bytes of the notifier's requests, beyond what every interface has.
#pragma once

#include <initializer_list>
#include <string_view>

#include "tests/AccessoryManager/Bytes.h"

namespace accessory::test {

/// A 64-bit value, little endian.
Bytes i64(uint64_t value);

/// The characters and their NUL, filled up with zeros to whole words.
Bytes cstr(std::string_view text);

/// Bytes as they are, filled up with zeros to whole words.
Bytes raw(Bytes bytes);

/// 16-bit values one after the other, filled up likewise.
Bytes halves(std::initializer_list<int> values);

/// @p times the same words.
Bytes repeated(size_t times, const Bytes& words);

/// A request of the notifier: its token, then @p arguments.
Bytes request(const Bytes& arguments);

}  // namespace accessory::test
