// The readable form of records.
#include <gtest/gtest.h>

#include "tests/AppleiAP2/records/MediaLibrarySamples.h"
#include "tests/AppleiAP2/records/NowPlayingSamples.h"
#include "tests/AppleiAP2/records/PowerSamples.h"
#include "tests/AppleiAP2/records/RouteGuidanceSamples.h"

namespace accessory::test {
namespace {

using android::sp;

TEST(RecordText, NamesOnlyTheFieldsThatArePresent) {
    sp<IiAP2MediaItem> item = new IiAP2MediaItem;
    EXPECT_EQ("iAP2MediaItem{}", toString(*item));
    item->setId(18446744073709551615u).setTitle("Blue").setRating(-1);
    EXPECT_EQ("iAP2MediaItem{id: 18446744073709551615, title: \"Blue\", rating: -1}", toString(*item));
    item->mMask->mask = 0x100002;
    EXPECT_EQ("iAP2MediaItem{title: \"Blue\"}", toString(*item));
}

TEST(RecordText, EscapesWhatWouldGarbleALine) {
    sp<IiAP2MediaPlaylist> playlist = new IiAP2MediaPlaylist;
    playlist->setName("a\"b\\c\n\x7f \xc3\xa9");
    EXPECT_EQ("iAP2MediaPlaylist{name: \"a\\\"b\\\\c\\x0a\\x7f \xc3\xa9\"}", toString(*playlist));
}

TEST(RecordText, ShowsNullStringsAndNullArrays) {
    sp<IRouteGuidaceUpdateInfo> info = new IRouteGuidaceUpdateInfo;
    info->mMask = 0x9;
    EXPECT_EQ("RouteGuidaceUpdateInfo{displayID: [], currentRoadName: null}", toString(*info));
    info->mDisplayIdCnt = 2;
    EXPECT_EQ("RouteGuidaceUpdateInfo{displayID: null, currentRoadName: null}", toString(*info));
    info->mDisplayIdCnt = 0;
}

TEST(RecordText, ListsTheEntriesOfALibraryUpdate) {
    sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
    update->setRevision("17")
        .addGroupData(&(new IiAP2MediaItem)->setRating(5))
        .addGroupData(&(new IiAP2MediaPlaylist)->setIsFolder(1))
        .addGroupData(&(new IiAP2MediaItemDelId)->setDelId(7))
        .addGroupData(&(new IiAP2MediaPlaylistDelId)->setDelId(8))
        .addGroupData(nullptr)
        .setUpdateProgress(250);
    EXPECT_EQ(
        "iAP2MediaLibData{revision: \"17\", groupData: [iAP2MediaItem{rating: 5}, "
        "iAP2MediaPlaylist{isFolder: 1}, iAP2MediaItemDelId{delId: 7}, iAP2MediaPlaylistDelId{delId: 8}, "
        "null], updateProgress: 250}",
        toString(*update));
}

TEST(RecordText, NamesAnEntryOfAnUnknownKindByItsType) {
    const sp<iAP2MediaLibGroupData> entry = new OddEntry(5);
    EXPECT_EQ("iAP2MediaLibGroupData{type: 5}", toString(*entry));
}

TEST(RecordText, ShowsTheRequestForUpdatesWhole) {
    const sp<MediaLibUpdateInfo> info = new MediaLibUpdateInfo;
    info->mSecondText = "lib";
    info->mValues[4] = -5;
    EXPECT_EQ("MediaLibUpdateInfo{firstText: null, secondText: \"lib\", values: [0, 0, 0, 0, -5]}",
              toString(*info));
}

TEST(RecordText, ShowsTheNowPlayingAndPowerRecords) {
    sp<IiAP2ItemAttribute> attribute = new IiAP2ItemAttribute;
    attribute->setID(7).setTitle(nullptr);
    EXPECT_EQ("iAP2ItemAttribute{ID: 7, title: null}", toString(*attribute));
    sp<IiAP2MediaPlayback> playback = new IiAP2MediaPlayback;
    playback->setstats(1).setAppName("Music");
    EXPECT_EQ("iAP2MediaPlayback{stats: 1, appName: \"Music\"}", toString(*playback));
    sp<IiAP2PowerUpdate> power = new IiAP2PowerUpdate;
    power->setChargeLevel(80);
    EXPECT_EQ("iAP2PowerUpdate{chargeLevel: 80}", toString(*power));
}

TEST(RecordText, ShowsArraysAndLanesElementByElement) {
    const auto maneuver = ManeuverSample::filled();
    maneuver->mMask = 0x0c00;
    EXPECT_EQ(
        "RuoteGuidanceManeuverUpdateInfo{junctionElementAngel: [-90, 0, 179], "
        "junctionElementExitAngel: -300}",
        toString(*maneuver));
    const auto lanes = LaneGuidanceSample::filled();
    lanes->mMask = 0x4;
    EXPECT_EQ(
        "LaneGuidanceInfo{laneInformation: [LaneInformation{laneField0: 65535, laneField1: -7, "
        "laneAngle: [-45, 0, 45], laneField3: 65535}, LaneInformation{}, LaneInformation{laneAngle: []}]}",
        toString(*lanes));
}

}  // namespace
}  // namespace accessory::test
