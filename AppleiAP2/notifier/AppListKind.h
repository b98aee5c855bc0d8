// A list of applications in an event.
#pragma once

#include <accessory/AppleiAP2Types.h>

#include <cstdint>
#include <memory>
#include <tuple>
#include <vector>

#include "common/Buffer.h"
#include "common/Kinds.h"

namespace accessory::wire::iap2_notifier {

/// The number of elements, a presence word, and the elements when both are not 0. An element carries its
/// buffer's length, and the bytes when there are any.
///
/// A sender that gives an element a length but no buffer writes no bytes, and the receiver reads some all the
/// same: everything that follows is misread. That is a known trap of this event, not an error that either
/// side reports.
struct AppList {
    static constexpr const char* kKind = "application list";
    using Arguments = std::tuple<AppleAppList*, unsigned short>;

    const char* name = nullptr;
    const char* countName = nullptr;

    static void write(Writer& out, const AppleAppList* list, unsigned short count);

    struct Slot {
        std::vector<AppleAppList> elements;
        std::vector<std::unique_ptr<RequestBuffer<uint8_t>>> buffers;
        uint16_t count = 0;

        GiveUp read(Reader& in);
        Arguments arguments() { return {elements.empty() ? nullptr : elements.data(), count}; }

      private:
        void readElement(Reader& in, AppleAppList* element);
        void* readBuffer(Reader& in, uint32_t length);

        size_t mBufferBytes = 0;
    };
};

constexpr AppList appList(const char* name, const char* count) { return {name, count}; }

}  // namespace accessory::wire::iap2_notifier
