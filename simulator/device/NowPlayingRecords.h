// The now-playing records made from what the player does.
#pragma once

#include <accessory/NowPlayingRecords.h>

#include <string>

#include "simulator/model/MediaLibrary.h"

namespace accessory::simulator {

/// The player as clients see it.
struct PlaybackView {
    int32_t playback = 0;
    int32_t elapsedMs = 0;
    int32_t queueIndex = 0;
    int32_t queueCount = 0;
    int32_t shuffle = 0;
    int32_t repeat = 0;
    std::string appName;
    std::string appId;
    std::string libraryId;
};

/// The fields, as bits of iAP2MediaPlaybackMask, in which two views differ.
uint32_t differences(const PlaybackView& one, const PlaybackView& other);

/// Records with the fields of @p mask. Their strings are those of the argument, which must outlive them.
android::sp<iAP2ItemAttribute> attributeRecord(const Track& track, uint32_t mask);
android::sp<iAP2MediaPlayback> playbackRecord(const PlaybackView& view, uint32_t mask);

}  // namespace accessory::simulator
