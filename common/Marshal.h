// Writing and reading the values of a transaction, with every failed step reported as the interface wants it.
#pragma once

#include <binder/IBinder.h>
#include <binder/Parcel.h>
#include <utils/String8.h>

#include <cstddef>
#include <cstdint>

#include "common/Check.h"

namespace accessory::wire {

/// Which failed marshaling steps an interface reports.
enum class Reports {
    kNamedSteps,  ///< those for which there is a text, in the condition form
    kEveryStep,   ///< all, in the return-value form
};

/// Appends @p value with its NUL. @return BAD_VALUE for null, which not every platform's parcel withstands.
inline android::status_t appendCString(android::Parcel& parcel, const char* value) {
    if (value == nullptr) return android::BAD_VALUE;
    return parcel.writeCString(value);
}

/// Appends @p count values as they lie in memory.
/// @return BAD_VALUE for null with a count, and for more bytes than can be counted.
template <typename T>
android::status_t appendArray(android::Parcel& parcel, const T* values, size_t count) {
    if (count == 0) return parcel.write(values, 0);
    if (values == nullptr || count > SIZE_MAX / sizeof(T)) return android::BAD_VALUE;
    return parcel.write(values, count * sizeof(T));
}

/// What is true of all transactions of an interface.
struct Manners {
    const Unit& unit;
    Reports reports;
    bool replyHasHeader;  ///< the reply begins with an exception header
};

/// Reports the steps of one function. Borrows all it is given.
class Steps {
  public:
    Steps(const Manners& manners, const char* function) : mManners(manners), mFunction(function) {}

    /// @param check the text of the step, for an interface that reports only named ones; null for none.
    void step(android::status_t status, const char* check = nullptr) const {
        if (mManners.reports == Reports::kEveryStep) {
            succeeded(site(), status);
        } else if (check != nullptr) {
            holds(site(), status == android::NO_ERROR, check);
        }
    }

    Site site() const { return {mManners.unit, mFunction, __LINE__}; }

  private:
    const Manners& mManners;
    const char* const mFunction;
};

/// Fills a parcel. A step that fails is reported and the next one is done all the same.
class Writer : public Steps {
  public:
    Writer(const Manners& manners, const char* function, android::Parcel& parcel)
        : Steps(manners, function), mParcel(parcel) {}

    void i32(int32_t value) { step(mParcel.writeInt32(value)); }
    void i64(int64_t value) { step(mParcel.writeInt64(value)); }
    void string8(const android::String8& value, const char* check) {
        step(mParcel.writeString8(value), check);
    }
    /// A null string is a failed step that writes nothing.
    void cstr(const char* value) { step(appendCString(mParcel, value)); }
    /// A presence word, and the string when there is one.
    void optionalCstr(const char* value) {
        i32(value != nullptr ? 1 : 0);
        if (value != nullptr) cstr(value);
    }
    /// Values as they lie in memory. Null with a count, or a count beyond all parcels, is a failed step.
    template <typename T>
    void array(const T* values, size_t count) {
        step(appendArray(mParcel, values, count));
    }
    /// Bytes, as array().
    void raw(const void* bytes, size_t length) { array(static_cast<const uint8_t*>(bytes), length); }
    /// @param check as for step().
    void binder(const android::sp<android::IBinder>& value, const char* check) {
        step(mParcel.writeStrongBinder(value), check);
    }

    android::Parcel& parcel() { return mParcel; }

  private:
    android::Parcel& mParcel;
};

/// Takes a parcel apart. What is not there reads as 0, or null.
class Reader : public Steps {
  public:
    Reader(const Manners& manners, const char* function, const android::Parcel& parcel)
        : Steps(manners, function), mParcel(parcel) {}

    int32_t i32() { return mParcel.readInt32(); }
    int64_t i64() { return mParcel.readInt64(); }
    bool flag() { return mParcel.readInt32() != 0; }
    android::String8 string8() { return mParcel.readString8(); }
    /// Points into the parcel.
    const char* cstr() { return mParcel.readCString(); }
    /// A string that follows its presence word, or null.
    const char* optionalCstr() { return flag() ? cstr() : nullptr; }
    /// Bytes that are not all there are a failed step that leaves @p bytes as they were.
    void raw(void* bytes, size_t length) { step(mParcel.read(bytes, length)); }
    /// Points into the parcel; null, and nothing is read, when the bytes are not all there.
    const void* bytes(size_t length) { return mParcel.readInplace(length); }
    android::sp<android::IBinder> binder() { return mParcel.readStrongBinder(); }

    const android::Parcel& parcel() { return mParcel; }

  private:
    const android::Parcel& mParcel;
};

}  // namespace accessory::wire
