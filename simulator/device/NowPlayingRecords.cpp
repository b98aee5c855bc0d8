#include "simulator/device/NowPlayingRecords.h"

namespace accessory::simulator {

using PlaybackMask = iAP2MediaPlaybackMask;

namespace {

constexpr int32_t kNormalSpeed = 100;  // percent

}  // namespace

uint32_t differences(const PlaybackView& one, const PlaybackView& other) {
    uint32_t bits = 0;
    const auto compare = [&](auto PlaybackView::*field, uint32_t bit) {
        if (one.*field != other.*field) bits |= bit;
    };
    compare(&PlaybackView::playback, PlaybackMask::kStats | PlaybackMask::kPlaybackSpeedValue);
    compare(&PlaybackView::elapsedMs, PlaybackMask::kElaspedTime);
    compare(&PlaybackView::queueIndex, PlaybackMask::kQueueIndex);
    compare(&PlaybackView::queueCount, PlaybackMask::kQueueCount);
    compare(&PlaybackView::shuffle, PlaybackMask::kShuffMode);
    compare(&PlaybackView::repeat, PlaybackMask::kReapedMode);
    compare(&PlaybackView::appName, PlaybackMask::kAppName);
    compare(&PlaybackView::appId, PlaybackMask::kPlaybackAppBundkeID);
    compare(&PlaybackView::libraryId, PlaybackMask::kLibraryUniqueldID);
    return bits;
}

android::sp<iAP2ItemAttribute> attributeRecord(const Track& track, uint32_t mask) {
    const android::sp<IiAP2ItemAttribute> record = new IiAP2ItemAttribute();
    record->setID(track.id)
        .setTitle(track.title.c_str())
        .setDurationInMillSec(track.durationMs)
        .setAlbumTitle(track.album.c_str())
        .setAlbumTrackNum(track.trackNumber)
        .setAlbumTrackCount(track.trackCount)
        .setAlbumDiskNum(track.discNumber)
        .setAlbumDiskCount(track.discCount)
        .setArtist(track.artist.c_str())
        .setGenre(track.genre.c_str())
        .setComposer(track.composer.c_str())
        .setIsLikeSupported(1)
        .setIsBanSupported(1)
        .setIsLiked(track.liked ? 1 : 0)
        .setIsBanned(track.banned ? 1 : 0)
        .setArtWorkFileTransferID(track.artworkTransferId)
        .setChapterCount(track.chapterCount);
    record->mMask->mask &= mask;
    return record;
}

android::sp<iAP2MediaPlayback> playbackRecord(const PlaybackView& view, uint32_t mask) {
    const android::sp<IiAP2MediaPlayback> record = new IiAP2MediaPlayback();
    record->setstats(view.playback)
        .setElaspedTime(view.elapsedMs)
        .setQueueIndex(view.queueIndex)
        .setQueueCount(view.queueCount)
        .setQueueChapterIndex(0)
        .setShuffMode(view.shuffle)
        .setReapedMode(view.repeat)
        .setAppName(view.appName.c_str())
        .setLibraryUniqueldID(view.libraryId.c_str())
        .setRaidoAd(0)
        .setRadioStationName("")
        .setRadioMediaPlayListID(0)
        .setPlaybackSpeedValue(view.playback == 1 ? kNormalSpeed : 0)
        .setSetElapsedTimeAvailable(1)
        .setPlaybackQueueListAvail(0)
        .setPlaybackQueueListTransferID(0)
        .setPlaybackAppBundkeID(view.appId.c_str());
    record->mMask->mask &= mask;
    return record;
}

}  // namespace accessory::simulator
