// The list of the objects in a parcel's data, sorted by their offsets.
#include <binder/IBinder.h>
#include <binder/Parcel.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "ParcelLayout.h"

namespace android {

using runtime::kFlatSize;

Parcel::Object::Object(Object&& other) noexcept
    : offset(other.offset),
      binder(std::move(other.binder)),
      fd(std::exchange(other.fd, -1)),
      ownsFd(std::exchange(other.ownsFd, false)) {}

Parcel::Object& Parcel::Object::operator=(Object&& other) noexcept {
    std::swap(offset, other.offset);
    std::swap(binder, other.binder);
    std::swap(fd, other.fd);
    std::swap(ownsFd, other.ownsFd);
    return *this;
}

Parcel::Object::~Object() {
    if (ownsFd) ::close(fd);
}

flat_binder_object Parcel::Object::picture() const {
    return binder != nullptr ? runtime::flattenBinder(binder) : runtime::flattenDescriptor(fd, ownsFd);
}

/// Room for @p more, so that listing them cannot fail any more.
status_t Parcel::reserveObjects(std::vector<Object>* objects, size_t more) {
    const size_t count = objects->size() + more;
    if (count <= objects->capacity()) return NO_ERROR;
    try {
        objects->reserve(std::max(count, 2 * objects->capacity()));
        return NO_ERROR;
    } catch (const std::bad_alloc&) {
        return NO_MEMORY;
    }
}

/// Enters @p object, for which there is room, and paints its picture at its offset.
void Parcel::listObject(Object&& object) {
    const flat_binder_object picture = object.picture();
    std::memcpy(mData + object.offset, &picture, kFlatSize);
    const auto at = static_cast<std::ptrdiff_t>(firstObjectEndingAfter(object.offset));
    mObjects.insert(mObjects.begin() + at, std::move(object));
}

/// The index of the first object of which a part lies behind @p pos. Starts where the last search ended,
/// for objects are read in their order.
size_t Parcel::firstObjectEndingAfter(size_t pos) const {
    const auto endsBefore = [pos](const Object& object) { return object.offset + kFlatSize <= pos; };
    const size_t count = mObjects.size();
    size_t index = std::min(mObjectHint, count);
    if (index < count && endsBefore(mObjects[index])) ++index;
    const bool here =
        (index == 0 || endsBefore(mObjects[index - 1])) && (index == count || !endsBefore(mObjects[index]));
    if (!here) {
        const auto found = std::partition_point(mObjects.begin(), mObjects.end(), endsBefore);
        index = static_cast<size_t>(found - mObjects.begin());
    }
    return mObjectHint = index;
}

bool Parcel::overlapsObject(size_t begin, size_t end) const {
    const size_t index = firstObjectEndingAfter(begin);
    return index < mObjects.size() && mObjects[index].offset < end;
}

/// Lets go of every object of which a part lies between the two.
void Parcel::dropObjects(size_t begin, size_t end) {
    if (!overlapsObject(begin, end)) return;
    const auto first = mObjects.begin() + static_cast<std::ptrdiff_t>(firstObjectEndingAfter(begin));
    const auto behind = [end](const Object& object) { return object.offset >= end; };
    mObjects.erase(first, std::find_if(first, mObjects.end(), behind));
}

const Parcel::Object* Parcel::objectHere() const {
    const size_t index = firstObjectEndingAfter(mDataPos);
    const bool here = index < mObjects.size() && mObjects[index].offset == mDataPos;
    return here ? &mObjects[index] : nullptr;
}

}  // namespace android
