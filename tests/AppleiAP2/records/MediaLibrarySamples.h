// Known values for every field of items and playlists, and their words in a parcel.
#pragma once

#include "AppleiAP2/records/MediaLibraryTables.h"
#include "tests/AppleiAP2/records/Words.h"

namespace accessory::test {

struct MediaItemSample {
    using Table = MediaItemTable;
    static constexpr size_t kWrites = 28;  ///< that all fields and the mask take
    static android::sp<IiAP2MediaItem> filled();
    static std::vector<FieldWords> words();
    /// As filled(), made by a class that was compiled apart, with a mask of its own.
    static android::sp<iAP2MediaItem> apart(uint32_t mask);
};

struct MediaPlaylistSample {
    using Table = MediaPlaylistTable;
    static constexpr size_t kWrites = 8;  ///< that all fields and the mask take
    static android::sp<IiAP2MediaPlaylist> filled();
    static std::vector<FieldWords> words();
    /// As filled(), made by a class that was compiled apart, with a mask of its own.
    static android::sp<iAP2MediaPlaylist> apart(uint32_t mask);
};

/// An entry of a kind that nobody knows.
class OddEntry final : public iAP2MediaLibGroupData {
  public:
    explicit OddEntry(int32_t kind) : iAP2MediaLibGroupData(kind) {}
};

/// An update with every field and entries of all kinds, one of them unknown.
android::sp<IiAP2MediaLibData> mixedUpdate();
Words mixedWords();

}  // namespace accessory::test
