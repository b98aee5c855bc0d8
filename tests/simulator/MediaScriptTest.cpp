// Music: the library page by page, and what is playing.
#include <gmock/gmock.h>

#include "tests/simulator/Script.h"

namespace accessory::simulator::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kThreeTracks = R"("library": {"id": "L", "name": "Songs", "revision": 5, "tracks": [
    {"id": 11, "title": "One", "duration": 3000}, {"id": 12, "title": "Two", "duration": 5000},
    {"id": 13, "title": "Three", "duration": 4000}], "playlists": [{"id": 21, "name": "All", "tracks": [13, 11]}]})";

constexpr uint32_t kTitle = 0x2;

LibraryRequest pages(uint32_t size, uint32_t delay) {
    LibraryRequest request;
    request.dataMask = MediaLibDataMask::kRevision | MediaLibDataMask::kItems | MediaLibDataMask::kPlaylists |
                       MediaLibDataMask::kDeletedItems | MediaLibDataMask::kUpdateProgress;
    request.itemMask = kTitle;
    request.playlistMask = MediaPlaylistMask::kName;
    request.pageSize = size;
    request.pageDelay = delay;
    return request;
}

TEST(LibraryScript, TellsOfTheLibrary) {
    Script script(kThreeTracks);
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.libraryUpdates.stopInformation(), kWrongState);
        EXPECT_EQ(device.libraryUpdates.startInformation(), kDone);
        EXPECT_EQ(device.libraryUpdates.stopInformation(), kDone);
    });
    EXPECT_THAT(about("mediaLib", script.play(2)),
                ElementsAre("1 mediaLibInfoUpdate(1, \"Songs\", \"L\", 0)"));
}

TEST(LibraryScript, StreamsItInPagesWithTheAskedFields) {
    Script script(kThreeTracks);
    script.at(1, [](Device& device) { EXPECT_EQ(device.libraryUpdates.start(pages(2, 500)), kDone); });
    EXPECT_THAT(
        about("mediaLib", script.play(5)),
        ElementsAre(
            "1 mediaLibUpdateDataReady(1, iAP2MediaLibData{revision: \"5\", groupData: [iAP2MediaItem{title: "
            "\"One\"}, iAP2MediaItem{title: \"Two\"}], updateProgress: 50})",
            "1.5 mediaLibUpdateDataReady(1, iAP2MediaLibData{revision: \"5\", groupData: "
            "[iAP2MediaItem{title: "
            "\"Three\"}, iAP2MediaPlaylist{name: \"All\"}], updateProgress: 100})"));
}

TEST(LibraryScript, TellsWhoIsUpToDateThatThereIsNothingNew) {
    Script script(kThreeTracks);
    script.at(1, [](Device& device) {
        LibraryRequest request = pages(0, 0);
        request.revision = "5";
        EXPECT_EQ(device.libraryUpdates.start(request), kDone);
    });
    EXPECT_THAT(about("mediaLib", script.play(2)),
                ElementsAre("1 mediaLibUpdateDataReady(1, iAP2MediaLibData{revision: \"5\", groupData: [], "
                            "updateProgress: 100})"));
}

TEST(LibraryScript, RefusesAnotherLibraryAndTooLargePages) {
    Script script(kThreeTracks);
    script.at(1, [](Device& device) {
        LibraryRequest request = pages(501, 0);
        EXPECT_EQ(device.libraryUpdates.start(request), kBadArgument);
        request.libraryId = "other";
        EXPECT_EQ(device.libraryUpdates.start(request), kNotFound);
        EXPECT_EQ(device.libraryUpdates.stop("other"), kNotFound);
        EXPECT_EQ(device.libraryUpdates.stop("L"), kWrongState);
    });
    EXPECT_THAT(about("mediaLib", script.play(2)), IsEmpty());
}

TEST(LibraryScript, StopsInTheMiddle) {
    Script script(kThreeTracks);
    script.at(1, [](Device& device) { device.libraryUpdates.start(pages(1, 1000)); });
    script.at(2.5, [](Device& device) { EXPECT_EQ(device.libraryUpdates.stop(nullptr), kDone); });
    EXPECT_EQ(about("mediaLib", script.play(10)).size(), 2u);
}

TEST(LibraryScript, TellsWhatChanges) {
    Script script(kThreeTracks);
    script.at(1, [](Device& device) { device.libraryUpdates.start(pages(0, 0)); });
    script.at(2, [](Device& device) { device.libraryUpdates.removeTrack(12); });
    script.at(3, [](Device& device) { device.libraryUpdates.removeTrack(12); });
    script.at(4, [](Device& device) {
        Track track;
        track.title = "Four";
        device.libraryUpdates.addTrack(std::make_shared<const Track>(track));
    });
    const std::vector<std::string> lines = about("mediaLib", script.play(10));
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[1],
              "2 mediaLibUpdateDataReady(1, iAP2MediaLibData{revision: \"6\", groupData: "
              "[iAP2MediaItemDelId{delId: 12}], updateProgress: 100})");
    EXPECT_EQ(lines[2],
              "4 mediaLibUpdateDataReady(1, iAP2MediaLibData{revision: \"7\", groupData: "
              "[iAP2MediaItem{title: \"Four\"}], updateProgress: 100})");
}

TEST(LibraryScript, BeginsAnewWhenTheLibraryChangesMeanwhile) {
    Script script(kThreeTracks);
    script.at(1, [](Device& device) { device.libraryUpdates.start(pages(2, 1000)); });
    script.at(1.5, [](Device& device) { device.libraryUpdates.removeTrack(11); });
    const std::vector<std::string> lines = about("mediaLib", script.play(10));
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_THAT(lines[1], HasSubstr("[iAP2MediaItem{title: \"Two\"}, iAP2MediaItem{title: \"Three\"}]"));
    EXPECT_THAT(lines[2], HasSubstr("updateProgress: 100"));
}

TEST(NowPlayingScript, TellsTheAskedFieldsAndGoesOnWithTime) {
    Script script(kThreeTracks);
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.nowPlaying.stop(), kWrongState);
        EXPECT_EQ(device.nowPlaying.start(kTitle, 0x3), kDone);
        EXPECT_EQ(device.nowPlaying.remote(NowPlaying::kPlay), kDone);
    });
    script.at(5.5, [](Device& device) { EXPECT_EQ(device.nowPlaying.remote(NowPlaying::kPause), kDone); });
    EXPECT_THAT(
        about("nowPlaying", script.play(20)),
        ElementsAre(
            "1 nowPlayingUpdate(1, iAP2ItemAttribute{}, iAP2MediaPlayback{stats: 0, elaspedTime: 0})",
            "1 nowPlayingUpdate(1, iAP2ItemAttribute{title: \"One\"}, iAP2MediaPlayback{stats: 1})",
            "2 nowPlayingUpdate(1, iAP2ItemAttribute{}, iAP2MediaPlayback{elaspedTime: 1000})",
            "3 nowPlayingUpdate(1, iAP2ItemAttribute{}, iAP2MediaPlayback{elaspedTime: 2000})",
            "4 nowPlayingUpdate(1, iAP2ItemAttribute{title: \"Two\"}, iAP2MediaPlayback{elaspedTime: 0})",
            "5 nowPlayingUpdate(1, iAP2ItemAttribute{}, iAP2MediaPlayback{elaspedTime: 1000})",
            "5.5 nowPlayingUpdate(1, iAP2ItemAttribute{}, iAP2MediaPlayback{stats: 2, elaspedTime: 1500})"));
}

TEST(NowPlayingScript, StopsAtTheEndOfTheQueue) {
    Script script(kThreeTracks);
    script.at(1, [](Device& device) {
        device.nowPlaying.start(0, iAP2MediaPlaybackMask::kStats);
        device.nowPlaying.remote(NowPlaying::kPlay);
    });
    EXPECT_THAT(about("nowPlaying", script.play(60)),
                ElementsAre(HasSubstr("{stats: 0}"), HasSubstr("{stats: 1}"),
                            "13 nowPlayingUpdate(1, iAP2ItemAttribute{}, iAP2MediaPlayback{stats: 0})"));
}

TEST(NowPlayingScript, SetsWhatIsNamed) {
    Script script(kThreeTracks);
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.nowPlaying.set(NowPlaying::kElapsedTime, 0), kWrongState);
        EXPECT_EQ(device.playSpecial(0), kDone);
        EXPECT_EQ(device.nowPlaying.set(NowPlaying::kQueueIndex, 2), kDone);
        EXPECT_EQ(device.nowPlaying.set(NowPlaying::kQueueIndex, 3), kWrongState);
        EXPECT_EQ(device.nowPlaying.set(NowPlaying::kElapsedTime, 1500), kDone);
        EXPECT_EQ(device.nowPlaying.set(NowPlaying::kShuffleMode, 1), kDone);
        EXPECT_EQ(device.nowPlaying.set(NowPlaying::kShuffleMode, 2), kBadArgument);
        EXPECT_EQ(device.nowPlaying.set(NowPlaying::kRepeatMode, 2), kDone);
        EXPECT_EQ(device.nowPlaying.set(NowPlaying::kRepeatMode, 3), kBadArgument);
        EXPECT_EQ(device.nowPlaying.set(9, 0), kBadArgument);
        EXPECT_EQ(device.nowPlaying.remote(9), kBadArgument);
        device.nowPlaying.start(kTitle, 0x66);
    });
    EXPECT_THAT(
        about("nowPlaying", script.play(1.5)),
        ElementsAre(
            "1 nowPlayingUpdate(1, iAP2ItemAttribute{title: \"Three\"}, iAP2MediaPlayback{elaspedTime: "
            "1500, queueIndex: 2, shuffMode: 1, reapedMode: 2})"));
}

TEST(NowPlayingScript, PlaysWhatAClientChooses) {
    Script script(kThreeTracks);
    script.at(1, [](Device& device) {
        const uint64_t ids[] = {13, 12};
        const uint64_t unknown[] = {13, 99};
        device.nowPlaying.start(kTitle, 0);
        EXPECT_EQ(device.playItems(ids, 2, 1), kDone);
        EXPECT_EQ(device.playItems(unknown, 2, 0), kNotFound);
        EXPECT_EQ(device.playItems(ids, 2, 2), kBadArgument);
        EXPECT_EQ(device.playItems(nullptr, 2, 0), kBadArgument);
        EXPECT_EQ(device.playCollection(Grouping::kPlaylist, 21, 1), kDone);
        EXPECT_EQ(device.playCollection(Grouping::kPlaylist, 22, 0), kNotFound);
        EXPECT_EQ(device.playCollection(Grouping::kPlaylist, 21, 2), kBadArgument);
        EXPECT_EQ(device.playSpecial(2), kBadArgument);
    });
    EXPECT_THAT(about("nowPlaying", script.play(1.5)),
                ElementsAre(HasSubstr("iAP2ItemAttribute{}"), HasSubstr("\"Two\""), HasSubstr("\"One\"")));
}

}  // namespace
}  // namespace accessory::simulator::test
