// The bytes of a parcel, put together value by value without a Parcel.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace android {
class Parcel;
}

namespace accessory::test {

using Bytes = std::vector<uint8_t>;

/// @param value an int32 or a uint32; little endian, as on the machines this runs on.
Bytes i32(int64_t value);

/// The length, then the bytes and a NUL unless it is 0, filled up with zeros to a multiple of four.
Bytes string8(std::string_view text);

/// The length in units, then the units and a NUL, filled up likewise.
Bytes string16(std::u16string_view text);

/// What every request begins with: strict-mode policy, work source, the interface's name.
Bytes token(std::u16string_view descriptor = u"accessory.AccessoryManager");

/// One value after the other.
Bytes parcel(std::initializer_list<Bytes> values);

/// The first @p length of @p bytes.
Bytes cut(const Bytes& bytes, size_t length);

/// All bytes of @p parcel, wherever it stands.
Bytes bytesOf(const android::Parcel& parcel);

/// Makes @p parcel hold @p bytes and stand at the first.
void fill(android::Parcel* parcel, const Bytes& bytes);

}  // namespace accessory::test
