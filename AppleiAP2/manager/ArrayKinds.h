// Arrays in a request: a count, and the elements as they lie in memory.
#pragma once

#include <accessory/AppleiAP2Types.h>

#include <cstdint>
#include <tuple>
#include <type_traits>

#include "common/Buffer.h"
#include "common/Kinds.h"

namespace accessory::wire::iap2_manager {

/// What all arrays share: how they are written, and memory for what is read.
template <typename Pointer, typename Count>
struct Array {
    static constexpr const char* kKind = "counted array";
    using Arguments = std::tuple<Pointer, Count>;
    using Element = std::remove_const_t<std::remove_pointer_t<Pointer>>;

    const char* name = nullptr;
    const char* countName = nullptr;

    static void write(Writer& out, Pointer elements, Count count) {
        out.i32(static_cast<int32_t>(count));
        out.array(elements, static_cast<size_t>(count));
    }

    struct Slot {
        RequestBuffer<Element> elements;
        Count count = 0;

        void readCount(Reader& in) { count = static_cast<Count>(in.i32()); }
        /// @return whether there is memory for as many as the count says; a negative one asks for too much.
        bool allocate() { return elements.allocate(static_cast<size_t>(count)); }
        bool allocate(Reader& in) {
            readCount(in);
            return allocate();
        }
        void readElements(Reader& in) {
            in.raw(elements.get(), static_cast<size_t>(count) * sizeof(Element));
        }
        Arguments arguments() { return {elements.get(), count}; }
    };
};

/// What a failed allocation is reported as.
inline constexpr char kBuf[] = "buf";
inline constexpr char kInfo[] = "info";
inline constexpr char kReportData[] = "reportData";

/// An array without which the stub gives up. Bytes that the operation may only read are left in the request.
template <typename Pointer, typename Count, const char* kCheck>
struct CheckedArray : Array<Pointer, Count> {
    static constexpr bool kReadOnlyBytes = std::is_same_v<Pointer, const unsigned char*>;

    struct Slot : Array<Pointer, Count>::Slot {
        const void* borrowed = nullptr;

        GiveUp read(Reader& in) {
            this->readCount(in);
            if (mayBorrow()) borrowed = in.bytes(static_cast<size_t>(this->count));
            if (borrowed != nullptr) return kGoOn;
            if (!holds(in.site(), this->allocate(), kCheck)) return android::BAD_VALUE;
            this->readElements(in);
            return kGoOn;
        }
        std::tuple<Pointer, Count> arguments() {
            if constexpr (kReadOnlyBytes) {
                if (borrowed != nullptr) return {static_cast<Pointer>(borrowed), this->count};
            }
            return {this->elements.get(), this->count};
        }

      private:
        bool mayBorrow() const {
            return kReadOnlyBytes && static_cast<size_t>(this->count) <= kMostTransactionBytes;
        }
    };
};

/// The Bluetooth address, the one array whose memory nobody asks about: without it reading the bytes fails,
/// which is reported, and the operation is called with null all the same.
struct BluetoothAddress : Array<unsigned char*, unsigned int> {
    struct Slot : Array<unsigned char*, unsigned int>::Slot {
        GiveUp read(Reader& in) {
            if (allocate(in)) {
                readElements(in);
            } else {
                in.step(android::NO_MEMORY);
            }
            return kGoOn;
        }
    };
};

/// Identifiers: no memory and a null pointer when there are none.
struct DisplayIds : Array<int*, int> {
    struct Slot : Array<int*, int>::Slot {
        GiveUp read(Reader& in);
    };
};

/// Media item identifiers: without memory for them the request counts as done.
struct MediaItemIds : Array<unsigned long long*, int> {
    struct Slot : Array<unsigned long long*, int>::Slot {
        GiveUp read(Reader& in);
    };
};

/// HID attributes: the numbers, the length of the report descriptor, the descriptor.
struct HidAttributes {
    static constexpr const char* kKind = "hid attributes";
    using Arguments = std::tuple<HIDReportAttributes*>;

    const char* name = nullptr;

    static void write(Writer& out, const HIDReportAttributes* attributes);

    struct Slot {
        HIDReportAttributes attributes;
        RequestBuffer<uint8_t> descriptor;

        GiveUp read(Reader& in);
        Arguments arguments() { return {&attributes}; }
    };
};

template <typename Pointer, typename Count, const char* kCheck>
constexpr CheckedArray<Pointer, Count, kCheck> checkedArray(const char* name, const char* count) {
    return {{name, count}};
}
constexpr BluetoothAddress bluetoothAddress(const char* name, const char* length) { return {{name, length}}; }
constexpr DisplayIds displayIds(const char* name, const char* count) { return {{name, count}}; }
constexpr MediaItemIds mediaItemIds(const char* name, const char* count) { return {{name, count}}; }
constexpr HidAttributes hidAttributes(const char* name) { return {name}; }

}  // namespace accessory::wire::iap2_manager
