// NowPlaying: the device's player, and the events about it.
#pragma once

#include <optional>

#include "simulator/device/Feature.h"
#include "simulator/device/NowPlayingRecords.h"
#include "simulator/device/Profile.h"
#include "simulator/engine/Timer.h"
#include "simulator/model/Player.h"

namespace accessory::simulator {

class NowPlaying : public Feature {
  public:
    /// First value of dispatchMediaPlaybackRemoteEvent(); the second one is not looked at.
    enum RemoteEvent : unsigned int { kPlay = 0, kPause = 1, kTogglePlay = 2, kNext = 3, kPrevious = 4 };
    /// First value of setNowPlayingInfo(): what to set to the second value.
    enum Setting : unsigned int { kElapsedTime = 0, kQueueIndex = 1, kShuffleMode = 2, kRepeatMode = 3 };

    NowPlaying(Stage& stage, unsigned int id, MediaLibrary& library);

    void reset();

    /// Begins events: first with all asked fields, then with those that changed.
    int start(uint32_t attributeMask, uint32_t playbackMask);
    int stop();

    int remote(unsigned int event);
    int set(unsigned int setting, unsigned int value);
    int load(const TrackList& queue, size_t start, Shuffle shuffle = Shuffle::kOff);
    void setApplication(const Application& application);

    bool active() const { return mAsked.has_value(); }
    void describe(std::string* out);

  private:
    struct Asked {
        uint32_t attributes;
        uint32_t playback;
    };

    /// Brings the player up to the present, changes it, and tells what changed.
    template <typename Change>
    int change(const Change& make) {
        catchUp();
        const bool done = make();
        publish();
        return done ? kDone : kWrongState;
    }
    bool play();
    void catchUp();
    void publish();
    void tellChanges(const PlaybackView& view, const TrackPointer& track);
    void tellFields(const PlaybackView& view, const TrackPointer& track, uint32_t attributes,
                    uint32_t playback);
    PlaybackView view() const;

    MediaLibrary& mLibrary;
    Player mPlayer;
    milliseconds mUpTo{0};
    std::string mAppName;
    std::string mAppId;
    std::optional<Asked> mAsked;
    PlaybackView mToldView;
    TrackPointer mToldTrack;
    Timer mTick;
};

}  // namespace accessory::simulator
