// Builders of what a media library holds; how they work is told in <accessory/testing/RecordBuilder.h>.
#pragma once

#include <accessory/MediaLibraryRecords.h>
#include <accessory/testing/RecordBuilder.h>

#include <string>

namespace accessory::testkit {

/// A song, film or the like: MediaItem().id(7).title("First Light").
class MediaItem : public RecordBuilder<IiAP2MediaItem> {
  public:
    /// @name Fields
    /// @{

    /// Sets the record's field of that name, and marks it present. Arrays and texts are copied.
    /// @return this builder, for the next field.
    MediaItem& id(uint64_t value) { return set(this, &Record::setId, value); }
    MediaItem& title(const Text& value) { return set(this, &Record::setTitle, text(value)); }
    MediaItem& mediaType(int32_t value) { return set(this, &Record::setMediaType, value); }
    MediaItem& rating(int32_t value) { return set(this, &Record::setRating, value); }
    MediaItem& playbackDuration(int32_t value) { return set(this, &Record::setPlaybackDuration, value); }
    MediaItem& albumId(uint64_t value) { return set(this, &Record::setAlbumId, value); }
    MediaItem& albumTitle(const Text& value) { return set(this, &Record::setAlbumTitle, text(value)); }
    MediaItem& albumTrackNumber(int32_t value) { return set(this, &Record::setAlbumTrackNumber, value); }
    MediaItem& albumTrackCount(int32_t value) { return set(this, &Record::setAlbumTrackCount, value); }
    MediaItem& albumDiscNumber(int32_t value) { return set(this, &Record::setAlbumDiscNumber, value); }
    MediaItem& albumDiscCount(int32_t value) { return set(this, &Record::setAlbumDiscCount, value); }
    MediaItem& artistId(uint64_t value) { return set(this, &Record::setArtistId, value); }
    MediaItem& artist(const Text& value) { return set(this, &Record::setArtist, text(value)); }
    MediaItem& albumArtistId(uint64_t value) { return set(this, &Record::setAlbumArtistId, value); }
    MediaItem& albumArtist(const Text& value) { return set(this, &Record::setAlbumArtist, text(value)); }
    MediaItem& genreId(uint64_t value) { return set(this, &Record::setGenreId, value); }
    MediaItem& genre(const Text& value) { return set(this, &Record::setGenre, text(value)); }
    MediaItem& composerId(uint64_t value) { return set(this, &Record::setComposerId, value); }
    MediaItem& composer(const Text& value) { return set(this, &Record::setComposer, text(value)); }
    MediaItem& isPartOfCompilation(int32_t value) {
        return set(this, &Record::setIsPartOfCompilation, value);
    }
    MediaItem& isLikeSupport(int32_t value) { return set(this, &Record::setIsLikeSupport, value); }
    MediaItem& isBanSupport(int32_t value) { return set(this, &Record::setIsBanSupport, value); }
    MediaItem& isLiked(int32_t value) { return set(this, &Record::setIsLiked, value); }
    MediaItem& isBanned(int32_t value) { return set(this, &Record::setIsBanned, value); }
    MediaItem& isResidenOnDevice(int32_t value) { return set(this, &Record::setIsResidenOnDevice, value); }
    MediaItem& artworkFileTransferId(int32_t value) {
        return set(this, &Record::setArtworkFileTransferId, value);
    }
    MediaItem& chapterCount(int32_t value) { return set(this, &Record::setChapterCount, value); }

    /// @}
};

/// A playlist or a folder of them: MediaPlaylist().id(2).name("To work").
class MediaPlaylist : public RecordBuilder<IiAP2MediaPlaylist> {
  public:
    /// @name Fields
    /// @{

    /// Sets the record's field of that name, and marks it present. Arrays and texts are copied.
    /// @return this builder, for the next field.
    MediaPlaylist& id(uint64_t value) { return set(this, &Record::setId, value); }
    MediaPlaylist& name(const Text& value) { return set(this, &Record::setName, text(value)); }
    MediaPlaylist& parentId(uint64_t value) { return set(this, &Record::setParentId, value); }
    MediaPlaylist& isGeniusMix(int32_t value) { return set(this, &Record::setIsGeniusMix, value); }
    MediaPlaylist& isFolder(int32_t value) { return set(this, &Record::setIsFolder, value); }
    MediaPlaylist& containedMediaItems(int32_t value) {
        return set(this, &Record::setContainedMediaItems, value);
    }
    MediaPlaylist& isiTunesRadioStation(int32_t value) {
        return set(this, &Record::setIsiTunesRadioStation, value);
    }

    /// @}
};

/// DeletedMediaItem().delId(7).
class DeletedMediaItem : public RecordBuilder<IiAP2MediaItemDelId> {
  public:
    /// @name Fields
    /// @{

    /// Sets the record's field of that name, and marks it present. Arrays and texts are copied.
    /// @return this builder, for the next field.
    DeletedMediaItem& delId(uint64_t value) { return set(this, &Record::setDelId, value); }

    /// @}
};

/// DeletedMediaPlaylist().delId(2).
class DeletedMediaPlaylist : public RecordBuilder<IiAP2MediaPlaylistDelId> {
  public:
    /// @name Fields
    /// @{

    /// Sets the record's field of that name, and marks it present. Arrays and texts are copied.
    /// @return this builder, for the next field.
    DeletedMediaPlaylist& delId(uint64_t value) { return set(this, &Record::setDelId, value); }

    /// @}
};

/// One update: MediaLibUpdate().id("LIB").entry(MediaItem().id(7)).updateProgress(100).
class MediaLibUpdate : public RecordBuilder<IiAP2MediaLibData> {
  public:
    /// @name Fields
    /// @{

    /// Sets the record's field of that name, and marks it present. Arrays and texts are copied.
    /// @return this builder, for the next field.
    MediaLibUpdate& id(const Text& value) { return set(this, &Record::setId, text(value)); }
    MediaLibUpdate& revision(const Text& value) { return set(this, &Record::setRevision, text(value)); }
    MediaLibUpdate& entry(const android::sp<iAP2MediaLibGroupData>& value) {
        return set(this, &Record::addGroupData, value);
    }
    MediaLibUpdate& mediaLibReset(uint8_t value) { return set(this, &Record::setMediaLibReset, value); }
    MediaLibUpdate& updateProgress(uint8_t value) { return set(this, &Record::setUpdateProgress, value); }
    MediaLibUpdate& isHidingRemoteItems(uint8_t value) {
        return set(this, &Record::setIsHidingRemoteItems, value);
    }
    MediaLibUpdate& playAllSongCapable(uint8_t value) {
        return set(this, &Record::setPlayAllSongCapable, value);
    }

    /// @}
};

}  // namespace accessory::testkit
