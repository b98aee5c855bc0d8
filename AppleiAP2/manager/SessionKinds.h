// Structures in a request: calls, CarPlay sessions, pairing blocks, and those that travel as they lie in
// memory.
#pragma once

#include <accessory/AppleiAP2Types.h>
#include <accessory/IAppleiAP2ManagerNotifier.h>

#include <cstdint>
#include <tuple>
#include <type_traits>

#include "common/BinderKind.h"
#include "common/Kinds.h"

namespace accessory::wire::iap2_manager {

/// A structure of bytes, by reference or by pointer. Null cannot be written: that is reported, and zeros
/// travel.
template <typename Argument>
struct RawRecord {
    static constexpr const char* kKind = "raw record";
    using Arguments = std::tuple<Argument>;
    using Structure = std::remove_const_t<std::remove_pointer_t<std::remove_reference_t<Argument>>>;

    const char* name = nullptr;

    static void write(Writer& out, const Structure& record) { out.raw(&record, sizeof(record)); }
    static void write(Writer& out, const Structure* record) {
        if (record == nullptr) out.step(android::BAD_VALUE);
        write(out, record != nullptr ? *record : Structure());
    }

    struct Slot {
        Structure record;

        GiveUp read(Reader& in) {
            in.raw(&record, sizeof(record));
            return kGoOn;
        }
        Arguments arguments() {
            if constexpr (std::is_pointer_v<Argument>) {
                return {&record};
            } else {
                return {record};
            }
        }
    };
};

/// Whom to call: two numbers and two optional strings.
struct CallTarget {
    static constexpr const char* kKind = "initiate call";
    using Arguments = std::tuple<InitiateCallParam*>;

    const char* name = nullptr;

    static void write(Writer& out, const InitiateCallParam* param);

    struct Slot {
        InitiateCallParam param;

        GiveUp read(Reader& in);
        Arguments arguments() { return {&param}; }
    };
};

/// A presence word, and the attributes when they are wanted.
struct WiredSession {
    static constexpr const char* kKind = "wired session";
    using Arguments = std::tuple<CPStartSessionWiredAttributes*>;

    const char* name = nullptr;

    static void write(Writer& out, const CPStartSessionWiredAttributes* attributes);

    struct Slot {
        bool present = false;
        CPStartSessionWiredAttributes attributes;

        GiveUp read(Reader& in);
        Arguments arguments() { return {present ? &attributes : nullptr}; }
    };
};

/// As WiredSession.
struct WirelessSession {
    static constexpr const char* kKind = "wireless session";
    using Arguments = std::tuple<CPStartSessionWirelessAttributes*>;

    const char* name = nullptr;

    static void write(Writer& out, const CPStartSessionWirelessAttributes* attributes);

    struct Slot {
        bool present = false;
        CPStartSessionWirelessAttributes attributes;

        GiveUp read(Reader& in);
        Arguments arguments() { return {present ? &attributes : nullptr}; }
    };
};

/// A presence word, and two arrays of 16 bytes in a row when it is not 0.
struct PairingBlock {
    static constexpr const char* kKind = "pairing block";
    static constexpr size_t kBytes = 32;
    using Arguments = std::tuple<unsigned char (*)[16]>;

    const char* name = nullptr;

    static void write(Writer& out, const unsigned char (*block)[16]) {
        out.i32(block != nullptr ? 1 : 0);
        if (block != nullptr) out.raw(block, kBytes);
    }

    struct Slot {
        bool present = false;
        unsigned char block[2][16] = {};

        GiveUp read(Reader& in) {
            present = in.flag();
            if (present) in.raw(block, kBytes);
            return kGoOn;
        }
        Arguments arguments() { return {present ? block : nullptr}; }
    };
};

constexpr NotifierBinder<IAppleiAP2ManagerNotifier> notifierBinder(const char* name) { return {name}; }
template <typename Argument>
constexpr RawRecord<Argument> rawRecord(const char* name) {
    return {name};
}
constexpr CallTarget initiateCallParam(const char* name) { return {name}; }
constexpr WiredSession wiredSession(const char* name) { return {name}; }
constexpr WirelessSession wirelessSession(const char* name) { return {name}; }
constexpr PairingBlock pairingBlock(const char* name) { return {name}; }

}  // namespace accessory::wire::iap2_manager
