// What the benchmarked messages say, for all formats. Strings belong to the program.
#pragma once

#include <cstdint>

namespace accessory::bench {

/// The attributes of a song, as the device tells them when it starts to play.
struct SongSample {
    uint64_t id = 0x1122334455667788;
    const char* title = "Morning Train to the Coast";
    int32_t durationMs = 337000;
    const char* albumTitle = "Platform Nine and Other Stories";
    int32_t albumTrackNumber = 3;
    int32_t albumTrackCount = 5;
    const char* artist = "The Commuters";
    const char* genre = "Jazz";
    const char* composer = "A. Composer";
    int32_t isLikeSupported = 1;
    int32_t isLiked = 1;
    int32_t artworkFileTransferId = 17;
};

/// The state of the player that goes with it.
struct PlayerSample {
    int32_t status = 1;
    int32_t elapsedTime = 12000;
    int32_t queueIndex = 2;
    int32_t queueCount = 5;
    int32_t shuffleMode = 0;
    int32_t repeatMode = 1;
    const char* appName = "Music";
    int32_t playbackSpeed = 100;
    const char* appBundleId = "com.example.music";
};

/// A route under guidance.
struct RouteSample {
    uint16_t displayIds[1] = {1};
    int32_t guidanceState = 1;
    int32_t maneuverState = 2;
    const char* currentRoadName = "High Street";
    const char* destinationName = "Home";
    uint64_t eta = 1'700'000'000;
    uint64_t timeRemaining = 1260;
    int32_t distanceRemaining = 12400;
    const char* distanceRemainingText = "12.4";
    int32_t distanceRemainingUnits = 0;
    int32_t distanceToManeuver = 350;
    const char* distanceToManeuverText = "350";
    int32_t distanceToManeuverUnits = 2;
    uint16_t currentManeuvers[3] = {4, 5, 6};
    uint16_t maneuverCount = 9;
    const char* sourceName = "Maps";
};

/// A media library, and one of its items; only the identifiers differ from item to item.
struct LibrarySample {
    static constexpr uint32_t kItems = 10'000;
    const char* id = "1122334455667788";
    const char* revision = "42";

    uint64_t itemId(uint32_t index) const { return 0x1122334455660000 + index; }
    const char* itemTitle = "Morning Train to the Coast";
    int32_t itemDuration = 337000;
    const char* itemAlbumTitle = "Platform Nine and Other Stories";
    const char* itemArtist = "The Commuters";
};

inline constexpr SongSample kSong;
inline constexpr PlayerSample kPlayer;
inline constexpr RouteSample kRoute;
inline constexpr LibrarySample kLibrary;

}  // namespace accessory::bench
