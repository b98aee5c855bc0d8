// Player: a queue of tracks, a place in it, and what play, pause, skip and seek do to them.
#pragma once

#include <chrono>
#include <random>

#include "simulator/model/MediaLibrary.h"

namespace accessory::simulator {

using std::chrono::milliseconds;

/// The numbers are those that travel.
enum class Playback : int32_t { kStopped = 0, kPlaying = 1, kPaused = 2 };
enum class Shuffle : int32_t { kOff = 0, kSongs = 1 };
enum class Repeat : int32_t { kOff = 0, kOne = 1, kAll = 2 };

class Player {
  public:
    /// Replaces the queue and plays from @p start. @return false, and nothing changes, when the queue is
    /// empty or ends before @p start.
    bool load(TrackList queue, size_t start);

    /// Each: @return false when there is nothing to do it to.
    bool play();
    bool pause();
    bool next();
    /// To the beginning of the track, or, within its first three seconds, to the track before it.
    bool previous();
    /// @return false beyond the end of the track.
    bool seek(milliseconds elapsed);
    bool jumpTo(size_t queueIndex);

    /// Puts the rest of the queue in another order, or back into its own.
    void setShuffle(Shuffle shuffle, std::mt19937& random);
    void setRepeat(Repeat repeat) { mRepeat = repeat; }

    /// Lets time pass; a track that ends is followed by the next one.
    void advance(milliseconds time);
    /// How long the current track will go on playing.
    milliseconds remaining() const;

    void clear() { *this = Player(); }

    Playback playback() const { return mPlayback; }
    Shuffle shuffle() const { return mShuffle; }
    Repeat repeat() const { return mRepeat; }
    milliseconds elapsed() const { return mElapsed; }
    size_t queueIndex() const { return mIndex; }
    const TrackList& queue() const { return mQueue; }
    /// Null when nothing is loaded.
    TrackPointer current() const { return mQueue.empty() ? nullptr : mQueue[mIndex]; }

  private:
    void endOfTrack();

    TrackList mQueue;
    TrackList mInOrder;  ///< the queue before it was shuffled
    size_t mIndex = 0;
    milliseconds mElapsed{0};
    Playback mPlayback = Playback::kStopped;
    Shuffle mShuffle = Shuffle::kOff;
    Repeat mRepeat = Repeat::kOff;
};

}  // namespace accessory::simulator
