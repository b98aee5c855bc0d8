// The kinds of field that most records are made of: integers and strings.
#pragma once

#include <cstring>
#include <string>

#include "AppleiAP2/records/RecordReader.h"
#include "AppleiAP2/records/RecordText.h"
#include "AppleiAP2/records/RecordWriter.h"

namespace accessory {

/// An integer of up to 32 bits, widened to an int32 with its sign and narrowed again by the reader.
template <typename Integer>
struct NarrowInteger {
    using Value = Integer;
    const char* name;

    bool write(RecordWriter& writer, Integer value) const {
        writer.int32(static_cast<int32_t>(value));
        return true;
    }
    bool read(RecordReader& reader, Integer& slot) const {
        slot = static_cast<Integer>(reader.int32());
        return true;
    }
    void print(std::string& text, Integer value) const { text += std::to_string(value); }
};

inline constexpr NarrowInteger<int32_t> i32{"i32"};
inline constexpr NarrowInteger<uint8_t> u8AsI32{"u8AsI32"};
inline constexpr NarrowInteger<uint16_t> u16AsI32{"u16AsI32"};
inline constexpr NarrowInteger<int16_t> i16AsI32{"i16AsI32"};

/// A 64-bit value.
struct WideInteger {
    using Value = uint64_t;
    const char* name;

    bool write(RecordWriter& writer, uint64_t value) const {
        writer.int64(value);
        return true;
    }
    bool read(RecordReader& reader, uint64_t& slot) const {
        slot = reader.int64();
        return true;
    }
    void print(std::string& text, uint64_t value) const { text += std::to_string(value); }
};

inline constexpr WideInteger u64{"u64"};

/// A NUL-terminated string, written as it is. The reader borrows it from the parcel.
struct PlainString {
    using Value = const char*;
    const char* name = "cstr";

    bool write(RecordWriter& writer, const char* value) const {
        writer.cstring(value);
        return true;
    }
    bool read(RecordReader& reader, const char*& slot) const {
        slot = reader.cstring();
        return true;
    }
    void print(std::string& text, const char* value) const { appendQuoted(text, value); }
};

inline constexpr PlainString cstr{};

/// A null string ends the process.
struct AssertedString : PlainString {
    const char* assertion;

    constexpr explicit AssertedString(const char* assertionText)
        : PlainString{"assertedCstr"}, assertion(assertionText) {}

    bool write(RecordWriter& writer, const char* value) const {
        writer.require(value != nullptr, assertion);
        return PlainString::write(writer, value);
    }
};

/// A null string is logged and ends the writing: the fields after it are missing in the parcel.
struct StoppingString : PlainString {
    const char* check;

    constexpr explicit StoppingString(const char* checkText)
        : PlainString{"stoppingCstr"}, check(checkText) {}

    bool write(RecordWriter& writer, const char* value) const {
        return writer.holds(value != nullptr, check) && PlainString::write(writer, value);
    }
};

/// A null string is left out without a trace, and the reader takes what follows for it.
struct OmittedString : PlainString {
    constexpr OmittedString() : PlainString{"omittedCstr"} {}

    bool write(RecordWriter& writer, const char* value) const {
        return value == nullptr || PlainString::write(writer, value);
    }
};

inline constexpr OmittedString omittedCstr{};

/// An int32, the length with the NUL, then the string; 0 alone for a null string. The reader takes the length
/// for nothing but a sign that a string follows.
struct CountedString : PlainString {
    constexpr CountedString() : PlainString{"countedCstr"} {}

    bool write(RecordWriter& writer, const char* value) const {
        const size_t bytes = value == nullptr ? 0 : std::strlen(value) + 1;
        writer.int32(static_cast<int32_t>(bytes));
        if (bytes != 0) writer.cstring(value, bytes);
        return true;
    }
    bool read(RecordReader& reader, const char*& slot) const {
        slot = reader.int32() >= 1 ? reader.cstring() : nullptr;
        return true;
    }
};

inline constexpr CountedString countedCstr{};

}  // namespace accessory
