// The destination event.
#pragma once

#include <accessory/AppleiAP2Types.h>

#include <tuple>

#include "common/Buffer.h"
#include "common/Kinds.h"

namespace accessory::wire::iap2_notifier {

/// The mask, and the fields whose bits are set.
struct Destination {
    static constexpr const char* kKind = "destination";
    using Arguments = std::tuple<const DestinationInfo*>;

    const char* name = nullptr;

    /// @param info not null; the proxy has checked that.
    static void write(Writer& out, const DestinationInfo* info);

    struct Slot {
        DestinationInfo info;
        RequestBuffer<DestinationInfo::Point> points;

        /// Without memory for the points the event is dropped as if it had been handled.
        GiveUp read(Reader& in);
        Arguments arguments() { return {&info}; }

      private:
        bool has(uint32_t bit) const { return (info.mask & bit) != 0; }
        bool readPoints(Reader& in);
    };
};

constexpr Destination destination(const char* name) { return {name}; }

}  // namespace accessory::wire::iap2_notifier
