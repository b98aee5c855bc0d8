#include "simulator/device/LibraryRecords.h"

namespace accessory::simulator {

namespace {

constexpr int32_t kMusic = 0;

template <typename Record>
android::sp<iAP2MediaLibGroupData> deleted(uint64_t id) {
    const android::sp<Record> record = new Record();
    record->setDelId(id);
    return record;
}

}  // namespace

android::sp<IiAP2MediaItem> itemRecord(const Track& track, uint32_t mask) {
    const android::sp<IiAP2MediaItem> record = new IiAP2MediaItem();
    record->setId(track.id)
        .setTitle(track.title.c_str())
        .setMediaType(kMusic)
        .setRating(track.rating)
        .setPlaybackDuration(track.durationMs)
        .setAlbumId(idOf("album", track.album))
        .setAlbumTitle(track.album.c_str())
        .setAlbumTrackNumber(track.trackNumber)
        .setAlbumTrackCount(track.trackCount)
        .setAlbumDiscNumber(track.discNumber)
        .setAlbumDiscCount(track.discCount)
        .setArtistId(idOf("artist", track.artist))
        .setArtist(track.artist.c_str())
        .setAlbumArtistId(idOf("artist", track.albumArtist))
        .setAlbumArtist(track.albumArtist.c_str())
        .setGenreId(idOf("genre", track.genre))
        .setGenre(track.genre.c_str())
        .setComposerId(idOf("composer", track.composer))
        .setComposer(track.composer.c_str())
        .setIsPartOfCompilation(track.compilation ? 1 : 0)
        .setIsLikeSupport(1)
        .setIsBanSupport(1)
        .setIsLiked(track.liked ? 1 : 0)
        .setIsBanned(track.banned ? 1 : 0)
        .setIsResidenOnDevice(1)
        .setArtworkFileTransferId(track.artworkTransferId)
        .setChapterCount(track.chapterCount);
    record->mMask->mask &= everythingForZero(mask);
    return record;
}

android::sp<IiAP2MediaPlaylist> playlistRecord(const Playlist& playlist, uint32_t mask) {
    const android::sp<IiAP2MediaPlaylist> record = new IiAP2MediaPlaylist();
    record->setId(playlist.id)
        .setName(playlist.name.c_str())
        .setParentId(playlist.parentId)
        .setIsGeniusMix(0)
        .setIsFolder(playlist.folder ? 1 : 0)
        .setContainedMediaItems(0)
        .setIsiTunesRadioStation(playlist.radio ? 1 : 0);
    record->mMask->mask &= everythingForZero(mask);
    return record;
}

android::sp<iAP2MediaLibData> libraryRecord(const LibraryPage& page, const LibraryMasks& masks) {
    using Mask = MediaLibDataMask;
    const uint32_t wanted = everythingForZero(masks.data);
    const android::sp<IiAP2MediaLibData> record = new IiAP2MediaLibData();
    const auto addAll = [&](uint32_t kind, const auto& entries, const auto& recordOf) {
        if ((wanted & kind) == 0) return;
        for (const auto& entry : entries)
            record->addGroupData(recordOf(entry));
    };
    addAll(Mask::kItems, page.tracks, [&](const auto& track) { return itemRecord(*track, masks.item); });
    addAll(Mask::kPlaylists, page.playlists,
           [&](const auto& playlist) { return playlistRecord(playlist, masks.playlist); });
    addAll(Mask::kDeletedItems, page.deletedTracks, deleted<IiAP2MediaItemDelId>);
    addAll(Mask::kDeletedPlaylists, page.deletedPlaylists, deleted<IiAP2MediaPlaylistDelId>);
    record->setId(page.libraryId.c_str())
        .setRevision(page.revision.c_str())
        .setMediaLibReset(page.reset ? 1 : 0)
        .setUpdateProgress(page.progress)
        .setIsHidingRemoteItems(0)
        .setPlayAllSongCapable(1);
    record->mMask->mask &= wanted;
    return record;
}

}  // namespace accessory::simulator
