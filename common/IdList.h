// A list of identifiers that an operation fills in.
#pragma once

#include <algorithm>
#include <cstdint>
#include <tuple>

#include "common/Kinds.h"

namespace accessory::wire {

/// The most identifiers that an operation reports, and room for as many is what an implementation is given.
/// Whoever claims more has the count cut, so that neither side reads or sends an eleventh.
inline constexpr unsigned int kMostIds = 10;

/// Reads what was announced beyond kMostIds and drops it, so that the result is still found behind it.
/// @param readOne reads one more; false when it cannot be read, and then no further one could be.
template <typename ReadOne>
void passOverSurplus(unsigned int announced, ReadOne readOne) {
    for (unsigned int i = kMostIds; i < announced; ++i)
        if (!readOne()) return;
}

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
        int32_t passed = 0;
        passOverSurplus(announced, [&] { return in.parcel().readInt32(&passed) == android::NO_ERROR; });
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
