// Reading plain values. Memory is copied rather than cast, for a position need not be aligned.
#include <binder/Parcel.h>

#include <cstring>

#include "ParcelLayout.h"

namespace android {

using runtime::kMaxParcelSize;
using runtime::padded;

/// Whether the next @p len bytes can be read as plain data. An object's picture cannot: it would show
/// addresses, or be taken for the object.
status_t Parcel::checkRead(size_t len) const {
    if (mDataPos > mDataSize || len > mDataSize - mDataPos) return NOT_ENOUGH_DATA;
    if (mObjects.empty()) return NO_ERROR;
    return overlapsObject(mDataPos, mDataPos + len) ? PERMISSION_DENIED : NO_ERROR;
}

status_t Parcel::read(void* outData, size_t len) const {
    if (len > kMaxParcelSize) return BAD_VALUE;
    const status_t status = checkRead(padded(len));
    if (status != NO_ERROR || len == 0) return status;
    std::memcpy(outData, mData + mDataPos, len);
    mDataPos += padded(len);
    return NO_ERROR;
}

const void* Parcel::readInplace(size_t len) const {
    if (len > kMaxParcelSize || checkRead(padded(len)) != NO_ERROR) return nullptr;
    const uint8_t* const place = mData + mDataPos;
    mDataPos += padded(len);
    return place;
}

template <typename T>
status_t Parcel::readAligned(T* pArg) const {
    static_assert(padded(sizeof *pArg) == sizeof *pArg, "values take whole cells");
    const status_t status = checkRead(sizeof *pArg);
    if (status != NO_ERROR) return status;
    std::memcpy(pArg, mData + mDataPos, sizeof *pArg);
    mDataPos += sizeof *pArg;
    return NO_ERROR;
}

template <typename T>
T Parcel::readAligned() const {
    T val{};
    readAligned(&val);
    return val;
}

int32_t Parcel::readInt32() const { return readAligned<int32_t>(); }
status_t Parcel::readInt32(int32_t* pArg) const { return readAligned(pArg); }
uint32_t Parcel::readUint32() const { return readAligned<uint32_t>(); }
status_t Parcel::readUint32(uint32_t* pArg) const { return readAligned(pArg); }
int64_t Parcel::readInt64() const { return readAligned<int64_t>(); }
status_t Parcel::readInt64(int64_t* pArg) const { return readAligned(pArg); }
uint64_t Parcel::readUint64() const { return readAligned<uint64_t>(); }
status_t Parcel::readUint64(uint64_t* pArg) const { return readAligned(pArg); }
float Parcel::readFloat() const { return readAligned<float>(); }
status_t Parcel::readFloat(float* pArg) const { return readAligned(pArg); }
double Parcel::readDouble() const { return readAligned<double>(); }
status_t Parcel::readDouble(double* pArg) const { return readAligned(pArg); }
bool Parcel::readBool() const { return readInt32() != 0; }
int8_t Parcel::readByte() const { return static_cast<int8_t>(readInt32()); }
char16_t Parcel::readChar() const { return static_cast<char16_t>(readInt32()); }

status_t Parcel::readBool(bool* pArg) const {
    int32_t val = 0;
    const status_t status = readInt32(&val);
    *pArg = val != 0;
    return status;
}

status_t Parcel::readByte(int8_t* pArg) const {
    int32_t val = 0;
    const status_t status = readInt32(&val);
    *pArg = static_cast<int8_t>(val);
    return status;
}

status_t Parcel::readChar(char16_t* pArg) const {
    int32_t val = 0;
    const status_t status = readInt32(&val);
    *pArg = static_cast<char16_t>(val);
    return status;
}

}  // namespace android
