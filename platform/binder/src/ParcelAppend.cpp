// Appending a part of one parcel to another, or to itself.
#include <binder/IBinder.h>
#include <binder/Parcel.h>
#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "ParcelLayout.h"

namespace android {

using runtime::kFlatSize;

/// Becomes a second reference to what @p other refers to, with a descriptor of its own.
status_t Parcel::Object::duplicate(const Object& other) {
    offset = other.offset;
    binder = other.binder;
    if (other.fd < 0) return NO_ERROR;
    fd = ::fcntl(other.fd, F_DUPFD_CLOEXEC, 0);
    ownsFd = fd >= 0;
    return ownsFd ? NO_ERROR : -errno;
}

/// Appends duplicates of the objects that lie wholly between the two to @p copies.
status_t Parcel::copyObjects(size_t begin, size_t end, std::vector<Object>* copies) const {
    const auto within = [=](const Object& object) {
        return object.offset >= begin && object.offset + kFlatSize <= end;
    };
    const auto count = std::count_if(mObjects.begin(), mObjects.end(), within);
    status_t status = reserveObjects(copies, static_cast<size_t>(count));
    for (auto object = mObjects.begin(); object != mObjects.end() && status == NO_ERROR; ++object) {
        if (!within(*object)) continue;
        copies->emplace_back();
        status = copies->back().duplicate(*object);
    }
    return status;
}

status_t Parcel::appendFrom(const Parcel* parcel, size_t start, size_t len) {
    if (start > parcel->mDataSize || len > parcel->mDataSize - start) return BAD_VALUE;
    if (len == 0) return mError;
    std::vector<Object> copies;
    status_t status = parcel->copyObjects(start, start + len, &copies);
    if (status == NO_ERROR) status = reserveObjects(&mObjects, copies.size());
    if (status != NO_ERROR) return mError = status;
    const size_t target = mDataPos;
    uint8_t* const place = claim(len);
    if (place == nullptr) return mError;
    // From here on nothing fails. When the source is this parcel, claim() may have moved its data.
    std::memmove(place, parcel->mData + start, len);
    for (Object& copy : copies) {
        copy.offset = copy.offset - start + target;
        listObject(std::move(copy));
    }
    return NO_ERROR;
}

}  // namespace android
