#include "simulator/device/NowPlaying.h"

#include "simulator/Text.h"

namespace accessory::simulator {

namespace {

constexpr milliseconds kTickTime{1000};

}  // namespace

NowPlaying::NowPlaying(Stage& stage, unsigned int id, MediaLibrary& library)
    : Feature(stage, id), mLibrary(library), mTick(stage) {}

void NowPlaying::reset() {
    mTick.stop();
    mPlayer.clear();
    mAsked.reset();
}

int NowPlaying::start(uint32_t attributeMask, uint32_t playbackMask) {
    catchUp();
    mAsked = Asked{attributeMask, playbackMask};
    mToldView = view();
    mToldTrack = mPlayer.current();
    tellFields(mToldView, mToldTrack, attributeMask, playbackMask);
    return kDone;
}

int NowPlaying::stop() {
    if (!mAsked) return kWrongState;
    mAsked.reset();
    return kDone;
}

int NowPlaying::remote(unsigned int event) {
    switch (event) {
        case kPlay:
            return change([this] { return play(); });
        case kPause:
            return change([this] { return mPlayer.pause(); });
        case kTogglePlay:
            return change([this] { return mPlayer.pause() || play(); });
        case kNext:
            return change([this] { return mPlayer.next(); });
        case kPrevious:
            return change([this] { return mPlayer.previous(); });
        default:
            return kBadArgument;
    }
}

int NowPlaying::set(unsigned int setting, unsigned int value) {
    switch (setting) {
        case kElapsedTime:
            return change([&] { return mPlayer.seek(milliseconds(value)); });
        case kQueueIndex:
            return change([&] { return mPlayer.jumpTo(value); });
        case kShuffleMode:
            if (value > 1) return kBadArgument;
            return change([&] { return mPlayer.setShuffle(Shuffle(value), mStage.random()), true; });
        case kRepeatMode:
            if (value > 2) return kBadArgument;
            return change([&] { return mPlayer.setRepeat(Repeat(value)), true; });
        default:
            return kBadArgument;
    }
}

int NowPlaying::load(const TrackList& queue, size_t start, Shuffle shuffle) {
    return change([&] {
        const bool loaded = mPlayer.load(queue, start);
        if (loaded) mPlayer.setShuffle(shuffle, mStage.random());
        return loaded;
    });
}

void NowPlaying::setApplication(const Application& application) {
    change([&] {
        mAppName = application.name;
        mAppId = application.id;
        return true;
    });
}

void NowPlaying::describe(std::string* out) {
    catchUp();
    const TrackPointer track = mPlayer.current();
    appendLine(out, "  player: %s, track %zu of %zu%s%s, %s of %s", nameOf(mPlayer.playback()),
               track != nullptr ? mPlayer.queueIndex() + 1 : 0, mPlayer.queue().size(),
               track != nullptr ? " " : "", track != nullptr ? quoted(track->title).c_str() : "",
               asMinutes(mPlayer.elapsed()).c_str(),
               asMinutes(milliseconds(track != nullptr ? track->durationMs : 0)).c_str());
    if (mAsked)
        appendLine(out, "  now playing: asked for attributes 0x%x, playback 0x%x", mAsked->attributes,
                   mAsked->playback);
}

/// An idle player begins with the library.
bool NowPlaying::play() { return mPlayer.play() || mPlayer.load(mLibrary.tracks(), 0); }

void NowPlaying::catchUp() {
    const milliseconds now = mStage.now();
    mPlayer.advance(now - mUpTo);
    mUpTo = now;
}

void NowPlaying::publish() {
    tellChanges(view(), mPlayer.current());
    if (mPlayer.playback() != Playback::kPlaying) return mTick.stop();
    mTick.start(std::min(kTickTime, mPlayer.remaining()), [this] {
        catchUp();
        publish();
    });
}

void NowPlaying::tellChanges(const PlaybackView& view, const TrackPointer& track) {
    if (!mAsked) return;
    const uint32_t attributes = track != mToldTrack ? mAsked->attributes : 0;
    const uint32_t playback = differences(view, mToldView) & mAsked->playback;
    mToldView = view;
    mToldTrack = track;
    if (attributes == 0 && playback == 0) return;
    tellFields(view, track, attributes, playback);
}

void NowPlaying::tellFields(const PlaybackView& view, const TrackPointer& track, uint32_t attributes,
                            uint32_t playback) {
    tell([id = mId, view, track, attributes, playback](Clients& clients) {
        // Nothing is loaded: the record is there and has no fields.
        const Track nothing;
        const uint32_t known = track != nullptr ? attributes : 0;
        clients.nowPlayingUpdate(id, attributeRecord(track != nullptr ? *track : nothing, known),
                                 playbackRecord(view, playback));
    });
}

PlaybackView NowPlaying::view() const {
    return {static_cast<int32_t>(mPlayer.playback()),
            static_cast<int32_t>(mPlayer.elapsed().count()),
            static_cast<int32_t>(mPlayer.queueIndex()),
            static_cast<int32_t>(mPlayer.queue().size()),
            static_cast<int32_t>(mPlayer.shuffle()),
            static_cast<int32_t>(mPlayer.repeat()),
            mAppName,
            mAppId,
            mLibrary.id};
}

}  // namespace accessory::simulator
