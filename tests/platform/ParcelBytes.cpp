#include "tests/platform/ParcelBytes.h"

#include <cstdio>
#include <sstream>

namespace accessory::test {

std::vector<uint8_t> bytesFrom(const std::string& hex) {
    std::istringstream digits(hex);
    std::vector<uint8_t> bytes;
    unsigned int byte = 0;
    while (digits >> std::hex >> byte)
        bytes.push_back(static_cast<uint8_t>(byte));
    return bytes;
}

std::string hexOf(const android::Parcel& parcel) {
    std::string hex;
    for (size_t i = 0; i < parcel.dataSize(); ++i) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02x ", parcel.data()[i]);
        hex += digits;
    }
    if (!hex.empty()) hex.pop_back();
    return hex;
}

void fill(android::Parcel& parcel, const std::string& hex) {
    const std::vector<uint8_t> bytes = bytesFrom(hex);
    parcel.setData(bytes.data(), bytes.size());
}

}  // namespace accessory::test
