#include "tests/AppleiAP2/notifier/Wire.h"

namespace accessory::test {

Bytes i64(uint64_t value) {
    return parcel({i32(static_cast<uint32_t>(value)), i32(static_cast<uint32_t>(value >> 32))});
}

Bytes cstr(std::string_view text) {
    Bytes bytes(text.begin(), text.end());
    bytes.push_back(0);
    return raw(bytes);
}

Bytes raw(Bytes bytes) {
    while (bytes.size() % 4 != 0)
        bytes.push_back(0);
    return bytes;
}

Bytes halves(std::initializer_list<int> values) {
    Bytes bytes;
    for (const int value : values) {
        bytes.push_back(static_cast<uint8_t>(value));
        bytes.push_back(static_cast<uint8_t>(value >> 8));
    }
    return raw(bytes);
}

Bytes repeated(size_t times, const Bytes& words) {
    Bytes bytes;
    for (size_t i = 0; i < times; ++i)
        bytes.insert(bytes.end(), words.begin(), words.end());
    return bytes;
}

Bytes request(const Bytes& arguments) {
    return parcel({token(u"accessory.AppleiAP2ManagerNotifier"), arguments});
}

}  // namespace accessory::test
