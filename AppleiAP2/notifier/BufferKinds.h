// Byte buffers in an event, each with its own rules.
#pragma once

#include <accessory/AppleiAP2Types.h>
#include <android/log.h>

#include <algorithm>
#include <cstdint>
#include <tuple>

#include "common/Buffer.h"
#include "common/Kinds.h"

namespace accessory::wire::iap2_notifier {

/// A HID report. The two sides do not agree, and stay that way: the sender writes length and bytes, the
/// receiver reads component, length and bytes, so it takes the length for the component and the first bytes
/// for the length.
struct HidReport {
    static constexpr const char* kKind = "hid report";
    static constexpr int kMostBytes = 1024;
    using Arguments = std::tuple<int, void*, int>;

    const char* componentName = nullptr;
    const char* name = nullptr;
    const char* lengthName = nullptr;

    static void write(Writer& out, int /*component*/, const void* report, int length) {
        out.i32(length);
        out.raw(report, static_cast<size_t>(length));
    }

    struct Slot {
        int component = 0;
        int length = 0;
        uint8_t report[kMostBytes] = {};

        /// A length that the buffer does not hold counts as a failed read: no bytes then, and the nearest
        /// length that the buffer has.
        GiveUp read(Reader& in) {
            component = in.i32();
            length = in.i32();
            if (length >= 0 && length <= kMostBytes) {
                in.raw(report, static_cast<size_t>(length));
            } else {
                in.step(android::BAD_VALUE);
                length = std::clamp(length, 0, kMostBytes);
            }
            return kGoOn;
        }
        Arguments arguments() { return {component, report, length}; }
    };
};

/// A FileTransferSetup: eight words, of which the buffer's stands empty, then the buffer once more with its
/// length. The words are put together one by one, so they are the same on 32-bit and 64-bit machines.
struct TransferSetup {
    static constexpr const char* kKind = "file transfer setup";
    using Arguments = std::tuple<FileTransferSetup*>;

    const char* name = nullptr;

    static void write(Writer& out, const FileTransferSetup* setup);

    struct Slot {
        FileTransferSetup setup;
        RequestBuffer<uint8_t> buffer;

        /// Without a buffer, because there are no bytes or no room for them, the length is 0 too.
        GiveUp read(Reader& in);
        Arguments arguments() { return {&setup}; }
    };
};

/// A length, and as many bytes for which there must be memory.
struct LinkKeyBytes {
    static constexpr const char* kKind = "counted bytes";
    using Arguments = std::tuple<unsigned char*, unsigned int>;

    const char* name = nullptr;
    const char* lengthName = nullptr;

    static void write(Writer& out, const unsigned char* bytes, unsigned int length) {
        out.i32(static_cast<int32_t>(length));
        out.raw(bytes, length);
    }

    struct Slot {
        uint32_t length = 0;
        RequestBuffer<unsigned char> bytes;

        GiveUp read(Reader& in);
        Arguments arguments() { return {bytes.get(), length}; }
    };
};

/// A length, and as many bytes without which the event is dropped as if it had been handled.
struct AppIcon {
    static constexpr const char* kKind = "counted bytes";
    using Arguments = std::tuple<char*, unsigned int>;

    const char* name = nullptr;
    const char* lengthName = nullptr;

    static void write(Writer& out, const char* bytes, unsigned int length) {
        out.i32(static_cast<int32_t>(length));
        out.raw(bytes, length);
    }

    struct Slot {
        uint32_t length = 0;
        RequestBuffer<char> bytes;

        GiveUp read(Reader& in);
        Arguments arguments() { return {bytes.get(), length}; }
    };
};

/// A presence word, and six bytes when it is not 0.
struct OptionalMac {
    static constexpr const char* kKind = "optional mac";
    static constexpr size_t kBytes = 6;
    using Arguments = std::tuple<unsigned char*>;

    const char* name = nullptr;

    static void write(Writer& out, const unsigned char* mac) {
        out.i32(mac != nullptr ? 1 : 0);
        if (mac != nullptr) out.raw(mac, kBytes);
    }

    struct Slot {
        bool present = false;
        unsigned char mac[kBytes] = {};

        GiveUp read(Reader& in) {
            present = in.flag();
            if (present) in.raw(mac, kBytes);
            return kGoOn;
        }
        Arguments arguments() { return {present ? mac : nullptr}; }
    };
};

constexpr HidReport hidReport(const char* component, const char* name, const char* length) {
    return {component, name, length};
}
constexpr TransferSetup transferSetup(const char* name) { return {name}; }
constexpr LinkKeyBytes linkKeyBytes(const char* name, const char* length) { return {name, length}; }
constexpr AppIcon appIcon(const char* name, const char* length) { return {name, length}; }
constexpr OptionalMac optionalMac(const char* name) { return {name}; }

}  // namespace accessory::wire::iap2_notifier
