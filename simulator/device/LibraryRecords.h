// The media library records made from tracks and playlists.
#pragma once

#include <accessory/MediaLibraryRecords.h>

#include "simulator/model/MediaLibrary.h"

namespace accessory::simulator {

/// The masks of what a client asked for; 0: every field.
struct LibraryMasks {
    uint32_t data = 0;
    uint32_t item = 0;
    uint32_t playlist = 0;
};

/// A part of the library, or of what changed in it.
struct LibraryPage {
    std::string libraryId;
    std::string revision;
    TrackList tracks;
    std::vector<Playlist> playlists;
    std::vector<uint64_t> deletedTracks;
    std::vector<uint64_t> deletedPlaylists;
    bool reset = false;      ///< what the client had before is void
    uint8_t progress = 100;  ///< percent
};

/// Records with the fields of the mask. Their strings are those of the argument, which must outlive them.
android::sp<IiAP2MediaItem> itemRecord(const Track& track, uint32_t mask);
android::sp<IiAP2MediaPlaylist> playlistRecord(const Playlist& playlist, uint32_t mask);

android::sp<iAP2MediaLibData> libraryRecord(const LibraryPage& page, const LibraryMasks& masks);

/// What a mask lets through: the mask itself, or everything for 0.
constexpr uint32_t everythingForZero(uint32_t mask) { return mask == 0 ? ~0u : mask; }

}  // namespace accessory::simulator
