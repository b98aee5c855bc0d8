// The tables of the now-playing records. In the attributes a null string is sent as such; in the playback
// record it is left out and misleads the reader.
#pragma once

#include <accessory/NowPlayingRecords.h>

#include "AppleiAP2/records/Kinds.h"

namespace accessory {

/// The table of the item attributes.
struct ItemAttributeTable {
    using Plain = iAP2ItemAttribute;
    using Parcelable = IiAP2ItemAttribute;
    using Mask = IiAP2ItemAttribute::Mask;

    static constexpr const char* kName = "iAP2ItemAttribute";
    static constexpr auto kFields = fieldTable(
        field(u64, Mask::kID, "ID", &Plain::getID, &Parcelable::mID),
        field(countedCstr, Mask::kTitle, "title", &Plain::getTitle, &Parcelable::mTitle),
        field(i32, Mask::kDurationInMillSec, "durationInMillSec", &Plain::getDurationInMillSec,
              &Parcelable::mDurationInMillSec),
        field(countedCstr, Mask::kAlbumTitle, "albumTitle", &Plain::getAlbumTitle, &Parcelable::mAlbumTitle),
        field(i32, Mask::kAlbumTrackNum, "albumTrackNum", &Plain::getAlbumTrackNum,
              &Parcelable::mAlbumTrackNum),
        field(i32, Mask::kAlbumTrackCount, "albumTrackCount", &Plain::getAlbumTrackCount,
              &Parcelable::mAlbumTrackCount),
        field(i32, Mask::kAlbumDiskNum, "albumDiskNum", &Plain::getAlbumDiskNum, &Parcelable::mAlbumDiskNum),
        field(i32, Mask::kAlbumDiskCount, "albumDiskCount", &Plain::getAlbumDiskCount,
              &Parcelable::mAlbumDiskCount),
        field(countedCstr, Mask::kArtist, "artist", &Plain::getArtist, &Parcelable::mArtist),
        field(countedCstr, Mask::kGenre, "genre", &Plain::getGenre, &Parcelable::mGenre),
        field(countedCstr, Mask::kComposer, "composer", &Plain::getComposer, &Parcelable::mComposer),
        field(i32, Mask::kIsLikeSupported, "isLikeSupported", &Plain::getIsLikeSupported,
              &Parcelable::mIsLikeSupported),
        field(i32, Mask::kIsBanSupported, "isBanSupported", &Plain::getIsBanSupported,
              &Parcelable::mIsBanSupported),
        field(i32, Mask::kIsLiked, "isLiked", &Plain::getIsLiked, &Parcelable::mIsLiked),
        field(i32, Mask::kIsBanned, "isBanned", &Plain::getIsBanned, &Parcelable::mIsBanned),
        field(i32, Mask::kArtWorkFileTransferID, "artWorkFileTransferID", &Plain::getArtWorkFileTransferID,
              &Parcelable::mArtWorkFileTransferID),
        field(i32, Mask::kChapterCount, "chapterCount", &Plain::getChapterCount, &Parcelable::mChapterCount));
};

/// The table of the player state.
struct MediaPlaybackTable {
    using Plain = iAP2MediaPlayback;
    using Parcelable = IiAP2MediaPlayback;
    using Mask = IiAP2MediaPlayback::Mask;

    static constexpr const char* kName = "iAP2MediaPlayback";
    static constexpr auto kFields = fieldTable(
        field(i32, Mask::kStats, "stats", &Plain::getstats, &Parcelable::mStats),
        field(i32, Mask::kElaspedTime, "elaspedTime", &Plain::getElaspedTime, &Parcelable::mElaspedTime),
        field(i32, Mask::kQueueIndex, "queueIndex", &Plain::getQueueIndex, &Parcelable::mQueueIndex),
        field(i32, Mask::kQueueCount, "queueCount", &Plain::getQueueCount, &Parcelable::mQueueCount),
        field(i32, Mask::kQueueChapterIndex, "queueChapterIndex", &Plain::getQueueChapterIndex,
              &Parcelable::mQueueChapterIndex),
        field(i32, Mask::kShuffMode, "shuffMode", &Plain::getShuffMode, &Parcelable::mShuffMode),
        field(i32, Mask::kReapedMode, "reapedMode", &Plain::getReapedMode, &Parcelable::mReapedMode),
        field(omittedCstr, Mask::kAppName, "appName", &Plain::getAppName, &Parcelable::mAppName),
        field(omittedCstr, Mask::kLibraryUniqueldID, "libraryUniqueldID", &Plain::getLibraryUniqueldID,
              &Parcelable::mLibraryUniqueldID),
        field(i32, Mask::kRaidoAd, "raidoAd", &Plain::getRaidoAd, &Parcelable::mRaidoAd),
        field(omittedCstr, Mask::kRadioStationName, "radioStationName", &Plain::getRadioStationName,
              &Parcelable::mRadioStationName),
        field(u64, Mask::kRadioMediaPlayListID, "radioMediaPlayListID", &Plain::getRadioMediaPlayListID,
              &Parcelable::mRadioMediaPlayListID),
        field(i32, Mask::kPlaybackSpeedValue, "playbackSpeedValue", &Plain::getPlaybackSpeedValue,
              &Parcelable::mPlaybackSpeedValue),
        field(i32, Mask::kSetElapsedTimeAvailable, "setElapsedTimeAvailable",
              &Plain::getSetElapsedTimeAvailable, &Parcelable::mSetElapsedTimeAvailable),
        field(i32, Mask::kPlaybackQueueListAvail, "playbackQueueListAvail", &Plain::getPlaybackQueueListAvail,
              &Parcelable::mPlaybackQueueListAvail),
        field(i32, Mask::kPlaybackQueueListTransferID, "playbackQueueListTransferID",
              &Plain::getPlaybackQueueListTransferID, &Parcelable::mPlaybackQueueListTransferID),
        field(omittedCstr, Mask::kPlaybackAppBundkeID, "playbackAppBundkeID", &Plain::getPlaybackAppBundkeID,
              &Parcelable::mPlaybackAppBundkeID));
};

}  // namespace accessory
