// Route guidance, maneuvers, lanes.
#include "tests/AppleiAP2/notifier/Event.h"

namespace accessory::test {
namespace {

using Notifier = IAppleiAP2ManagerNotifier;
using android::sp;

sp<RouteGuidaceUpdateInfo> route() {
    const sp<IRouteGuidaceUpdateInfo> info = new IRouteGuidaceUpdateInfo;
    const uint16_t displays[] = {1, 65535, 3};
    info->setDisplayID(displays, 3).setCurrentRoadName("High Street").setETA(0x8000000000000005);
    info->setRouteGuidanceManeuverCount(65014).setDestinationTimeZoneOffsetMinutes(-300);
    return info;
}

Event routeUpdate() {
    return Event("RouteGuidanceUpdates", 33,
                 parcel({i32(7), i32(0x204029), i32(3), halves({1, 65535, 3}), cstr("High Street"),
                         i64(0x8000000000000005), i32(65014), i32(-300)}),
                 R"(7, {0x204029 0:[1 65535 3] 3:"High Street" 5:9223372036854775813 14:65014 21:-300})",
                 [](Notifier& to) { return to.RouteGuidanceUpdates(7, route()); })
        .proxyLogs(
            {debug("RouteGuidaceUpdateInfo writeToParcel mask 0x204029"), debug("RouteGuidanceUpdates out")});
}

sp<RuoteGuidanceManeuverUpdateInfo> maneuver() {
    const sp<IRuoteGuidanceManeuverUpdateInfo> info = new IRuoteGuidanceManeuverUpdateInfo;
    const int16_t angles[] = {-90, 0, 179};
    info->setIndex(65001).setManeuverDescription("Turn left").setJunctionElementAngel(angles, 3);
    info->setJunctionElementExitAngel(-45).setExitInfo("7");
    return info;
}

Event maneuverUpdate() {
    return Event("RouteGuidanceManeuverUpdates", 34,
                 parcel({i32(7), i32(0x2c06), i32(65001), cstr("Turn left"), i32(3), halves({-90, 0, 179}),
                         i32(-45), cstr("7")}),
                 R"(7, {0x2c06 1:65001 2:"Turn left" 10:[-90 0 179] 11:-45 13:"7"})",
                 [](Notifier& to) { return to.RouteGuidanceManeuverUpdates(7, maneuver()); })
        .proxyLogs({debug("RuoteGuidanceManeuverUpdateInfo writeToParcel mask 0x2c06"),
                    debug("RouteGuidanceManeuverUpdates out")})
        .stubLogs({debug("IRuoteGuidanceManeuverUpdateInfo FromParcel mask 0x2c06"),
                   debug("RouteGuidanceManeuverUpdates enter")});
}

sp<LaneGuidanceInfo> lanes() {
    const sp<ILaneGuidanceInformation> info = new ILaneGuidanceInformation;
    int16_t angles[] = {-45, 0, 45};
    LaneInformation two[2];
    two[0].mask = 0xf;
    two[0].laneField0 = 65535;
    two[0].laneField1 = -7;
    two[0].laneAngleCnt = 3;
    two[0].laneAngle = angles;
    two[0].laneField3 = 0xfffe;
    info->setLaneGuidanceIndex(9).setLaneInformation(two, 2).setLaneGuidanceDescription("Keep right");
    return info;
}

Event laneUpdate() {
    return Event("LaneGuidanceInformation", 35,
                 parcel({i32(7), i32(0xe), i32(9), i32(2),                                      //
                         i32(0xf), i32(65535), i32(-7), i32(3), halves({-45, 0, 45}), i32(-2),  //
                         i32(0), cstr("Keep right")}),
                 R"(7, {0xe 1:9 2:[{0xf 0:65535 1:-7 2:[-45 0 45] 3:65534} {0x0}] 3:"Keep right"})",
                 [](Notifier& to) { return to.LaneGuidanceInformation(7, lanes()); })
        .proxyLogs(
            {debug("ILaneGuidanceInformation writeToParcel mask 0xe"), debug("LaneGuidanceInformation out")})
        .stubLogs({debug("IRuoteGuidanceManeuverUpdateInfo FromParcel mask 0xe"),
                   debug("LaneGuidanceInformation enter")});
}

}  // namespace

std::vector<Event> guidanceEvents() { return {routeUpdate(), maneuverUpdate(), laneUpdate()}; }

}  // namespace accessory::test
