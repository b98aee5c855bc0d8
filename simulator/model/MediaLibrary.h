// MediaLibrary: the tracks and playlists on a device, and what a client may ask to hear of them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace accessory::simulator {

/// One song. Identifiers of albums, artists and so on are made from their names; see idOf().
struct Track {
    uint64_t id = 0;
    std::string title;
    std::string album;
    std::string artist;
    std::string albumArtist;
    std::string genre;
    std::string composer;
    int32_t durationMs = 180'000;
    int32_t rating = 0;  ///< 0 to 100
    int32_t trackNumber = 1;
    int32_t trackCount = 1;
    int32_t discNumber = 1;
    int32_t discCount = 1;
    int32_t artworkTransferId = 0;  ///< 0: no artwork
    int32_t chapterCount = 0;
    bool liked = false;
    bool banned = false;
    bool compilation = false;
};

/// Tracks are shared with queues and events that still hold them when the library changes; never null.
using TrackPointer = std::shared_ptr<const Track>;
using TrackList = std::vector<TrackPointer>;

struct Playlist {
    uint64_t id = 0;
    std::string name;
    uint64_t parentId = 0;  ///< 0: at the top
    bool folder = false;
    bool radio = false;
    std::vector<uint64_t> tracks;
};

/// How to make a library up.
struct LibraryRecipe {
    uint32_t tracks = 0;  ///< 0: make none up
    uint32_t tracksPerAlbum = 12;
    uint32_t albumsPerArtist = 4;
    uint32_t seed = 1;
};

/// The persistent identifier of an album, artist, genre or composer of that name; 0 for no name.
uint64_t idOf(const std::string& kind, const std::string& name);

/// Tracks in the order in which they stand in the library, the same ones for the same recipe.
TrackList generateTracks(const LibraryRecipe& recipe);

/// What groups tracks to be played together.
enum class Grouping { kPlaylist, kAlbum, kArtist, kGenre, kComposer };

class MediaLibrary {
  public:
    std::string id;
    std::string name;
    bool radio = false;

    /// @param tracks with identifiers that differ.
    void add(const TrackList& tracks);
    void add(Playlist playlist) { mPlaylists.push_back(std::move(playlist)); }

    const TrackList& tracks() const { return mTracks; }
    const std::vector<Playlist>& playlists() const { return mPlaylists; }

    /// Null when there is none.
    TrackPointer find(uint64_t trackId) const;
    /// The tracks of those identifiers, in that order; what is unknown is left out.
    TrackList find(const std::vector<uint64_t>& trackIds) const;
    /// Empty when there is no such collection.
    TrackList collection(Grouping grouping, uint64_t collectionId) const;

    /// @return false when there is none.
    bool removeTrack(uint64_t trackId);
    bool removePlaylist(uint64_t playlistId);

    /// Names the library's content; another one after every change.
    std::string revision() const { return std::to_string(mRevision); }
    void setRevision(uint32_t revision) { mRevision = revision; }
    void touch() { ++mRevision; }

  private:
    TrackList mTracks;
    std::vector<Playlist> mPlaylists;
    uint32_t mRevision = 1;
};

}  // namespace accessory::simulator
