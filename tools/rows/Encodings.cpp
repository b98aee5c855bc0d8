#include "tools/rows/Encodings.h"

namespace accessory::tools {

namespace {

int hexDigit(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    return -1;
}

/// How many bytes the UTF-8 character at @p at has; 0 when there is none.
size_t utf8Length(const std::string& text, size_t at) {
    const auto byte = [&](size_t i) { return i < text.size() ? static_cast<uint8_t>(text[i]) : 0U; };
    const unsigned first = byte(at);
    const size_t length = first < 0x80 ? 1 : first >= 0xc2 && first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
    if ((first >= 0x80 && first < 0xc2) || first > 0xf4) return 0;
    for (size_t i = 1; i < length; ++i) {
        if ((byte(at + i) & 0xc0) != 0x80) return 0;
    }
    const unsigned second = byte(at + 1);
    const bool overlong = (first == 0xe0 && second < 0xa0) || (first == 0xf0 && second < 0x90);
    const bool surrogate = first == 0xed && second >= 0xa0;
    const bool tooLarge = first == 0xf4 && second >= 0x90;
    return overlong || surrogate || tooLarge ? 0 : length;
}

}  // namespace

bool parseHex(const std::string& text, std::vector<uint8_t>* bytes) {
    for (size_t i = 0; i < text.size();) {
        if (text[i] == ':' || text[i] == ' ') {
            ++i;
            continue;
        }
        const int high = hexDigit(text[i]);
        const int low = i + 1 < text.size() ? hexDigit(text[i + 1]) : -1;
        if (high < 0 || low < 0) return false;
        bytes->push_back(static_cast<uint8_t>(high * 16 + low));
        i += 2;
    }
    return true;
}

std::string hexDigits(const void* bytes, size_t count) {
    static constexpr char kDigits[] = "0123456789abcdef";
    const auto* const values = static_cast<const uint8_t*>(bytes);
    std::string digits;
    digits.reserve(count * 2);
    for (size_t i = 0; i < count; ++i) {
        digits += kDigits[values[i] >> 4];
        digits += kDigits[values[i] & 0xf];
    }
    return digits;
}

bool isUtf8(const std::string& text) {
    for (size_t at = 0; at < text.size();) {
        const size_t length = utf8Length(text, at);
        if (length == 0) return false;
        at += length;
    }
    return true;
}

}  // namespace accessory::tools
