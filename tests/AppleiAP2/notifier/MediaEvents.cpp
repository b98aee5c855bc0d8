// The media library, what is playing, and power.
#include "tests/AppleiAP2/notifier/Event.h"

namespace accessory::test {
namespace {

using Notifier = IAppleiAP2ManagerNotifier;
using android::sp;

sp<iAP2MediaLibData> library() {
    const sp<IiAP2MediaItem> item = new IiAP2MediaItem;
    item->setId(0x1122334455667788).setTitle("Blue").setRating(-5);
    const sp<IiAP2MediaPlaylist> playlist = new IiAP2MediaPlaylist;
    playlist->setName("Trip").setIsFolder(1);
    const sp<IiAP2MediaItemDelId> goneItem = new IiAP2MediaItemDelId;
    goneItem->setDelId(9);
    const sp<IiAP2MediaPlaylistDelId> gonePlaylist = new IiAP2MediaPlaylistDelId;
    gonePlaylist->setDelId(10);
    const sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
    update->setId("lib").setRevision("17").addGroupData(item).addGroupData(playlist);
    update->addGroupData(goneItem).addGroupData(gonePlaylist).setMediaLibReset(1).setPlayAllSongCapable(255);
    return update;
}

Bytes libraryBytes() {
    return parcel({i32(0x27f), cstr("lib"), cstr("17"), i32(4),                       //
                   i32(0), i32(0xb), i64(0x1122334455667788), cstr("Blue"), i32(-5),  // item
                   i32(1), i32(0x12), cstr("Trip"), i32(1),                           // playlist
                   i32(2), i64(9), i32(3), i64(10), i32(1), i32(255)});
}

/// Every bit but that of the update's progress and hidden items.
constexpr char kLibraryText[] =
    R"(7, {0x27f 0:"lib" 1:"17" )"
    R"(2:[item{0xb 0:1234605616436508552 1:"Blue" 3:-5}, playlist{0x12 1:"Trip" 4:1}, gone item 9, gone )"
    "playlist 10] 3:1 6:255}";

sp<iAP2ItemAttribute> song() {
    const sp<IiAP2ItemAttribute> item = new IiAP2ItemAttribute;
    item->setID(0x8000000000000001).setTitle("So What").setAlbumTitle("").setChapterCount(3);
    return item;
}

Bytes songBytes() {
    return parcel(
        {i32(0x8000043), i64(0x8000000000000001), i32(8), cstr("So What"), i32(1), cstr(""), i32(3)});
}

sp<iAP2MediaPlayback> player() {
    const sp<IiAP2MediaPlayback> playback = new IiAP2MediaPlayback;
    playback->setstats(1).setElaspedTime(-2).setAppName("Music").setPlaybackAppBundkeID("com.example");
    return playback;
}

Bytes playerBytes() { return parcel({i32(0x10083), i32(1), i32(-2), cstr("Music"), cstr("com.example")}); }

sp<iAP2PowerUpdate> power() {
    const sp<IiAP2PowerUpdate> update = new IiAP2PowerUpdate;
    update->setCurrentFromAccessory(1000).setChargeLevel(-80);
    return update;
}

}  // namespace

std::vector<Event> mediaEvents() {
    return {
        Event("mediaLibInfoUpdate", 13, parcel({i32(7), cstr("Music"), cstr("A-1"), i32(-3)}),
              R"(7, "Music", "A-1", -3)",
              [](Notifier& to) {
                  return to.mediaLibInfoUpdate(7, "Music", "A-1", static_cast<MediaLibType>(-3));
              }),
        Event("mediaLibUpdateDataReady", 14, parcel({i32(7), libraryBytes()}), kLibraryText,
              [](Notifier& to) { return to.mediaLibUpdateDataReady(7, library()); })
            .stubLogs({}),
        Event("mediaLibUpdateDataReady", 14, parcel({i32(7), i32(0), i32(0)}), "7, {0x0}",
              [](Notifier& to) { return to.mediaLibUpdateDataReady(7, new IiAP2MediaLibData); })
            .stubLogs({}),
        Event("nowPlayingUpdate", 15, parcel({i32(7), songBytes(), playerBytes()}),
              R"(7, {0x8000043 0:9223372036854775809 1:"So What" 3:"" 16:3}, )"
              R"({0x10083 0:1 1:-2 7:"Music" 16:"com.example"})",
              [](Notifier& to) { return to.nowPlayingUpdate(7, song(), player()); }),
        Event("powerUpdate", 16, parcel({i32(7), i32(0x21), i32(1000), i32(-80)}), "7, {0x21 0:1000 5:-80}",
              [](Notifier& to) { return to.powerUpdate(7, power()); })
            .proxyLogs({debug("IiAP2PowerUpdate writeToParcel enter")})
            .stubLogs({debug("IiAP2PowerUpdate FromParcel enter"), debug("powerUpdate enter")}),
    };
}

}  // namespace accessory::test
