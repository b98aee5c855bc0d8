// Known values for every field of the now-playing records, and their words in a parcel.
#pragma once

#include "AppleiAP2/records/NowPlayingTables.h"
#include "tests/AppleiAP2/records/Words.h"

namespace accessory::test {

struct ItemAttributeSample {
    using Table = ItemAttributeTable;
    static constexpr size_t kWrites = 23;  ///< that all fields and the mask take
    static android::sp<IiAP2ItemAttribute> filled();
    static std::vector<FieldWords> words();
    /// As filled(), made by a class that was compiled apart, with a mask of its own.
    static android::sp<iAP2ItemAttribute> apart(uint32_t mask);
};

struct MediaPlaybackSample {
    using Table = MediaPlaybackTable;
    static constexpr size_t kWrites = 18;  ///< that all fields and the mask take
    static android::sp<IiAP2MediaPlayback> filled();
    static std::vector<FieldWords> words();
    /// As filled(), made by a class that was compiled apart, with a mask of its own.
    static android::sp<iAP2MediaPlayback> apart(uint32_t mask);
};

}  // namespace accessory::test
