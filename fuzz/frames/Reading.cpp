#include "fuzz/frames/Reading.h"

#include <utils/String16.h>
#include <utils/String8.h>

#include <cstring>
#include <numeric>

namespace android::runtime::fuzz {

namespace {

/// Calls @p read until it no longer gets on, from every word of the parcel on.
template <typename Read>
size_t fromEveryWord(const Parcel& parcel, const Read& read) {
    size_t sum = 0;
    for (size_t place = 0; place < parcel.dataSize(); place += sizeof(int32_t)) {
        parcel.setDataPosition(place);
        sum += read();
    }
    return sum;
}

size_t length(const char* text) { return text != nullptr ? std::strlen(text) : 0; }

size_t bytes(const Parcel& parcel) {
    const size_t count = parcel.dataAvail();
    const auto* const first = static_cast<const uint8_t*>(parcel.readInplace(count));
    return first != nullptr ? std::accumulate(first, first + count, size_t{0}) : 0;
}

}  // namespace

size_t readEverything(const Parcel& parcel) {
    parcel.setDataPosition(0);
    size_t sum = bytes(parcel);
    sum += fromEveryWord(parcel, [&] { return static_cast<size_t>(parcel.readInt64()); });
    sum += fromEveryWord(parcel, [&] { return length(parcel.readCString()); });
    sum += fromEveryWord(parcel, [&] { return length(parcel.readString8().string()); });
    sum += fromEveryWord(parcel, [&] { return parcel.readString16().size(); });
    sum += fromEveryWord(parcel, [&] { return parcel.readStrongBinder() != nullptr ? 1U : 0U; });
    sum += fromEveryWord(parcel, [&] { return static_cast<size_t>(parcel.readFileDescriptor()); });
    sum += fromEveryWord(parcel, [&] { return parcel.enforceInterface(String16("a")) ? 1U : 0U; });
    return sum;
}

}  // namespace android::runtime::fuzz
