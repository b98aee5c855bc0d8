// The memory of a parcel: its size, position and capacity, and how it grows.
#include <binder/Parcel.h>

#include <algorithm>
#include <cstring>

#include "BufferCache.h"
#include "ParcelAccess.h"
#include "ParcelLayout.h"

namespace android {

using runtime::kMaxParcelSize;

Parcel::Parcel() = default;

Parcel::~Parcel() { freeData(); }

void Parcel::freeData() {
    mObjects.clear();
    runtime::releaseBlock(mData, mDataCapacity);
    mError = NO_ERROR;
    mData = nullptr;
    mDataSize = mDataCapacity = mDataPos = 0;
}

size_t Parcel::dataAvail() const { return mDataSize > mDataPos ? mDataSize - mDataPos : 0; }

void Parcel::setDataPosition(size_t pos) const { mDataPos = pos; }

status_t Parcel::setDataSize(size_t size) {
    const status_t status = setDataCapacity(size);
    if (status != NO_ERROR) return status;
    if (size > mDataSize) {
        std::memset(mData + mDataSize, 0, size - mDataSize);
    } else {
        dropObjects(size, mDataSize);
    }
    mDataSize = size;
    mDataPos = std::min(mDataPos, size);
    return NO_ERROR;
}

status_t Parcel::setDataCapacity(size_t size) {
    if (size > kMaxParcelSize) return BAD_VALUE;
    return size > mDataCapacity ? reallocate(size) : NO_ERROR;
}

// The copy is made before the old content goes, which may be what is being copied.
status_t Parcel::setData(const uint8_t* buffer, size_t len) {
    if (len > kMaxParcelSize || (buffer == nullptr && len > 0)) return BAD_VALUE;
    size_t capacity = 0;
    uint8_t* const block = runtime::acquireBlock(len, &capacity);
    if (block == nullptr) return mError = NO_MEMORY;
    if (len > 0) std::memcpy(block, buffer, len);
    runtime::ParcelAccess::adopt(*this, block, len, capacity);
    return NO_ERROR;
}

/// Makes room for @p more bytes at the position.
status_t Parcel::grow(size_t more) {
    if (mError != NO_ERROR) return mError;
    if (more > kMaxParcelSize || mDataPos > kMaxParcelSize - more) return mError = NO_MEMORY;
    const size_t end = mDataPos + more;
    if (mData != nullptr && end <= mDataCapacity) return NO_ERROR;
    return reallocate(std::min(end + end / 2, kMaxParcelSize));
}

status_t Parcel::reallocate(size_t capacity) {
    size_t actual = 0;
    uint8_t* const block = runtime::acquireBlock(capacity, &actual);
    if (block == nullptr) return mError = NO_MEMORY;
    if (mDataSize > 0) std::memcpy(block, mData, mDataSize);
    runtime::releaseBlock(mData, mDataCapacity);
    mData = block;
    mDataCapacity = actual;
    return NO_ERROR;
}

}  // namespace android
