// Reading plain values that are not whole words; those are read in the header.
#include <binder/Parcel.h>

#include <cstring>

#include "ParcelLayout.h"

namespace android {

using runtime::kMaxParcelSize;
using runtime::padded;

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
