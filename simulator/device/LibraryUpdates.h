// LibraryUpdates: how a client gets to know the media library, page by page.
#pragma once

#include <optional>

#include "simulator/device/Feature.h"
#include "simulator/device/LibraryRecords.h"
#include "simulator/device/Profile.h"
#include "simulator/engine/Timer.h"

namespace accessory::simulator {

/// What startMediaLibUpdates() asks for. A mask of 0 asks for every field.
struct LibraryRequest {
    std::string libraryId;  ///< empty: the device's own
    std::string revision;   ///< what the client has already; empty: nothing
    uint32_t dataMask = 0;
    uint32_t itemMask = 0;
    uint32_t playlistMask = 0;
    uint32_t pageSize = 0;   ///< entries of one event; 0: 100; at most 500
    uint32_t pageDelay = 0;  ///< milliseconds between events; 0: 50
};

class LibraryUpdates : public Feature {
  public:
    static constexpr uint32_t kLargestPage = 500;

    LibraryUpdates(Stage& stage, unsigned int id, const DeviceProfile& profile, MediaLibrary& library);

    void reset();

    int startInformation();
    int stopInformation();
    int start(const LibraryRequest& request);
    int stop(const char* libraryId);

    /// Whether @p libraryId names the device's library; a null or an empty one means it, too.
    bool isOurs(const char* libraryId) const;

    /// The library changes while clients look on.
    void removeTrack(uint64_t id);
    void removePlaylist(uint64_t id);
    void addTrack(const TrackPointer& track);

    void describe(std::string* out) const;

  private:
    void sendPage();
    LibraryPage nextPage();
    uint32_t pageSize() const;
    void tellPage(LibraryPage page);
    void changed(LibraryPage page);

    const DeviceProfile& mProfile;
    MediaLibrary& mLibrary;
    bool mInformed = false;
    std::optional<LibraryRequest> mAsked;
    size_t mSent = 0;  ///< entries of the library, playlists after tracks
    Timer mNextPage;
};

}  // namespace accessory::simulator
