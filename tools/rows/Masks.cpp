#include "tools/rows/Masks.h"

#include <algorithm>

namespace accessory::tools {

namespace {

constexpr unsigned kBits = 32;

std::string numberedBit(unsigned number) { return "bit" + std::to_string(number); }

Json::Value cutAtBars(const std::string& text) {
    Json::Value names(Json::arrayValue);
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = std::min(text.find('|', begin), text.size());
        names.append(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return names;
}

/// 0 when nothing is called so.
uint32_t bitCalled(const std::string& name, const MaskBits& bits) {
    for (const MaskBit& each : bits) {
        if (each.name == name) return each.bit;
    }
    for (unsigned number = 0; number < kBits; ++number) {
        if (numberedBit(number) == name) return 1U << number;
    }
    uint32_t all = 0;
    for (const MaskBit& each : bits)
        all |= each.bit;
    return name == "all" ? all : 0;
}

bool isNumber(const Json::Value& value) {
    if (!value.isString()) return value.isNumeric();
    const std::string text = value.asString();
    return !text.empty() && text[0] >= '0' && text[0] <= '9';
}

}  // namespace

std::string maskExpected() { return "names of bits joined by '|', 'all', or a number"; }

Json::Value maskToJson(uint32_t mask, const MaskBits& bits) {
    Json::Value names(Json::arrayValue);
    for (unsigned number = 0; number < kBits; ++number) {
        const uint32_t bit = 1U << number;
        if ((mask & bit) == 0) continue;
        const auto named =
            std::find_if(bits.begin(), bits.end(), [bit](auto& each) { return each.bit == bit; });
        names.append(named != bits.end() ? named->name : numberedBit(number));
    }
    return names;
}

uint32_t maskFromJson(const Json::Value& value, const MaskBits& bits, const std::string& where) {
    if (isNumber(value)) return static_cast<uint32_t>(unsignedNumber(value, where, UINT32_MAX));
    const Json::Value names = value.isString() ? cutAtBars(value.asString()) : value;
    if (!names.isArray()) refuse(where, maskExpected(), value);
    uint32_t mask = 0;
    for (const Json::Value& name : names) {
        const uint32_t bit = name.isString() ? bitCalled(name.asString(), bits) : 0;
        if (bit == 0) refuse(where, maskExpected(), name);
        mask |= bit;
    }
    return mask;
}

}  // namespace accessory::tools
