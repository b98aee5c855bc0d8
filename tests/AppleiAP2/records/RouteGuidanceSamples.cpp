#include "tests/AppleiAP2/records/RouteGuidanceSamples.h"

#include "tests/AppleiAP2/records/ApartRecords.h"

namespace accessory::test {

using android::sp;

std::vector<LaneInformation> sampleLanes() {
    static int16_t angles[] = {-45, 0, 45};
    return {{0xf, 65535, -7, 3, angles, 0xffff}, {}, {0x4, 0, 0, 0, angles, 0}};
}

namespace {

Words laneListWords() {
    return Words()
        .i32(3)
        .i32(0xf)
        .i32(65535)
        .i32(-7)
        .i32(3)
        .halves({-45, 0, 45})
        .i32(-1)
        .i32(0)
        .i32(0x4)
        .i32(0);
}

}  // namespace

sp<IRouteGuidaceUpdateInfo> RouteGuidanceSample::filled() {
    sp<IRouteGuidaceUpdateInfo> record = new IRouteGuidaceUpdateInfo;
    const uint16_t displayID[] = {1, 65535};
    const uint16_t routeGuidanceManeuverCurrentList[] = {4, 5, 6};
    record->setDisplayID(displayID, 2)
        .setRouteGuidanceState(-1001)
        .setManeuverState(1002)
        .setCurrentRoadName("High Street")
        .setDestinationName("Home")
        .setETA(0x8000000000000005)
        .setTimeRemainingToDestination(0x8000000000000006)
        .setDisatnceRemaining(-1007)
        .setDistanceRemainingDisplayStr("12")
        .setDistanceRemainingDisplayUints(-1009)
        .setDistanceToNextManeuver(1010)
        .setDistanceToNextManeuverDisplayStr("350")
        .setDistanceToNextManeuverDisplayUnits(1012)
        .setRouteGuidanceManeuverCurrentList(routeGuidanceManeuverCurrentList, 3)
        .setRouteGuidanceManeuverCount(65014)
        .setRouteGuidanceVisiableInApp(65015)
        .setLaneGuidanceCurrentIndex(65016)
        .setLaneGuidanceTotalCount(65017)
        .setLaneGuidanceBeingShownInApp(65018)
        .setSourceName("Maps")
        .setSourceSupportsRouteGuidance(65020)
        .setDestinationTimeZoneOffsetMinutes(-300);
    return record;
}

std::vector<FieldWords> RouteGuidanceSample::words() {
    return {
        {0, Words().i32(2).halves({1, 65535})},
        {1, Words().i32(-1001)},
        {2, Words().i32(1002)},
        {3, Words().cstr("High Street")},
        {4, Words().cstr("Home")},
        {5, Words().i64(0x8000000000000005)},
        {6, Words().i64(0x8000000000000006)},
        {7, Words().i32(-1007)},
        {8, Words().cstr("12")},
        {9, Words().i32(-1009)},
        {10, Words().i32(1010)},
        {11, Words().cstr("350")},
        {12, Words().i32(1012)},
        {13, Words().i32(3).halves({4, 5, 6})},
        {14, Words().i32(65014)},
        {15, Words().i32(65015)},
        {16, Words().i32(65016)},
        {17, Words().i32(65017)},
        {18, Words().i32(65018)},
        {19, Words().cstr("Maps")},
        {20, Words().i32(65020)},
        {21, Words().i32(-300)},
    };
}

sp<RouteGuidaceUpdateInfo> RouteGuidanceSample::apart(uint32_t mask) { return makeApartRouteGuidance(mask); }

sp<IRuoteGuidanceManeuverUpdateInfo> ManeuverSample::filled() {
    sp<IRuoteGuidanceManeuverUpdateInfo> record = new IRuoteGuidanceManeuverUpdateInfo;
    const uint16_t routeGuidanceDisplayComponentID[] = {7};
    const int16_t junctionElementAngel[] = {-90, 0, 179};
    record->setRouteGuidanceDisplayComponentID(routeGuidanceDisplayComponentID, 1)
        .setIndex(65001)
        .setManeuverDescription("Turn left")
        .setManeuverType(-1003)
        .setAfterManeuverRoadName("Mill Lane")
        .setDistanceBetweenManeuver(-1005)
        .setDistanceBetweenManeuverDisplayStr("1.2")
        .setDistanceBetweenManeuverDisplayUnits(-1007)
        .setDrivingSide(1008)
        .setJunctionType(-1009)
        .setJunctionElementAngel(junctionElementAngel, 3)
        .setJunctionElementExitAngel(-300)
        .setLinkedLaneGuidanceInformation(65012)
        .setExitInfo("Exit 7");
    return record;
}

std::vector<FieldWords> ManeuverSample::words() {
    return {
        {0, Words().i32(1).halves({7})},
        {1, Words().i32(65001)},
        {2, Words().cstr("Turn left")},
        {3, Words().i32(-1003)},
        {4, Words().cstr("Mill Lane")},
        {5, Words().i32(-1005)},
        {6, Words().cstr("1.2")},
        {7, Words().i32(-1007)},
        {8, Words().i32(1008)},
        {9, Words().i32(-1009)},
        {10, Words().i32(3).halves({-90, 0, 179})},
        {11, Words().i32(-300)},
        {12, Words().i32(65012)},
        {13, Words().cstr("Exit 7")},
    };
}

sp<RuoteGuidanceManeuverUpdateInfo> ManeuverSample::apart(uint32_t mask) { return makeApartManeuver(mask); }

sp<ILaneGuidanceInformation> LaneGuidanceSample::filled() {
    sp<ILaneGuidanceInformation> record = new ILaneGuidanceInformation;
    const uint16_t routeGuidanceDisplayComponentID[] = {7};
    record->setRouteGuidanceDisplayComponentID(routeGuidanceDisplayComponentID, 1)
        .setLaneGuidanceIndex(65001)
        .setLaneInformation(sampleLanes().data(), 3)
        .setLaneGuidanceDescription("Keep right");
    return record;
}

std::vector<FieldWords> LaneGuidanceSample::words() {
    return {
        {0, Words().i32(1).halves({7})},
        {1, Words().i32(65001)},
        {2, laneListWords()},
        {3, Words().cstr("Keep right")},
    };
}

sp<LaneGuidanceInfo> LaneGuidanceSample::apart(uint32_t mask) { return makeApartLaneGuidance(mask); }

}  // namespace accessory::test
