// What the CarPlay and digital car key events carry.
#pragma once

#include <accessory/AppleiAP2Types.h>

#include <string>
#include <tuple>
#include <vector>

#include "common/Kinds.h"

namespace accessory::wire::iap2_notifier {

/// A flag, and a string only when it is set. The receiver looks at the flag's low byte.
template <typename Attributes>
struct Availability {
    static constexpr const char* kKind = "availability";
    using Arguments = std::tuple<Attributes*>;

    const char* name = nullptr;

    /// Null attributes cannot be written: that is reported, and they travel as not available.
    static void write(Writer& out, const Attributes* attributes) {
        if (attributes == nullptr) out.step(android::BAD_VALUE);
        const Attributes written = attributes != nullptr ? *attributes : Attributes();
        out.i32(written.available ? 1 : 0);
        if (written.available) out.cstr(written.text);
    }

    struct Slot {
        Attributes attributes;

        GiveUp read(Reader& in) {
            attributes.available = static_cast<uint8_t>(in.i32()) != 0;
            if (attributes.available) attributes.text = in.cstr();
            return kGoOn;
        }
        Arguments arguments() { return {&attributes}; }
    };
};

/// A count, and as many strings. The receiver skips what is not there.
struct CarKeys {
    static constexpr const char* kKind = "strings";
    using Arguments = std::tuple<std::vector<std::string>&>;

    const char* name = nullptr;

    static void write(Writer& out, const std::vector<std::string>& keys);

    struct Slot {
        std::vector<std::string> keys;

        GiveUp read(Reader& in);
        Arguments arguments() { return {keys}; }
    };
};

constexpr Availability<CPAvailabilityWiredAttributes> wiredAvailability(const char* name) { return {name}; }
constexpr Availability<CPAvailabilityWirelessAttributes> wirelessAvailability(const char* name) {
    return {name};
}
constexpr CarKeys carKeys(const char* name) { return {name}; }

}  // namespace accessory::wire::iap2_notifier
