// The kinds of field that a transaction row is made of: how each is named, written and read.
//
// A kind is a small class with
//   kKind        its name, for tools and pages,
//   Arguments    the parameters of the operation that it carries, as a tuple (a buffer carries two),
//   name         of the field,
//   write()      puts the arguments into a request,
//   Slot         holds what a stub reads: read() takes it out of the request and tells whether, and
//                with which status, the stub must give up; arguments() hands it to the operation. A slot may
//                own memory; it lives until the reply is written.
//
// A kind that travels in the reply instead has kAnswers; its slot has writeReply() in place of read(), and it
// has readReply(), which gives the proxy's caller what came, in place of write().
#pragma once

#include <utils/String8.h>

#include <cstdint>
#include <optional>
#include <tuple>
#include <type_traits>

#include "common/Marshal.h"

namespace accessory::wire {

/// The status with which a stub ends a case before its operation is called; nothing to go on.
using GiveUp = std::optional<android::status_t>;
inline constexpr GiveUp kGoOn = std::nullopt;

/// A number, enumeration or truth value of at most 32 bits, widened to int32 as its type says and cut to its
/// width again by the reader; any word but 0 is true.
template <typename T>
struct Word {
    static_assert(sizeof(T) <= sizeof(int32_t));
    static constexpr const char* kKind = std::is_same_v<T, bool> ? "bool as i32"
                                         : sizeof(T) == 1        ? "8-bit as i32"
                                         : sizeof(T) == 2        ? "16-bit as i32"
                                                                 : "i32";
    using Arguments = std::tuple<T>;

    const char* name = nullptr;

    static void write(Writer& out, T value) { out.i32(static_cast<int32_t>(value)); }

    struct Slot {
        T value{};
        GiveUp read(Reader& in) {
            value = static_cast<T>(in.i32());
            return kGoOn;
        }
        Arguments arguments() { return {value}; }
    };
};

/// A 64-bit number.
template <typename T>
struct LongWord {
    static_assert(sizeof(T) == sizeof(int64_t));
    static constexpr const char* kKind = "i64";
    using Arguments = std::tuple<T>;

    const char* name = nullptr;

    static void write(Writer& out, T value) { out.i64(static_cast<int64_t>(value)); }

    struct Slot {
        T value{};
        GiveUp read(Reader& in) {
            value = static_cast<T>(in.i64());
            return kGoOn;
        }
        Arguments arguments() { return {value}; }
    };
};

/// A NUL-terminated string; the operation gets a pointer into the request, null when there is none.
struct CString {
    static constexpr const char* kKind = "cstr";
    using Arguments = std::tuple<const char*>;

    const char* name = nullptr;

    static void write(Writer& out, const char* value) { out.cstr(value); }

    struct Slot {
        const char* value = nullptr;
        GiveUp read(Reader& in) {
            value = in.cstr();
            return kGoOn;
        }
        Arguments arguments() { return {value}; }
    };
};

/// A presence word, and the string when there is one.
struct OptionalCString {
    static constexpr const char* kKind = "opt-cstr";
    using Arguments = std::tuple<const char*>;

    const char* name = nullptr;

    static void write(Writer& out, const char* value) { out.optionalCstr(value); }

    struct Slot {
        const char* value = nullptr;
        GiveUp read(Reader& in) {
            value = in.optionalCstr();
            return kGoOn;
        }
        Arguments arguments() { return {value}; }
    };
};

/// A counted 8-bit string.
struct CountedString {
    static constexpr const char* kKind = "string8";
    using Arguments = std::tuple<const android::String8&>;

    const char* name = nullptr;
    const char* check = nullptr;  ///< names the step where only named ones are reported

    void write(Writer& out, const android::String8& value) const { out.string8(value, check); }

    struct Slot {
        android::String8 value;
        GiveUp read(Reader& in) {
            value = in.string8();
            return kGoOn;
        }
        Arguments arguments() { return {value}; }
    };
};

constexpr Word<int> i32(const char* name) { return {name}; }
constexpr Word<unsigned int> u32(const char* name) { return {name}; }
constexpr Word<short> i16AsI32(const char* name) { return {name}; }
constexpr Word<unsigned short> u16AsI32(const char* name) { return {name}; }
constexpr Word<signed char> i8AsI32(const char* name) { return {name}; }
constexpr Word<unsigned char> u8AsI32(const char* name) { return {name}; }
constexpr Word<bool> boolAsI32(const char* name) { return {name}; }
template <typename Enumeration>
constexpr Word<Enumeration> enumAsI32(const char* name) {
    return {name};
}
constexpr LongWord<unsigned long long> u64(const char* name) { return {name}; }
constexpr CString cstr(const char* name) { return {name}; }
constexpr OptionalCString optionalCstr(const char* name) { return {name}; }
constexpr CountedString string8(const char* name, const char* check) { return {name, check}; }

/// Whether a field travels in the reply: the operation fills it in.
template <typename Field, typename = void>
inline constexpr bool isInReplyOf = false;
template <typename Field>
inline constexpr bool isInReplyOf<Field, std::void_t<decltype(Field::kAnswers)>> = true;
template <typename Field>
inline constexpr bool isInReply = isInReplyOf<std::decay_t<Field>>;

/// How the result of an operation travels, at the end of the reply. write() tells whether, and with which
/// status, the request fails all the same.
template <typename Result>
struct Answer;

template <>
struct Answer<int> {
    static GiveUp write(Writer& out, int value, const char* /*check*/) {
        out.i32(value);
        return kGoOn;
    }
    static int read(Reader& in) { return in.i32(); }
};

template <>
struct Answer<android::String8> {
    static GiveUp write(Writer& out, const android::String8& value, const char* check) {
        out.string8(value, check);
        return kGoOn;
    }
    static android::String8 read(Reader& in) { return in.string8(); }
};

}  // namespace accessory::wire
