#include "tests/AppleiAP2/records/MediaLibrarySamples.h"

#include "tests/AppleiAP2/records/ApartRecords.h"

namespace accessory::test {

using android::sp;

sp<IiAP2MediaItem> MediaItemSample::filled() {
    sp<IiAP2MediaItem> record = new IiAP2MediaItem;
    record->setId(0x8000000000000000)
        .setTitle("Blue in Green")
        .setMediaType(1002)
        .setRating(-1003)
        .setPlaybackDuration(1004)
        .setAlbumId(0x8000000000000005)
        .setAlbumTitle("Kind of Blue")
        .setAlbumTrackNumber(-1007)
        .setAlbumTrackCount(1008)
        .setAlbumDiscNumber(-1009)
        .setAlbumDiscCount(1010)
        .setArtistId(0x800000000000000b)
        .setArtist("Miles")
        .setAlbumArtistId(0x800000000000000d)
        .setAlbumArtist("Miles Davis")
        .setGenreId(0x800000000000000f)
        .setGenre("Jazz")
        .setComposerId(0x8000000000000011)
        .setComposer("B")
        .setIsPartOfCompilation(-1019)
        .setIsLikeSupport(-1021)
        .setIsBanSupport(1022)
        .setIsLiked(-1023)
        .setIsBanned(1024)
        .setIsResidenOnDevice(-1025)
        .setArtworkFileTransferId(1026)
        .setChapterCount(-1027);
    return record;
}

std::vector<FieldWords> MediaItemSample::words() {
    return {
        {0, Words().i64(0x8000000000000000)},
        {1, Words().cstr("Blue in Green")},
        {2, Words().i32(1002)},
        {3, Words().i32(-1003)},
        {4, Words().i32(1004)},
        {5, Words().i64(0x8000000000000005)},
        {6, Words().cstr("Kind of Blue")},
        {7, Words().i32(-1007)},
        {8, Words().i32(1008)},
        {9, Words().i32(-1009)},
        {10, Words().i32(1010)},
        {11, Words().i64(0x800000000000000b)},
        {12, Words().cstr("Miles")},
        {13, Words().i64(0x800000000000000d)},
        {14, Words().cstr("Miles Davis")},
        {15, Words().i64(0x800000000000000f)},
        {16, Words().cstr("Jazz")},
        {17, Words().i64(0x8000000000000011)},
        {18, Words().cstr("B")},
        {19, Words().i32(-1019)},
        {21, Words().i32(-1021)},
        {22, Words().i32(1022)},
        {23, Words().i32(-1023)},
        {24, Words().i32(1024)},
        {25, Words().i32(-1025)},
        {26, Words().i32(1026)},
        {27, Words().i32(-1027)},
    };
}

sp<iAP2MediaItem> MediaItemSample::apart(uint32_t mask) { return makeApartMediaItem(mask); }

sp<IiAP2MediaPlaylist> MediaPlaylistSample::filled() {
    sp<IiAP2MediaPlaylist> record = new IiAP2MediaPlaylist;
    record->setId(0x8000000000000000)
        .setName("Road trip")
        .setParentId(0x8000000000000002)
        .setIsGeniusMix(-1003)
        .setIsFolder(1004)
        .setContainedMediaItems(-1005)
        .setIsiTunesRadioStation(1006);
    return record;
}

std::vector<FieldWords> MediaPlaylistSample::words() {
    return {
        {0, Words().i64(0x8000000000000000)},
        {1, Words().cstr("Road trip")},
        {2, Words().i64(0x8000000000000002)},
        {3, Words().i32(-1003)},
        {4, Words().i32(1004)},
        {5, Words().i32(-1005)},
        {6, Words().i32(1006)},
    };
}

sp<iAP2MediaPlaylist> MediaPlaylistSample::apart(uint32_t mask) { return makeApartMediaPlaylist(mask); }

sp<IiAP2MediaLibData> mixedUpdate() {
    sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
    update->setId("lib")
        .setRevision("0017")
        .addGroupData(&(new IiAP2MediaItem)->setTitle("Blue").setRating(5))
        .addGroupData(&(new IiAP2MediaPlaylist)->setName("Jazz"))
        .addGroupData(&(new IiAP2MediaItemDelId)->setDelId(0x1122334455667788))
        .addGroupData(&(new IiAP2MediaPlaylistDelId)->setDelId(0xffffffffffffffff))
        .addGroupData(new OddEntry(5))
        .setMediaLibReset(1)
        .setUpdateProgress(250)
        .setIsHidingRemoteItems(0)
        .setPlayAllSongCapable(1);
    return update;
}

Words mixedWords() {
    Words words;
    words.i32(0x3ff).cstr("lib").cstr("0017").i32(5);
    words.i32(0).i32(0xa).cstr("Blue").i32(5);
    words.i32(1).i32(0x2).cstr("Jazz");
    words.i32(2).i32(0x55667788).i32(0x11223344);
    words.i32(3).i32(-1).i32(-1);
    words.i32(5);
    words.i32(1).i32(250).i32(0).i32(1);
    return words;
}

}  // namespace accessory::test
