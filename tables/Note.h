// What a capture of the bundled runtime says about this library's tables: the line by which both sides are
// compared.
#pragma once

#include <array>
#include <cstdint>

namespace accessory::wire {

inline constexpr char kTablesNote[] = "accessory tables ";
inline constexpr size_t kTablesNoteFront = sizeof(kTablesNote) - 1;
inline constexpr size_t kDigestDigits = 16;

/// "accessory tables 0123456789abcdef", with its NUL.
constexpr std::array<char, kTablesNoteFront + kDigestDigits + 1> tablesNote(uint64_t digest) {
    std::array<char, kTablesNoteFront + kDigestDigits + 1> note{};
    for (size_t i = 0; i < kTablesNoteFront; ++i)
        note[i] = kTablesNote[i];
    for (size_t i = 0; i < kDigestDigits; ++i)
        note[kTablesNoteFront + i] = "0123456789abcdef"[(digest >> (60 - 4 * i)) & 0xf];
    return note;
}

}  // namespace accessory::wire
