// Reading strings. What was received is not trusted: a string has its length, its characters and its NUL, or
// it is broken.
#include <binder/Parcel.h>

#include <algorithm>
#include <cstring>

#include "ParcelLayout.h"

namespace android {

using runtime::padded;

const char* Parcel::readCString() const {
    const size_t avail = dataAvail();
    if (avail == 0) return nullptr;
    const auto* const str = reinterpret_cast<const char*>(mData + mDataPos);
    const auto* const nul = static_cast<const char*>(std::memchr(str, 0, avail));
    if (nul == nullptr) return nullptr;
    // Data that was cut may lack the padding.
    const size_t taken = std::min(padded(static_cast<size_t>(nul - str) + 1), avail);
    if (checkRead(taken) != NO_ERROR) return nullptr;
    mDataPos += taken;
    return str;
}

String8 Parcel::readString8() const {
    String8 str;
    readString8(&str);
    return str;
}

status_t Parcel::readString8(String8* pArg) const {
    *pArg = String8();
    int32_t len = 0;
    const status_t status = readInt32(&len);
    if (status != NO_ERROR || len == 0) return status;
    if (len < 0 || len == INT32_MAX) return BAD_VALUE;
    const auto* const str = static_cast<const char*>(readInplace(static_cast<size_t>(len) + 1));
    if (str == nullptr || str[len] != '\0') return BAD_VALUE;
    return pArg->setTo(str, static_cast<size_t>(len));
}

String16 Parcel::readString16() const {
    String16 str;
    readString16(&str);
    return str;
}

status_t Parcel::readString16(String16* pArg) const {
    size_t len = 0;
    const char16_t* const str = readString16Inplace(&len);
    if (str != nullptr) return pArg->setTo(str, len);
    *pArg = String16();
    return UNEXPECTED_NULL;
}

const char16_t* Parcel::readString16Inplace(size_t* outLen) const {
    *outLen = 0;
    const int32_t len = readInt32();
    if (len < 0 || len == INT32_MAX) return nullptr;
    constexpr size_t kUnit = sizeof(char16_t);
    const size_t bytes = static_cast<size_t>(len) * kUnit;
    const auto* const str = static_cast<const uint8_t*>(readInplace(bytes + kUnit));
    if (str == nullptr || str[bytes] != 0 || str[bytes + 1] != 0) return nullptr;
    *outLen = static_cast<size_t>(len);
    return reinterpret_cast<const char16_t*>(str);
}

}  // namespace android
