// A list of identifiers that an operation fills in.
#pragma once

#include <algorithm>
#include <cstdint>
#include <tuple>

#include "common/Kinds.h"

namespace accessory::wire {

/// The most identifiers that an operation reports. Whoever claims more has the count cut, so that neither
/// side touches an eleventh.
inline constexpr unsigned int kMostIds = 10;

/// In the reply a count, and as many int32.
struct IdList {
    static constexpr const char* kKind = "identifiers";
    static constexpr bool kAnswers = true;
    using Arguments = std::tuple<unsigned int*, unsigned int*>;

    const char* name = nullptr;
    const char* countName = nullptr;

    static void readReply(Reader& in, unsigned int* ids, unsigned int* count) {
        const auto announced = static_cast<unsigned int>(in.i32());
        *count = std::min(announced, kMostIds);
        for (unsigned int i = 0; i < *count; ++i)
            ids[i] = static_cast<unsigned int>(in.i32());
        // What is beyond is passed over, so that the result is still found.
        for (unsigned int i = kMostIds; i < announced && in.parcel().dataAvail() > 0; ++i)
            in.i32();
    }

    struct Slot {
        unsigned int ids[kMostIds] = {};
        unsigned int count = 0;

        Arguments arguments() { return {ids, &count}; }
        void writeReply(Writer& out) {
            const unsigned int sent = std::min(count, kMostIds);
            out.i32(static_cast<int32_t>(sent));
            for (unsigned int i = 0; i < sent; ++i)
                out.i32(static_cast<int32_t>(ids[i]));
        }
    };
};

}  // namespace accessory::wire
