// The builders: they set value and bit as the records do, own their texts, and stand where records are
// expected.
#include <accessory/IAppleiAP2ManagerNotifier.h>
#include <accessory/testing/MediaLibraryBuilders.h>
#include <accessory/testing/NowPlayingBuilders.h>
#include <accessory/testing/ParameterBuilder.h>
#include <accessory/testing/PowerBuilders.h>
#include <accessory/testing/RouteGuidanceBuilders.h>
#include <gmock/gmock.h>

namespace accessory::testkit {
namespace {

using android::sp;

TEST(Builders, SetValueAndBit) {
    const sp<iAP2ItemAttribute> item = ItemAttribute().title("First Light").isLiked(1);
    EXPECT_EQ(item->getMask(), iAP2ItemAttributeMask::kTitle | iAP2ItemAttributeMask::kIsLiked);
    EXPECT_STREQ(item->getTitle(), "First Light");
    EXPECT_EQ(item->getIsLiked(), 1);
}

TEST(Builders, OwnTheTextsOfWhatTheyBuilt) {
    sp<iAP2MediaPlayback> playback;
    {
        std::string name = "a name that is far too long to lie within a std::string itself";
        playback = MediaPlayback().appName(name).queueIndex(2);
        name.assign(name.size(), '#');
    }
    EXPECT_STREQ(playback->getAppName(), "a name that is far too long to lie within a std::string itself");
}

TEST(Builders, SetANullTextWithItsBit) {
    const sp<iAP2ItemAttribute> item = ItemAttribute().title("First Light").title(nullptr);
    EXPECT_EQ(item->getMask(), iAP2ItemAttributeMask::kTitle);
    EXPECT_EQ(item->getTitle(), nullptr);
}

TEST(Builders, BuildEachRecord) {
    const sp<iAP2PowerUpdate> power = PowerUpdate().chargeLevel(80);
    EXPECT_EQ(toString(*power), "iAP2PowerUpdate{chargeLevel: 80}");
    const sp<RouteGuidaceUpdateInfo> route = RouteGuidance().currentRoadName("Mill Lane").displayID({1, 2});
    EXPECT_EQ(toString(*route), "RouteGuidaceUpdateInfo{displayID: [1, 2], currentRoadName: \"Mill Lane\"}");
    const sp<RuoteGuidanceManeuverUpdateInfo> maneuver = Maneuver().index(3).junctionElementAngel({-90, 90});
    EXPECT_EQ(toString(*maneuver),
              "RuoteGuidanceManeuverUpdateInfo{index: 3, junctionElementAngel: [-90, 90]}");
    const sp<LaneGuidanceInfo> lanes =
        LaneGuidance().laneGuidanceIndex(1).laneInformation({LaneInformation{}});
    EXPECT_EQ(lanes->getLaneInformationCnt(), 1u);
}

TEST(Builders, StandForTheEntriesOfALibraryUpdate) {
    const sp<iAP2MediaLibData> update = MediaLibUpdate()
                                            .id("LIB")
                                            .entry(MediaItem().id(7).title("First Light"))
                                            .entry(MediaPlaylist().id(2))
                                            .entry(DeletedMediaItem().delId(8))
                                            .entry(DeletedMediaPlaylist().delId(9))
                                            .updateProgress(100);
    ASSERT_EQ(update->getGroupDataCount(), 4);
    EXPECT_EQ(toString(*update->getGroupData(0)), "iAP2MediaItem{id: 7, title: \"First Light\"}");
    EXPECT_EQ(toString(*update->getGroupData(3)), "iAP2MediaPlaylistDelId{delId: 9}");
    EXPECT_EQ(update->getUpdateProgress(), 100);
}

TEST(Builders, NameWhatAClientAsksFor) {
    const sp<iAP2PowerUpdateMask> mask = maskOf<iAP2PowerUpdateMask>(iAP2PowerUpdateMask::kChargeLevel);
    EXPECT_EQ(mask->mask, 0x20u);
}

TEST(Builders, PutValuesBehindThePointersOfAParameter) {
    using Call = CallStateUpdateParam;
    Parameter<Call> call;
    call.with(&Call::field2, std::string("Ben Falk")).with(&Call::field3, 2).with(&Call::field9, true);
    const Call& built = call;
    EXPECT_STREQ(built.field2, "Ben Falk");
    EXPECT_EQ(*built.field3, 2);
    EXPECT_TRUE(*built.field9);
    EXPECT_EQ(built.field1, nullptr);
}

TEST(Builders, PutValuesIntoAParameter) {
    using Place = DestinationInfo;
    Parameter<Place> place;
    place.with(&Place::mask, Place::kValue).with(&Place::value, 5).with(&Place::firstString, "home");
    const Place* const built = place;
    EXPECT_EQ(built->mask, 0x20u);
    EXPECT_EQ(built->value, 5u);
    EXPECT_STREQ(built->firstString, "home");
}

}  // namespace
}  // namespace accessory::testkit
