// The transport's way into a parcel: what it sends besides the bytes, and how it fills a received one.
#pragma once

#include <binder/Parcel.h>

namespace android::runtime {

class ParcelAccess {
  public:
    using Object = Parcel::Object;

    /// The bytes that are there; dataSize() also counts a position that was set past the end.
    static size_t size(const Parcel& parcel) { return parcel.mDataSize; }

    /// In ascending order of their offsets.
    static const std::vector<Object>& objects(const Parcel& parcel) { return parcel.mObjects; }

    /// Makes @p block, from acquireBlock(), the content of @p parcel, which owns it from here on.
    static void adopt(Parcel& parcel, uint8_t* block, size_t size, size_t capacity);

    /// Declares that a binder (null allowed) lies at @p offset and repaints its picture there. Offsets come
    /// in ascending order, lie wholly within the data and do not overlap; the caller has checked that.
    static void addBinder(Parcel& parcel, size_t offset, const sp<IBinder>& binder);
    /// The same for a descriptor, which the parcel owns from here on; -1 for one that was lost on the way.
    static void addDescriptor(Parcel& parcel, size_t offset, int fd);

  private:
    static void add(Parcel& parcel, Object&& object);
};

}  // namespace android::runtime
