#include "tests/AccessoryManager/Bytes.h"

#include <binder/Parcel.h>
#include <gtest/gtest.h>

#include <utility>

namespace accessory::test {
namespace {

void append(Bytes* bytes, uint64_t value, int width) {
    for (int i = 0; i < width; ++i)
        bytes->push_back(static_cast<uint8_t>(value >> (8 * i)));
}

Bytes filledUp(Bytes bytes) {
    bytes.resize((bytes.size() + 3) / 4 * 4);
    return bytes;
}

}  // namespace

Bytes i32(int64_t value) {
    Bytes bytes;
    append(&bytes, static_cast<uint64_t>(value), 4);
    return bytes;
}

Bytes string8(std::string_view text) {
    Bytes bytes = i32(static_cast<int64_t>(text.size()));
    if (text.empty()) return bytes;
    bytes.insert(bytes.end(), text.begin(), text.end());
    bytes.push_back(0);
    return filledUp(std::move(bytes));
}

Bytes string16(std::u16string_view text) {
    Bytes bytes = i32(static_cast<int64_t>(text.size()));
    for (const char16_t unit : text)
        append(&bytes, unit, 2);
    append(&bytes, 0, 2);
    return filledUp(std::move(bytes));
}

Bytes token(std::u16string_view descriptor) {
    return parcel({i32(0x80000000), i32(-1), string16(descriptor)});
}

Bytes parcel(std::initializer_list<Bytes> values) {
    Bytes bytes;
    for (const Bytes& value : values)
        bytes.insert(bytes.end(), value.begin(), value.end());
    return bytes;
}

Bytes cut(const Bytes& bytes, size_t length) {
    return Bytes(bytes.begin(), bytes.begin() + static_cast<Bytes::difference_type>(length));
}

Bytes bytesOf(const android::Parcel& parcel) {
    return Bytes(parcel.data(), parcel.data() + parcel.dataSize());
}

void fill(android::Parcel* parcel, const Bytes& bytes) {
    parcel->freeData();
    if (bytes.empty()) return;
    ASSERT_EQ(parcel->setData(bytes.data(), bytes.size()), android::NO_ERROR);
    parcel->setDataPosition(0);
}

}  // namespace accessory::test
