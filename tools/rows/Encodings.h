// Bytes as hex digits, and which texts are UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace accessory::tools {

/// Reads pairs of digits, with ':' or blanks between pairs. @return false for anything else.
bool parseHex(const std::string& text, std::vector<uint8_t>* bytes);

std::string hexDigits(const void* bytes, size_t count);

bool isUtf8(const std::string& text);

}  // namespace accessory::tools
