// Writing plain values and strings.
#include <binder/Parcel.h>

#include <algorithm>
#include <cstring>

#include "ParcelLayout.h"

namespace android {

using runtime::kCellSize;
using runtime::kMaxParcelSize;
using runtime::padded;

/// Whether the next @p len bytes are there to be written, as most are: no growing, no gap, no objects.
bool Parcel::fits(size_t len) const {
    return mData != nullptr && mError == NO_ERROR && mObjects.empty() && mDataPos <= mDataSize &&
           len <= mDataCapacity - mDataPos;
}

/// Makes what fits() asks for, as far as it can be made.
status_t Parcel::prepare(size_t len) {
    const status_t status = grow(len);
    if (status != NO_ERROR) return status;
    if (mDataPos > mDataSize) std::memset(mData + mDataSize, 0, mDataPos - mDataSize);
    if (!mObjects.empty()) dropObjects(mDataPos, mDataPos + len);
    return NO_ERROR;
}

/// Takes the next @p len bytes as written; null when there is no room for them.
uint8_t* Parcel::claim(size_t len) {
    if (!fits(len) && prepare(len) != NO_ERROR) return nullptr;
    uint8_t* const place = mData + mDataPos;
    mDataPos += len;
    mDataSize = std::max(mDataSize, mDataPos);
    return place;
}

void* Parcel::writeInplace(size_t len) {
    if (len > kMaxParcelSize) return nullptr;
    const size_t taken = padded(len);
    uint8_t* const place = claim(taken);
    // The last cell as a whole is quicker than one to three bytes of it.
    if (place != nullptr && len < taken) std::memset(place + taken - kCellSize, 0, kCellSize);
    return place;
}

status_t Parcel::write(const void* data, size_t len) {
    if (len > kMaxParcelSize || (data == nullptr && len > 0)) return BAD_VALUE;
    if (len == 0) return mError;
    void* const place = writeInplace(len);
    if (place == nullptr) return mError;
    std::memcpy(place, data, len);
    return NO_ERROR;
}

template <typename T>
status_t Parcel::writeAligned(T val) {
    static_assert(padded(sizeof val) == sizeof val, "values take whole cells");
    uint8_t* const place = claim(sizeof val);
    if (place == nullptr) return mError;
    std::memcpy(place, &val, sizeof val);
    return NO_ERROR;
}

status_t Parcel::writeInt32(int32_t val) { return writeAligned(val); }
status_t Parcel::writeUint32(uint32_t val) { return writeAligned(val); }
status_t Parcel::writeInt64(int64_t val) { return writeAligned(val); }
status_t Parcel::writeUint64(uint64_t val) { return writeAligned(val); }
status_t Parcel::writeFloat(float val) { return writeAligned(val); }
status_t Parcel::writeDouble(double val) { return writeAligned(val); }
status_t Parcel::writeBool(bool val) { return writeInt32(val ? 1 : 0); }
status_t Parcel::writeByte(int8_t val) { return writeInt32(val); }
status_t Parcel::writeChar(char16_t val) { return writeInt32(val); }

status_t Parcel::writeCString(const char* str) {
    return str != nullptr ? write(str, std::strlen(str) + 1) : static_cast<status_t>(BAD_VALUE);
}

status_t Parcel::writeString8(const String8& str) {
    const size_t len = str.bytes();
    const status_t status = writeInt32(static_cast<int32_t>(len));
    if (status != NO_ERROR || len == 0) return status;
    return write(str.string(), len + 1);
}

status_t Parcel::writeString16(const String16& str) { return writeString16(str.string(), str.size()); }

status_t Parcel::writeString16(const char16_t* str, size_t len) {
    if (str == nullptr) return writeInt32(-1);
    if (len >= kMaxParcelSize / sizeof *str) return BAD_VALUE;
    const status_t status = writeInt32(static_cast<int32_t>(len));
    if (status != NO_ERROR) return status;
    const size_t bytes = len * sizeof *str;
    auto* const place = static_cast<uint8_t*>(writeInplace(bytes + sizeof *str));
    if (place == nullptr) return mError;
    std::memcpy(place, str, bytes);
    std::memset(place + bytes, 0, sizeof *str);
    return NO_ERROR;
}

status_t Parcel::writeByteArray(size_t len, const uint8_t* val) {
    if (val == nullptr) return writeInt32(-1);
    if (len > kMaxParcelSize) return BAD_VALUE;
    const status_t status = writeInt32(static_cast<int32_t>(len));
    return status == NO_ERROR ? write(val, len) : status;
}

status_t Parcel::writeInt32Array(size_t len, const int32_t* val) {
    if (val == nullptr) return writeInt32(-1);
    if (len > kMaxParcelSize / sizeof *val) return BAD_VALUE;
    const status_t status = writeInt32(static_cast<int32_t>(len));
    return status == NO_ERROR ? write(val, len * sizeof *val) : status;
}

}  // namespace android
