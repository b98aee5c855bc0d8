// Writing and reading binders and descriptors. The list of objects is what counts; the pictures in the data
// are there for the platform's layout and are never believed.
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

status_t Parcel::writeObject(Object&& object) {
    object.offset = mDataPos;
    const status_t status = reserveObjects(&mObjects, 1);
    if (status != NO_ERROR) return mError = status;
    if (writeInplace(kFlatSize) == nullptr) return mError;
    listObject(std::move(object));
    return NO_ERROR;
}

bool Parcel::isNullBinderHere() const {
    if (checkRead(kFlatSize) != NO_ERROR) return false;
    flat_binder_object flat{};
    std::memcpy(&flat, mData + mDataPos, kFlatSize);
    return flat.type == runtime::kTypeBinder && flat.handle == 0 && flat.cookie == 0;
}

bool Parcel::hasFileDescriptors() const {
    return std::any_of(mObjects.begin(), mObjects.end(),
                       [](const Object& object) { return object.binder == nullptr; });
}

// A null binder is not an object: its picture alone says everything.
status_t Parcel::writeStrongBinder(const sp<IBinder>& val) {
    if (val == nullptr) {
        const flat_binder_object nothing = runtime::flattenBinder(nullptr);
        return write(&nothing, kFlatSize);
    }
    Object object;
    object.binder = val;
    return writeObject(std::move(object));
}

status_t Parcel::readNullableStrongBinder(sp<IBinder>* val) const {
    *val = nullptr;
    const Object* const object = objectHere();
    const bool isBinder = object != nullptr ? object->binder != nullptr : isNullBinderHere();
    if (!isBinder) return BAD_TYPE;
    if (object != nullptr) *val = object->binder;
    mDataPos += kFlatSize;
    return NO_ERROR;
}

status_t Parcel::readStrongBinder(sp<IBinder>* val) const {
    const status_t status = readNullableStrongBinder(val);
    return status == NO_ERROR && *val == nullptr ? static_cast<status_t>(UNEXPECTED_NULL) : status;
}

sp<IBinder> Parcel::readStrongBinder() const {
    sp<IBinder> val;
    readNullableStrongBinder(&val);
    return val;
}

status_t Parcel::writeFileDescriptor(int fd, bool takeOwnership) {
    if (fd < 0) return BAD_VALUE;
    Object object;
    object.fd = fd;
    object.ownsFd = takeOwnership;
    return writeObject(std::move(object));
}

status_t Parcel::writeDupFileDescriptor(int fd) {
    const int duplicate = ::fcntl(fd, F_DUPFD_CLOEXEC, 0);
    return duplicate >= 0 ? writeFileDescriptor(duplicate, true) : -errno;
}

// A descriptor that was lost on the way is passed over, so that what follows it can be read.
int Parcel::readFileDescriptor() const {
    const Object* const object = objectHere();
    if (object == nullptr || object->binder != nullptr) return BAD_TYPE;
    mDataPos += kFlatSize;
    return object->fd >= 0 ? object->fd : static_cast<int>(BAD_TYPE);
}

}  // namespace android
