#include "simulator/model/Player.h"

#include <algorithm>

namespace accessory::simulator {

namespace {

constexpr milliseconds kBeginningOfTrack{3000};

// std::shuffle is not the same in every standard library; this is.
void shuffleFrom(TrackList::iterator first, TrackList::iterator last, std::mt19937& random) {
    for (auto left = last - first; left > 1; --left) {
        std::iter_swap(first + left - 1,
                       first + static_cast<std::ptrdiff_t>(random() % static_cast<uint32_t>(left)));
    }
}

}  // namespace

bool Player::load(TrackList queue, size_t start) {
    if (start >= queue.size()) return false;
    mInOrder = queue;
    mQueue = std::move(queue);
    mShuffle = Shuffle::kOff;
    return jumpTo(start) && play();
}

bool Player::play() {
    if (mQueue.empty()) return false;
    mPlayback = Playback::kPlaying;
    return true;
}

bool Player::pause() {
    if (mPlayback != Playback::kPlaying) return false;
    mPlayback = Playback::kPaused;
    return true;
}

bool Player::next() {
    if (mIndex + 1 < mQueue.size()) return jumpTo(mIndex + 1);
    return mRepeat == Repeat::kAll && jumpTo(0);
}

bool Player::previous() {
    if (mElapsed >= kBeginningOfTrack || mIndex == 0) return jumpTo(mIndex);
    return jumpTo(mIndex - 1);
}

bool Player::seek(milliseconds elapsed) {
    if (mQueue.empty() || elapsed.count() < 0 || elapsed.count() > current()->durationMs) return false;
    mElapsed = elapsed;
    return true;
}

bool Player::jumpTo(size_t queueIndex) {
    if (queueIndex >= mQueue.size()) return false;
    mIndex = queueIndex;
    mElapsed = milliseconds(0);
    return true;
}

void Player::setShuffle(Shuffle shuffle, std::mt19937& random) {
    if (shuffle == mShuffle) return;
    mShuffle = shuffle;
    if (mQueue.empty()) return;
    const TrackPointer playing = current();
    if (shuffle == Shuffle::kOff) {
        mQueue = mInOrder;
        mIndex = static_cast<size_t>(std::find(mQueue.begin(), mQueue.end(), playing) - mQueue.begin());
    } else {
        shuffleFrom(mQueue.begin() + static_cast<std::ptrdiff_t>(mIndex) + 1, mQueue.end(), random);
    }
}

void Player::advance(milliseconds time) {
    while (mPlayback == Playback::kPlaying && time >= remaining()) {
        time -= remaining();
        endOfTrack();
    }
    if (mPlayback == Playback::kPlaying) mElapsed += time;
}

milliseconds Player::remaining() const {
    // Never 0, so that a queue of empty tracks comes to an end too.
    return mQueue.empty() ? milliseconds::max()
                          : std::max(milliseconds(current()->durationMs) - mElapsed, milliseconds(1));
}

void Player::endOfTrack() {
    if (mRepeat == Repeat::kOne) {
        mElapsed = milliseconds(0);
    } else if (!next()) {
        jumpTo(0);
        mPlayback = Playback::kStopped;
    }
}

}  // namespace accessory::simulator
