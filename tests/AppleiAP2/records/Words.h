// Words: the bytes of a parcel spelt by hand, one primitive after the other, without asking a Parcel.
#pragma once

#include <binder/Parcel.h>

#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <vector>

namespace accessory::test {

/// The tag of what the records log.
inline constexpr char kRecordTag[] = "IAppleiAP2ManagerNotifier";

class Words {
  public:
    Words& i32(int64_t value);  ///< any 32 bits, signed or not
    Words& i64(uint64_t value);
    /// The characters and their NUL, filled up with zeros to whole words.
    Words& cstr(const char* value);
    /// 16-bit values one after the other, filled up with zeros to whole words.
    Words& halves(std::initializer_list<int> values);
    Words& operator+=(const Words& more);

    const std::vector<uint8_t>& bytes() const { return mBytes; }
    size_t size() const { return mBytes.size(); }

    /// Makes the first @p size bytes the content of @p parcel.
    void putInto(android::Parcel& parcel, size_t size) const;
    void putInto(android::Parcel& parcel) const { putInto(parcel, size()); }

    friend bool operator==(const Words& a, const Words& b) { return a.mBytes == b.mBytes; }

  private:
    void append(const void* data, size_t size);
    void pad();

    std::vector<uint8_t> mBytes;
};

/// What was written into @p parcel.
Words wordsOf(const android::Parcel& parcel);

/// How GoogleTest shows words: as hexadecimal numbers of 32 bits.
void PrintTo(const Words& words, std::ostream* out);

/// The words of the field that a bit of a mask stands for.
struct FieldWords {
    int bit = 0;
    Words words;
};

}  // namespace accessory::test
