// Builders of what plays; how they work is told in <accessory/testing/RecordBuilder.h>.
#pragma once

#include <accessory/NowPlayingRecords.h>
#include <accessory/testing/RecordBuilder.h>

#include <string>

namespace accessory::testkit {

/// The item that is playing: ItemAttribute().title("First Light").artist("Clara Holm").
class ItemAttribute : public RecordBuilder<IiAP2ItemAttribute> {
  public:
    /// @name Fields
    /// @{

    /// Sets the record's field of that name, and marks it present. Arrays and texts are copied.
    /// @return this builder, for the next field.
    ItemAttribute& id(uint64_t value) { return set(this, &Record::setID, value); }
    ItemAttribute& title(const Text& value) { return set(this, &Record::setTitle, text(value)); }
    ItemAttribute& durationInMillSec(int32_t value) {
        return set(this, &Record::setDurationInMillSec, value);
    }
    ItemAttribute& albumTitle(const Text& value) { return set(this, &Record::setAlbumTitle, text(value)); }
    ItemAttribute& albumTrackNum(int32_t value) { return set(this, &Record::setAlbumTrackNum, value); }
    ItemAttribute& albumTrackCount(int32_t value) { return set(this, &Record::setAlbumTrackCount, value); }
    ItemAttribute& albumDiskNum(int32_t value) { return set(this, &Record::setAlbumDiskNum, value); }
    ItemAttribute& albumDiskCount(int32_t value) { return set(this, &Record::setAlbumDiskCount, value); }
    ItemAttribute& artist(const Text& value) { return set(this, &Record::setArtist, text(value)); }
    ItemAttribute& genre(const Text& value) { return set(this, &Record::setGenre, text(value)); }
    ItemAttribute& composer(const Text& value) { return set(this, &Record::setComposer, text(value)); }
    ItemAttribute& isLikeSupported(int32_t value) { return set(this, &Record::setIsLikeSupported, value); }
    ItemAttribute& isBanSupported(int32_t value) { return set(this, &Record::setIsBanSupported, value); }
    ItemAttribute& isLiked(int32_t value) { return set(this, &Record::setIsLiked, value); }
    ItemAttribute& isBanned(int32_t value) { return set(this, &Record::setIsBanned, value); }
    ItemAttribute& artWorkFileTransferID(int32_t value) {
        return set(this, &Record::setArtWorkFileTransferID, value);
    }
    ItemAttribute& chapterCount(int32_t value) { return set(this, &Record::setChapterCount, value); }

    /// @}
};

/// The state of the player: MediaPlayback().stats(1).elaspedTime(12000).
class MediaPlayback : public RecordBuilder<IiAP2MediaPlayback> {
  public:
    /// @name Fields
    /// @{

    /// Sets the record's field of that name, and marks it present. Arrays and texts are copied.
    /// @return this builder, for the next field.
    MediaPlayback& stats(int32_t value) { return set(this, &Record::setstats, value); }
    MediaPlayback& elaspedTime(int32_t value) { return set(this, &Record::setElaspedTime, value); }
    MediaPlayback& queueIndex(int32_t value) { return set(this, &Record::setQueueIndex, value); }
    MediaPlayback& queueCount(int32_t value) { return set(this, &Record::setQueueCount, value); }
    MediaPlayback& queueChapterIndex(int32_t value) {
        return set(this, &Record::setQueueChapterIndex, value);
    }
    MediaPlayback& shuffMode(int32_t value) { return set(this, &Record::setShuffMode, value); }
    MediaPlayback& reapedMode(int32_t value) { return set(this, &Record::setReapedMode, value); }
    MediaPlayback& appName(const Text& value) { return set(this, &Record::setAppName, text(value)); }
    MediaPlayback& libraryUniqueldID(const Text& value) {
        return set(this, &Record::setLibraryUniqueldID, text(value));
    }
    MediaPlayback& raidoAd(int32_t value) { return set(this, &Record::setRaidoAd, value); }
    MediaPlayback& radioStationName(const Text& value) {
        return set(this, &Record::setRadioStationName, text(value));
    }
    MediaPlayback& radioMediaPlayListID(uint64_t value) {
        return set(this, &Record::setRadioMediaPlayListID, value);
    }
    MediaPlayback& playbackSpeedValue(int32_t value) {
        return set(this, &Record::setPlaybackSpeedValue, value);
    }
    MediaPlayback& setElapsedTimeAvailable(int32_t value) {
        return set(this, &Record::setSetElapsedTimeAvailable, value);
    }
    MediaPlayback& playbackQueueListAvail(int32_t value) {
        return set(this, &Record::setPlaybackQueueListAvail, value);
    }
    MediaPlayback& playbackQueueListTransferID(int32_t value) {
        return set(this, &Record::setPlaybackQueueListTransferID, value);
    }
    MediaPlayback& playbackAppBundkeID(const Text& value) {
        return set(this, &Record::setPlaybackAppBundkeID, text(value));
    }

    /// @}
};

}  // namespace accessory::testkit
