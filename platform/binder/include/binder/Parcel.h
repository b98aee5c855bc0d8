// Parcel: the bytes, objects and descriptors of one request or one reply.
#pragma once

#include <utils/Errors.h>
#include <utils/RefBase.h>
#include <utils/String16.h>
#include <utils/String8.h>
#include <utils/Vector.h>

#include <binder/IInterface.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

struct flat_binder_object;

namespace android {

class IBinder;
class IPCThreadState;
namespace runtime {
class ParcelAccess;
}

/// A growing row of 4-byte cells. Values are written one after the other and read back in the same order;
/// every value takes a multiple of four bytes, filled up with zeros.
///
/// Reading past the end gives 0, null or an empty string, a status where the call returns one, and leaves
/// the position where it was. Pointers that a read returns are borrowed: they live as long as the parcel
/// and its content. One thread at a time.
class BINDER_EXPORT Parcel {
  public:
    Parcel();
    ~Parcel();
    Parcel(const Parcel&) = delete;
    Parcel& operator=(const Parcel&) = delete;

    const uint8_t* data() const { return mData; }  ///< borrowed until the next change of the parcel
    /// Bytes in all; no less than the position.
    size_t dataSize() const { return mDataSize > mDataPos ? mDataSize : mDataPos; }
    /// Bytes between the position and the end.
    size_t dataAvail() const;
    size_t dataPosition() const { return mDataPos; }       ///< in bytes from the beginning
    size_t dataCapacity() const { return mDataCapacity; }  ///< bytes that there is memory for

    /// Cuts or extends; what is added is zero. An object that is cut is dropped as a whole.
    status_t setDataSize(size_t size);
    /// A position past the end is kept: reads fail there, a write fills the gap with zeros.
    void setDataPosition(size_t pos) const;
    /// Makes room for @p size bytes in all; never gives memory back.
    status_t setDataCapacity(size_t size);
    /// Replaces the content with a copy of @p len plain bytes.
    status_t setData(const uint8_t* buffer, size_t len);
    /// Appends @p len bytes of @p parcel from @p start, with the objects that lie wholly within.
    status_t appendFrom(const Parcel* parcel, size_t start, size_t len);

    bool hasFileDescriptors() const;                         ///< whether there is any in it
    size_t objectsCount() const { return mObjects.size(); }  ///< binders and descriptors, null binders not

    /// Empties the parcel and lets go of everything in it.
    void freeData();

    /// Set once a write ran out of memory or descriptors, or would have made the parcel larger than INT32_MAX
    /// bytes; later writes return it too. An argument that was refused is not remembered.
    status_t errorCheck() const { return mError; }
    void setError(status_t error) { mError = error; }  ///< what errorCheck() gives from now on

    /// The header of a request: strict-mode policy, work source, the interface's name.
    status_t writeInterfaceToken(const String16& interface);
    /// Reads that header. @return whether it names @p interface.
    bool enforceInterface(const String16& interface, IPCThreadState* threadState = nullptr) const;
    /// As enforceInterface() for the interface of @p binder.
    bool checkInterface(IBinder* binder) const;

    /// Appends @p len bytes as they lie in memory. @return BAD_VALUE for null with a length, or when no
    /// parcel could hold so many.
    status_t write(const void* data, size_t len);
    /// Room for @p len bytes to be filled by the caller before the next use of the parcel; null on failure.
    void* writeInplace(size_t len);

    /// @name Writing numbers
    /// @{

    /// Appends the value, widened to four or eight bytes. @return NO_ERROR, or as errorCheck().
    status_t writeInt32(int32_t val);
    status_t writeUint32(uint32_t val);
    status_t writeInt64(int64_t val);
    status_t writeUint64(uint64_t val);
    status_t writeFloat(float val);
    status_t writeDouble(double val);
    status_t writeBool(bool val);
    status_t writeByte(int8_t val);
    status_t writeChar(char16_t val);

    /// @}

    /// The characters and their NUL. A null @p str gives BAD_VALUE.
    status_t writeCString(const char* str);
    /// The length as int32, then the characters and their NUL unless it is 0.
    status_t writeString8(const String8& str);
    /// @name Writing UTF-16
    /// @{

    /// The length in UTF-16 units as int32, then the units and their NUL; -1 alone for a null @p str.
    status_t writeString16(const String16& str);
    status_t writeString16(const char16_t* str, size_t len);

    /// @}

    /// @name Writing arrays
    /// @{

    /// The count as int32, then the elements; -1 alone for null.
    status_t writeByteArray(size_t len, const uint8_t* val);
    status_t writeInt32Array(size_t len, const int32_t* val);

    /// @}

    /// Keeps a strong reference until the parcel is emptied. @p val may be null.
    status_t writeStrongBinder(const sp<IBinder>& val);
    /// @p fd must stay open as long as the parcel, which closes it when @p takeOwnership.
    status_t writeFileDescriptor(int fd, bool takeOwnership = false);
    /// Writes a duplicate of @p fd that the parcel owns.
    status_t writeDupFileDescriptor(int fd);
    /// The int32 0 that readExceptionCode() expects.
    status_t writeNoException();

    /// Copies @p len bytes out. @return NOT_ENOUGH_DATA when there are fewer, PERMISSION_DENIED when an
    /// object lies among them.
    status_t read(void* outData, size_t len) const;
    /// As read(), without a copy: borrowed, null when they cannot be read.
    const void* readInplace(size_t len) const;

    /// @name Reading numbers
    /// @{

    /// The next value, cut to its width; 0 when there is none. @return the value, or a status as read()
    /// gives.
    int32_t readInt32() const { return readWord<int32_t>(); }
    status_t readInt32(int32_t* pArg) const { return readWord(pArg); }
    uint32_t readUint32() const { return readWord<uint32_t>(); }
    status_t readUint32(uint32_t* pArg) const { return readWord(pArg); }
    int64_t readInt64() const { return readWord<int64_t>(); }
    status_t readInt64(int64_t* pArg) const { return readWord(pArg); }
    uint64_t readUint64() const { return readWord<uint64_t>(); }
    status_t readUint64(uint64_t* pArg) const { return readWord(pArg); }
    float readFloat() const { return readWord<float>(); }
    status_t readFloat(float* pArg) const { return readWord(pArg); }
    double readDouble() const { return readWord<double>(); }
    status_t readDouble(double* pArg) const { return readWord(pArg); }
    bool readBool() const { return readInt32() != 0; }
    status_t readBool(bool* pArg) const;
    int8_t readByte() const { return static_cast<int8_t>(readInt32()); }
    status_t readByte(int8_t* pArg) const;
    char16_t readChar() const { return static_cast<char16_t>(readInt32()); }
    status_t readChar(char16_t* pArg) const;

    /// @}

    /// Borrowed; null when no NUL follows.
    const char* readCString() const;

    /// @name Reading strings
    /// @{

    /// A copy; empty when there is none. The second form says why.
    String8 readString8() const;
    status_t readString8(String8* pArg) const;
    String16 readString16() const;
    status_t readString16(String16* pArg) const;

    /// @}

    /// Borrowed; null for a null or broken string, with @p outLen 0.
    const char16_t* readString16Inplace(size_t* outLen) const;
    /// The next object: itself when it lives in this process, else its proxy; null when there is none.
    sp<IBinder> readStrongBinder() const;
    /// As above. @return BAD_TYPE when there is no object here, UNEXPECTED_NULL when it is null.
    status_t readStrongBinder(sp<IBinder>* val) const;
    /// As above, but a null object is one, too.
    status_t readNullableStrongBinder(sp<IBinder>* val) const;
    /// Borrowed; BAD_TYPE when there is no descriptor here.
    int readFileDescriptor() const;

    /// The header of a reply: 0, or the exception that the other side reports. An empty reply counts as the
    /// exception of a failed transaction (-129).
    int32_t readExceptionCode() const;

  private:
    friend class runtime::ParcelAccess;

    /// A binder or descriptor in the data, at @p offset; the flat object there is only its picture.
    /// Neither @p binder nor @p fd is set for a descriptor that was lost on the way.
    struct Object {
        Object() = default;
        Object(Object&& other) noexcept;
        Object& operator=(Object&& other) noexcept;
        ~Object();
        status_t duplicate(const Object& other);
        flat_binder_object picture() const;

        size_t offset = 0;
        sp<IBinder> binder;
        int fd = -1;
        bool ownsFd = false;
    };

    status_t grow(size_t more);
    status_t reallocate(size_t capacity);
    bool fits(size_t len) const;
    status_t prepare(size_t len);
    uint8_t* claim(size_t len);
    status_t checkRead(size_t len) const;
    template <typename T>
    status_t writeAligned(T val);
    template <typename T>
    status_t readWord(T* pArg) const;
    template <typename T>
    T readWord() const;

    static status_t reserveObjects(std::vector<Object>* objects, size_t more);
    status_t writeObject(Object&& object);
    void listObject(Object&& object);
    void dropObjects(size_t begin, size_t end);
    size_t firstObjectEndingAfter(size_t pos) const;
    bool overlapsObject(size_t begin, size_t end) const;
    const Object* objectHere() const;
    bool isNullBinderHere() const;
    status_t copyObjects(size_t begin, size_t end, std::vector<Object>* copies) const;

    status_t mError = NO_ERROR;
    uint8_t* mData = nullptr;
    size_t mDataSize = 0;
    size_t mDataCapacity = 0;
    mutable size_t mDataPos = 0;
    std::vector<Object> mObjects;  ///< in ascending order of their offsets
    mutable size_t mObjectHint = 0;
};

// Words are read here, in the reader's own code: a call into the library would cost more than the read.

/// Whether the next @p len bytes can be read as plain data. An object's picture cannot: it would show
/// addresses, or be taken for the object.
inline status_t Parcel::checkRead(size_t len) const {
    if (mDataPos > mDataSize || len > mDataSize - mDataPos) return NOT_ENOUGH_DATA;
    if (mObjects.empty()) return NO_ERROR;
    return overlapsObject(mDataPos, mDataPos + len) ? PERMISSION_DENIED : NO_ERROR;
}

/// A word need not be aligned, so it is copied rather than cast.
template <typename T>
inline status_t Parcel::readWord(T* pArg) const {
    static_assert(sizeof(T) % 4 == 0, "values take whole cells");
    const status_t status = checkRead(sizeof(T));
    if (status != NO_ERROR) return status;
    std::memcpy(pArg, mData + mDataPos, sizeof(T));
    mDataPos += sizeof(T);
    return NO_ERROR;
}

template <typename T>
inline T Parcel::readWord() const {
    T val{};
    readWord(&val);
    return val;
}

}  // namespace android
