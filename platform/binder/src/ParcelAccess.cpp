#include "ParcelAccess.h"

#include <binder/IBinder.h>

#include <cstring>
#include <utility>

#include "FlatObject.h"

namespace android::runtime {

void ParcelAccess::adopt(Parcel& parcel, uint8_t* block, size_t size, size_t capacity) {
    parcel.freeData();
    parcel.mData = block;
    parcel.mDataSize = size;
    parcel.mDataCapacity = capacity;
}

// Without room in the list the object is dropped, and what lies in the data is not taken for one.
void ParcelAccess::add(Parcel& parcel, Object&& object) {
    if (Parcel::reserveObjects(&parcel.mObjects, 1) == NO_ERROR) parcel.listObject(std::move(object));
}

void ParcelAccess::addBinder(Parcel& parcel, size_t offset, const sp<IBinder>& binder) {
    if (binder == nullptr) {
        const flat_binder_object nothing = flattenBinder(nullptr);
        std::memcpy(parcel.mData + offset, &nothing, sizeof nothing);
        return;
    }
    Object object;
    object.offset = offset;
    object.binder = binder;
    add(parcel, std::move(object));
}

void ParcelAccess::addDescriptor(Parcel& parcel, size_t offset, int fd) {
    Object object;
    object.offset = offset;
    object.fd = fd;
    object.ownsFd = fd >= 0;
    add(parcel, std::move(object));
}

}  // namespace android::runtime
