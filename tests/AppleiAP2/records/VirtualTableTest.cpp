// The places of the records' virtual tables, as a binary that was built against them takes them.
#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/PowerRecords.h>
#include <accessory/RouteGuidanceRecords.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

namespace accessory::test {
namespace {

/// The place that a pointer to a virtual member function names. Where code addresses can be odd the ABI keeps
/// the sign of a virtual function in the second word instead of in the first.
template <typename Function>
int placeOf(Function function) {
    uintptr_t words[2];
    static_assert(sizeof(words) == sizeof(function));
    std::memcpy(words, &function, sizeof(words));
#if defined(__arm__) || defined(__aarch64__)
    return static_cast<int>(words[0] / sizeof(void*));
#else
    return static_cast<int>((words[0] - 1) / sizeof(void*));
#endif
}

/// A virtual function added to a class shows how many places the class takes itself.
template <typename Plain>
class OneMore : public Plain {
  public:
    virtual void added() {}
};

template <typename Plain>
int placesOf() {
    return placeOf(&OneMore<Plain>::added);
}

constexpr int kDestructorPlaces = 2;  // the complete and the deleting one

TEST(VirtualTable, BeginsWithTheDestructorInMostRecords) {
    EXPECT_EQ(kDestructorPlaces, placeOf(&iAP2MediaItem::getMask));
    EXPECT_EQ(kDestructorPlaces, placeOf(&iAP2MediaPlaylist::getMask));
    EXPECT_EQ(kDestructorPlaces, placeOf(&iAP2MediaItemDelId::getDelId));
    EXPECT_EQ(kDestructorPlaces, placeOf(&iAP2MediaPlaylistDelId::getDelId));
    EXPECT_EQ(kDestructorPlaces, placeOf(&iAP2MediaLibData::getMask));
    EXPECT_EQ(kDestructorPlaces, placeOf(&iAP2ItemAttribute::getMask));
    EXPECT_EQ(kDestructorPlaces, placeOf(&iAP2MediaPlayback::getMask));
    EXPECT_EQ(kDestructorPlaces, placeOf(&RouteGuidaceUpdateInfo::getMask));
    EXPECT_EQ(kDestructorPlaces, placeOf(&RuoteGuidanceManeuverUpdateInfo::getMask));
    EXPECT_EQ(kDestructorPlaces, placeOf(&LaneGuidanceInfo::getMask));
}

TEST(VirtualTable, EndsWithTheDestructorInThePowerUpdate) {
    EXPECT_EQ(0, placeOf(&iAP2PowerUpdate::getMask));
    EXPECT_EQ(1, placeOf(&iAP2PowerUpdate::getCurrentFromAccessory));
    EXPECT_EQ(2, placeOf(&iAP2PowerUpdate::getChargeIsPresent));
    EXPECT_EQ(3, placeOf(&iAP2PowerUpdate::getPowerMode));
    EXPECT_EQ(4, placeOf(&iAP2PowerUpdate::getExternalChargeConnected));
    EXPECT_EQ(5, placeOf(&iAP2PowerUpdate::getChargeState));
    EXPECT_EQ(6, placeOf(&iAP2PowerUpdate::getChargeLevel));
    EXPECT_EQ(7 + kDestructorPlaces, placesOf<iAP2PowerUpdate>());
}

TEST(VirtualTable, HasOnePlaceForEachGetterAndNoOther) {
    EXPECT_EQ(kDestructorPlaces + 1 + 27, placesOf<iAP2MediaItem>());
    EXPECT_EQ(kDestructorPlaces + 1 + 7, placesOf<iAP2MediaPlaylist>());
    EXPECT_EQ(kDestructorPlaces + 1, placesOf<iAP2MediaItemDelId>());
    EXPECT_EQ(kDestructorPlaces + 1, placesOf<iAP2MediaPlaylistDelId>());
    EXPECT_EQ(kDestructorPlaces + 9, placesOf<iAP2MediaLibData>());
    EXPECT_EQ(kDestructorPlaces + 1 + 17, placesOf<iAP2ItemAttribute>());
    EXPECT_EQ(kDestructorPlaces + 1 + 17, placesOf<iAP2MediaPlayback>());
    EXPECT_EQ(kDestructorPlaces + 1 + 22 + 2, placesOf<RouteGuidaceUpdateInfo>());
    EXPECT_EQ(kDestructorPlaces + 1 + 14 + 2, placesOf<RuoteGuidanceManeuverUpdateInfo>());
    EXPECT_EQ(kDestructorPlaces + 1 + 4 + 2, placesOf<LaneGuidanceInfo>());
}

TEST(VirtualTable, IsNotGrownByTheParcelables) {
    EXPECT_EQ(placesOf<iAP2MediaItem>(), placesOf<IiAP2MediaItem>());
    EXPECT_EQ(placesOf<iAP2MediaPlaylist>(), placesOf<IiAP2MediaPlaylist>());
    EXPECT_EQ(placesOf<iAP2MediaItemDelId>(), placesOf<IiAP2MediaItemDelId>());
    EXPECT_EQ(placesOf<iAP2MediaPlaylistDelId>(), placesOf<IiAP2MediaPlaylistDelId>());
    EXPECT_EQ(placesOf<iAP2MediaLibData>(), placesOf<IiAP2MediaLibData>());
    EXPECT_EQ(placesOf<iAP2ItemAttribute>(), placesOf<IiAP2ItemAttribute>());
    EXPECT_EQ(placesOf<iAP2MediaPlayback>(), placesOf<IiAP2MediaPlayback>());
    EXPECT_EQ(placesOf<iAP2PowerUpdate>(), placesOf<IiAP2PowerUpdate>());
    EXPECT_EQ(placesOf<RouteGuidaceUpdateInfo>(), placesOf<IRouteGuidaceUpdateInfo>());
    EXPECT_EQ(placesOf<RuoteGuidanceManeuverUpdateInfo>(), placesOf<IRuoteGuidanceManeuverUpdateInfo>());
    EXPECT_EQ(placesOf<LaneGuidanceInfo>(), placesOf<ILaneGuidanceInformation>());
}

TEST(VirtualTable, OfMasksHoldsTheDestructorAlone) {
    EXPECT_EQ(kDestructorPlaces, placesOf<MediaItemMask>());
    EXPECT_EQ(kDestructorPlaces, placesOf<MediaPlaylistMask>());
    EXPECT_EQ(kDestructorPlaces, placesOf<MediaLibDataMask>());
    EXPECT_EQ(kDestructorPlaces, placesOf<iAP2ItemAttributeMask>());
    EXPECT_EQ(kDestructorPlaces, placesOf<iAP2MediaPlaybackMask>());
    EXPECT_EQ(kDestructorPlaces, placesOf<iAP2PowerUpdateMask>());
}

}  // namespace
}  // namespace accessory::test
