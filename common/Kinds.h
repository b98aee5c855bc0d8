// The kinds of field that a transaction row is made of: how each is named, written and read.
//
// A kind is a small class with
//   kKind        its name, for tools and pages,
//   Arguments    the parameters of the operation that it carries, as a tuple (a buffer carries two),
//   name         of the field,
//   check        the text under which a failed write is reported by an interface that reports only named
//   steps;
//                null when this step is not reported there,
//   write()      puts the arguments into a request,
//   Slot         holds what a stub reads: read() takes it out of the request and gives NO_ERROR, or the
//   status
//                with which the stub must give up; arguments() hands it to the operation. A slot may own
//                memory; it lives until the reply is written.
#pragma once

#include <binder/Parcel.h>
#include <utils/String8.h>

#include <cstdint>
#include <tuple>

namespace accessory::wire {

/// A 32-bit number or enumeration, as int32 with the same bits.
template <typename T>
struct Word {
    static_assert(sizeof(T) == sizeof(int32_t));
    static constexpr const char* kKind = "i32";
    using Arguments = std::tuple<T>;

    const char* name;
    const char* check = nullptr;

    static android::status_t write(android::Parcel& data, T value) {
        return data.writeInt32(static_cast<int32_t>(value));
    }

    struct Slot {
        T value{};
        android::status_t read(const android::Parcel& data) {
            value = static_cast<T>(data.readInt32());
            return android::NO_ERROR;
        }
        Arguments arguments() { return {value}; }
    };
};

/// A counted 8-bit string.
struct CountedString {
    static constexpr const char* kKind = "string8";
    using Arguments = std::tuple<const android::String8&>;

    const char* name;
    const char* check = nullptr;

    static android::status_t write(android::Parcel& data, const android::String8& value) {
        return data.writeString8(value);
    }

    struct Slot {
        android::String8 value;
        android::status_t read(const android::Parcel& data) {
            value = data.readString8();
            return android::NO_ERROR;
        }
        Arguments arguments() { return {value}; }
    };
};

constexpr Word<int> i32(const char* name) { return {name}; }
constexpr Word<unsigned int> u32(const char* name) { return {name}; }
constexpr CountedString string8(const char* name, const char* check = nullptr) { return {name, check}; }

/// How the result of an operation travels in the reply.
template <typename Result>
struct Answer;

template <>
struct Answer<int> {
    static android::status_t write(android::Parcel& reply, int value) { return reply.writeInt32(value); }
    static int read(const android::Parcel& reply) { return reply.readInt32(); }
};

template <>
struct Answer<android::String8> {
    static android::status_t write(android::Parcel& reply, const android::String8& value) {
        return reply.writeString8(value);
    }
    static android::String8 read(const android::Parcel& reply) { return reply.readString8(); }
};

}  // namespace accessory::wire
