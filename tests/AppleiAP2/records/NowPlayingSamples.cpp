#include "tests/AppleiAP2/records/NowPlayingSamples.h"

#include "tests/AppleiAP2/records/ApartRecords.h"

namespace accessory::test {

using android::sp;

sp<IiAP2ItemAttribute> ItemAttributeSample::filled() {
    sp<IiAP2ItemAttribute> record = new IiAP2ItemAttribute;
    record->setID(0x8000000000000000)
        .setTitle("Blue in Green")
        .setDurationInMillSec(1004)
        .setAlbumTitle("Kind of Blue")
        .setAlbumTrackNum(-1007)
        .setAlbumTrackCount(1008)
        .setAlbumDiskNum(-1009)
        .setAlbumDiskCount(1010)
        .setArtist("Miles")
        .setGenre("Jazz")
        .setComposer("B")
        .setIsLikeSupported(-1021)
        .setIsBanSupported(1022)
        .setIsLiked(-1023)
        .setIsBanned(1024)
        .setArtWorkFileTransferID(1026)
        .setChapterCount(-1027);
    return record;
}

std::vector<FieldWords> ItemAttributeSample::words() {
    return {
        {0, Words().i64(0x8000000000000000)},
        {1, Words().i32(14).cstr("Blue in Green")},
        {4, Words().i32(1004)},
        {6, Words().i32(13).cstr("Kind of Blue")},
        {7, Words().i32(-1007)},
        {8, Words().i32(1008)},
        {9, Words().i32(-1009)},
        {10, Words().i32(1010)},
        {12, Words().i32(6).cstr("Miles")},
        {16, Words().i32(5).cstr("Jazz")},
        {18, Words().i32(2).cstr("B")},
        {21, Words().i32(-1021)},
        {22, Words().i32(1022)},
        {23, Words().i32(-1023)},
        {24, Words().i32(1024)},
        {26, Words().i32(1026)},
        {27, Words().i32(-1027)},
    };
}

sp<iAP2ItemAttribute> ItemAttributeSample::apart(uint32_t mask) { return makeApartItemAttribute(mask); }

sp<IiAP2MediaPlayback> MediaPlaybackSample::filled() {
    sp<IiAP2MediaPlayback> record = new IiAP2MediaPlayback;
    record->setstats(1000)
        .setElaspedTime(-1001)
        .setQueueIndex(1002)
        .setQueueCount(-1003)
        .setQueueChapterIndex(1004)
        .setShuffMode(-1005)
        .setReapedMode(1006)
        .setAppName("Music")
        .setLibraryUniqueldID("A1B2-C3")
        .setRaidoAd(-1009)
        .setRadioStationName("")
        .setRadioMediaPlayListID(0x800000000000000b)
        .setPlaybackSpeedValue(1012)
        .setSetElapsedTimeAvailable(-1013)
        .setPlaybackQueueListAvail(1014)
        .setPlaybackQueueListTransferID(-1015)
        .setPlaybackAppBundkeID("com.example.music");
    return record;
}

std::vector<FieldWords> MediaPlaybackSample::words() {
    return {
        {0, Words().i32(1000)},
        {1, Words().i32(-1001)},
        {2, Words().i32(1002)},
        {3, Words().i32(-1003)},
        {4, Words().i32(1004)},
        {5, Words().i32(-1005)},
        {6, Words().i32(1006)},
        {7, Words().cstr("Music")},
        {8, Words().cstr("A1B2-C3")},
        {9, Words().i32(-1009)},
        {10, Words().cstr("")},
        {11, Words().i64(0x800000000000000b)},
        {12, Words().i32(1012)},
        {13, Words().i32(-1013)},
        {14, Words().i32(1014)},
        {15, Words().i32(-1015)},
        {16, Words().cstr("com.example.music")},
    };
}

sp<iAP2MediaPlayback> MediaPlaybackSample::apart(uint32_t mask) { return makeApartMediaPlayback(mask); }

}  // namespace accessory::test
