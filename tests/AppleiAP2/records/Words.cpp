#include "tests/AppleiAP2/records/Words.h"

#include <cstring>
#include <iomanip>
#include <ostream>

namespace accessory::test {

Words& Words::i32(int64_t value) {
    const auto word = static_cast<uint32_t>(value);
    append(&word, sizeof(word));
    return *this;
}

Words& Words::i64(uint64_t value) {
    append(&value, sizeof(value));
    return *this;
}

Words& Words::cstr(const char* value) {
    append(value, std::strlen(value) + 1);
    pad();
    return *this;
}

Words& Words::halves(std::initializer_list<int> values) {
    for (const int value : values) {
        const auto half = static_cast<uint16_t>(value);
        append(&half, sizeof(half));
    }
    pad();
    return *this;
}

Words& Words::operator+=(const Words& more) {
    append(more.mBytes.data(), more.mBytes.size());
    return *this;
}

void Words::putInto(android::Parcel& parcel, size_t size) const {
    parcel.setData(mBytes.data(), size);
    parcel.setDataPosition(0);
}

void Words::append(const void* data, size_t size) {
    const auto* bytes = static_cast<const uint8_t*>(data);
    mBytes.insert(mBytes.end(), bytes, bytes + size);
}

void Words::pad() {
    while (mBytes.size() % 4 != 0)
        mBytes.push_back(0);
}

Words wordsOf(const android::Parcel& parcel) {
    Words words;
    for (size_t at = 0; at < parcel.dataSize(); at += 4) {
        uint32_t word = 0;
        std::memcpy(&word, parcel.data() + at, sizeof(word));
        words.i32(word);
    }
    return words;
}

void PrintTo(const Words& words, std::ostream* out) {
    for (size_t at = 0; at + 4 <= words.size(); at += 4) {
        uint32_t word = 0;
        std::memcpy(&word, words.bytes().data() + at, sizeof(word));
        *out << (at == 0 ? "" : " ") << "0x" << std::hex << std::setw(8) << std::setfill('0') << word;
    }
    *out << std::dec << " (" << words.size() << " bytes)";
}

}  // namespace accessory::test
