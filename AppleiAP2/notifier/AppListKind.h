// A list of applications in an event.
#pragma once

#include <accessory/AppleiAP2Types.h>

#include <cstdint>
#include <tuple>

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
        Slot() = default;
        ~Slot();
        Slot(const Slot&) = delete;
        Slot& operator=(const Slot&) = delete;

        /// Without memory for the list the event is dropped as if it had been handled.
        GiveUp read(Reader& in);
        Arguments arguments() { return {mElements.get(), mCount}; }

      private:
        bool allocate();
        void readElement(Reader& in, size_t index);
        void* readBuffer(Reader& in, uint32_t length);

        uint16_t mCount = 0;
        RequestBuffer<AppleAppList> mElements;
        RequestBuffer<void*> mBuffers;  // of the elements, which the receiver may change
        size_t mBufferBytes = 0;
    };
};

constexpr AppList appList(const char* name, const char* count) { return {name, count}; }

}  // namespace accessory::wire::iap2_notifier
