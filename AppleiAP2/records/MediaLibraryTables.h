// The tables of the media library records.
#pragma once

#include <accessory/MediaLibraryRecords.h>

#include "AppleiAP2/records/GroupList.h"
#include "AppleiAP2/records/Kinds.h"

namespace accessory {

/// The table of a media item; bit 20 has no row.
struct MediaItemTable {
    using Plain = iAP2MediaItem;
    using Parcelable = IiAP2MediaItem;
    using Mask = IiAP2MediaItem::Mask;

    static constexpr const char* kName = "iAP2MediaItem";
    static constexpr auto kFields = fieldTable(
        field(u64, Mask::kId, "id", &Plain::getId, &Parcelable::mId),
        field(cstr, Mask::kTitle, "title", &Plain::getTitle, &Parcelable::mTitle),
        field(i32, Mask::kMediaType, "mediaType", &Plain::getMediaType, &Parcelable::mMediaType),
        field(i32, Mask::kRating, "rating", &Plain::getRating, &Parcelable::mRating),
        field(i32, Mask::kPlaybackDuration, "playbackDuration", &Plain::getPlaybackDuration,
              &Parcelable::mPlaybackDuration),
        field(u64, Mask::kAlbumId, "albumId", &Plain::getAlbumId, &Parcelable::mAlbumId),
        field(cstr, Mask::kAlbumTitle, "albumTitle", &Plain::getAlbumTitle, &Parcelable::mAlbumTitle),
        field(i32, Mask::kAlbumTrackNumber, "albumTrackNumber", &Plain::getAlbumTrackNumber,
              &Parcelable::mAlbumTrackNumber),
        field(i32, Mask::kAlbumTrackCount, "albumTrackCount", &Plain::getAlbumTrackCount,
              &Parcelable::mAlbumTrackCount),
        field(i32, Mask::kAlbumDiscNumber, "albumDiscNumber", &Plain::getAlbumDiscNumber,
              &Parcelable::mAlbumDiscNumber),
        field(i32, Mask::kAlbumDiscCount, "albumDiscCount", &Plain::getAlbumDiscCount,
              &Parcelable::mAlbumDiscCount),
        field(u64, Mask::kArtistId, "artistId", &Plain::getArtistId, &Parcelable::mArtistId),
        field(cstr, Mask::kArtist, "artist", &Plain::getArtist, &Parcelable::mArtist),
        field(u64, Mask::kAlbumArtistId, "albumArtistId", &Plain::getAlbumArtistId,
              &Parcelable::mAlbumArtistId),
        field(cstr, Mask::kAlbumArtist, "albumArtist", &Plain::getAlbumArtist, &Parcelable::mAlbumArtist),
        field(u64, Mask::kGenreId, "genreId", &Plain::getGenreId, &Parcelable::mGenreId),
        field(cstr, Mask::kGenre, "genre", &Plain::getGenre, &Parcelable::mGenre),
        field(u64, Mask::kComposerId, "composerId", &Plain::getComposerId, &Parcelable::mComposerId),
        field(cstr, Mask::kComposer, "composer", &Plain::getComposer, &Parcelable::mComposer),
        field(i32, Mask::kIsPartOfCompilation, "isPartOfCompilation", &Plain::getIsPartOfCompilation,
              &Parcelable::mIsPartOfCompilation),
        field(i32, Mask::kIsLikeSupport, "isLikeSupport", &Plain::getIsLikeSupport,
              &Parcelable::mIsLikeSupport),
        field(i32, Mask::kIsBanSupport, "isBanSupport", &Plain::getIsBanSupport, &Parcelable::mIsBanSupport),
        field(i32, Mask::kIsLiked, "isLiked", &Plain::getIsLiked, &Parcelable::mIsLiked),
        field(i32, Mask::kIsBanned, "isBanned", &Plain::getIsBanned, &Parcelable::mIsBanned),
        field(i32, Mask::kIsResidenOnDevice, "isResidenOnDevice", &Plain::getIsResidenOnDevice,
              &Parcelable::mIsResidenOnDevice),
        field(i32, Mask::kArtworkFileTransferId, "artworkFileTransferId", &Plain::getArtworkFileTransferId,
              &Parcelable::mArtworkFileTransferId),
        field(i32, Mask::kChapterCount, "chapterCount", &Plain::getChapterCount, &Parcelable::mChapterCount));
};

/// The table of a playlist.
struct MediaPlaylistTable {
    using Plain = iAP2MediaPlaylist;
    using Parcelable = IiAP2MediaPlaylist;
    using Mask = IiAP2MediaPlaylist::Mask;

    static constexpr const char* kName = "iAP2MediaPlaylist";
    static constexpr auto kFields = fieldTable(
        field(u64, Mask::kId, "id", &Plain::getId, &Parcelable::mId),
        field(cstr, Mask::kName, "name", &Plain::getName, &Parcelable::mName),
        field(u64, Mask::kParentId, "parentId", &Plain::getParentId, &Parcelable::mParentId),
        field(i32, Mask::kIsGeniusMix, "isGeniusMix", &Plain::getIsGeniusMix, &Parcelable::mIsGeniusMix),
        field(i32, Mask::kIsFolder, "isFolder", &Plain::getIsFolder, &Parcelable::mIsFolder),
        field(i32, Mask::kContainedMediaItems, "containedMediaItems", &Plain::getContainedMediaItems,
              &Parcelable::mContainedMediaItems),
        field(i32, Mask::kIsiTunesRadioStation, "isiTunesRadioStation", &Plain::getIsiTunesRadioStation,
              &Parcelable::mIsiTunesRadioStation));
};

/// The table of a deleted item, which has no mask.
struct MediaItemDelIdTable {
    using Plain = iAP2MediaItemDelId;
    using Parcelable = IiAP2MediaItemDelId;

    static constexpr const char* kName = "iAP2MediaItemDelId";
    static constexpr auto kFields =
        fieldTable(field(u64, kAlwaysPresent, "delId", &Plain::getDelId, &Parcelable::mDelId));
};

/// The table of a deleted playlist, which has no mask.
struct MediaPlaylistDelIdTable {
    using Plain = iAP2MediaPlaylistDelId;
    using Parcelable = IiAP2MediaPlaylistDelId;

    static constexpr const char* kName = "iAP2MediaPlaylistDelId";
    static constexpr auto kFields =
        fieldTable(field(u64, kAlwaysPresent, "delId", &Plain::getDelId, &Parcelable::mDelId));
};

/// The table of the library update; the group list is there whatever bits 2 to 5 say.
struct MediaLibDataTable {
    using Plain = iAP2MediaLibData;
    using Parcelable = IiAP2MediaLibData;
    using Mask = IiAP2MediaLibData::Mask;

    static constexpr const char* kName = "iAP2MediaLibData";
    static constexpr auto kFields =
        fieldTable(field(AssertedString("ID"), Mask::kId, "id", &Plain::getId, &Parcelable::mId),
                   field(AssertedString("revision"), Mask::kRevision, "revision", &Plain::getRevision,
                         &Parcelable::mRevision),
                   groupListField("groupData", &Parcelable::mGroupData),
                   field(u8AsI32, Mask::kMediaLibReset, "mediaLibReset", &Plain::getMediaLibReset,
                         &Parcelable::mMediaLibReset),
                   field(u8AsI32, Mask::kUpdateProgress, "updateProgress", &Plain::getUpdateProgress,
                         &Parcelable::mUpdateProgress),
                   field(u8AsI32, Mask::kIsHidingRemoteItems, "isHidingRemoteItems",
                         &Plain::getIsHidingRemoteItems, &Parcelable::mIsHidingRemoteItems),
                   field(u8AsI32, Mask::kPlayAllSongCapable, "playAllSongCapable",
                         &Plain::getPlayAllSongCapable, &Parcelable::mPlayAllSongCapable));
};

}  // namespace accessory
