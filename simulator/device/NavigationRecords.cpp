#include "simulator/device/NavigationRecords.h"

#include <algorithm>

namespace accessory::simulator {

namespace {

// How many maneuvers ahead the device lists.
constexpr size_t kListed = 2;

uint32_t countOf(const Displays& displays) { return static_cast<uint32_t>(displays.size()); }

/// @p angles is where the lane's angles are kept while the record copies them.
LaneInformation laneOf(const Lane& lane, std::vector<int16_t>* angles) {
    *angles = lane.angles;
    LaneInformation info;
    info.mask = LaneInformation::kLaneField0 | LaneInformation::kLaneField1 | LaneInformation::kLaneAngle |
                LaneInformation::kLaneField3;
    info.laneField1 = lane.recommended ? 2 : 0;
    info.laneAngleCnt = static_cast<uint32_t>(angles->size());
    info.laneAngle = angles->data();
    info.laneField3 = static_cast<uint16_t>(lane.highlightedAngle);
    return info;
}

}  // namespace

GuidanceView::GuidanceView(const Route& route, uint64_t deviceTime) {
    state = static_cast<int32_t>(route.state());
    if (route.state() == GuidanceState::kNoRoute) return;
    const RoutePlan& plan = route.plan();
    const size_t next = route.nextManeuver();
    maneuverState = static_cast<int32_t>(route.maneuverState());
    road = route.currentRoad();
    destination = plan.destination;
    source = plan.source;
    secondsRemaining = route.timeRemaining();
    arrival = deviceTime + secondsRemaining;
    metresRemaining = route.distanceRemaining();
    metresToNext = route.distanceToNext();
    remaining = displayDistance(metresRemaining);
    toNext = displayDistance(metresToNext);
    for (size_t i = next; i < std::min(next + kListed, plan.maneuvers.size()); ++i)
        nextManeuvers.push_back(static_cast<uint16_t>(i));
    maneuverCount = static_cast<uint16_t>(plan.maneuvers.size());
    lanesShown = !plan.maneuvers[next].lanes.lanes.empty();
    laneIndex = static_cast<uint16_t>(next);
    laneCount =
        static_cast<uint16_t>(std::count_if(plan.maneuvers.begin(), plan.maneuvers.end(),
                                            [](const Maneuver& m) { return !m.lanes.lanes.empty(); }));
    timeZoneMinutes = static_cast<int16_t>(plan.timeZoneMinutes);
}

android::sp<RouteGuidaceUpdateInfo> guidanceRecord(const GuidanceView& view, const Displays& displays,
                                                   uint32_t fields) {
    const android::sp<IRouteGuidaceUpdateInfo> record = new IRouteGuidaceUpdateInfo();
    record->setDisplayID(displays.data(), countOf(displays))
        .setRouteGuidanceState(view.state)
        .setManeuverState(view.maneuverState)
        .setCurrentRoadName(view.road.c_str())
        .setDestinationName(view.destination.c_str())
        .setETA(view.arrival)
        .setTimeRemainingToDestination(view.secondsRemaining)
        .setDisatnceRemaining(static_cast<int32_t>(view.metresRemaining))
        .setDistanceRemainingDisplayStr(view.remaining.text.c_str())
        .setDistanceRemainingDisplayUints(view.remaining.units)
        .setDistanceToNextManeuver(static_cast<int32_t>(view.metresToNext))
        .setDistanceToNextManeuverDisplayStr(view.toNext.text.c_str())
        .setDistanceToNextManeuverDisplayUnits(view.toNext.units)
        .setRouteGuidanceManeuverCurrentList(view.nextManeuvers.data(), countOf(view.nextManeuvers))
        .setRouteGuidanceManeuverCount(view.maneuverCount)
        .setRouteGuidanceVisiableInApp(1)
        .setLaneGuidanceCurrentIndex(view.laneIndex)
        .setLaneGuidanceTotalCount(view.laneCount)
        .setLaneGuidanceBeingShownInApp(view.lanesShown ? 1 : 0)
        .setSourceName(view.source.c_str())
        .setSourceSupportsRouteGuidance(1)
        .setDestinationTimeZoneOffsetMinutes(view.timeZoneMinutes);
    if (fields != 0) record->mMask &= fields;
    return record;
}

android::sp<RuoteGuidanceManeuverUpdateInfo> maneuverRecord(const Maneuver& maneuver, uint16_t index,
                                                            const DisplayDistance& distanceText,
                                                            const Displays& displays) {
    const android::sp<IRuoteGuidanceManeuverUpdateInfo> record = new IRuoteGuidanceManeuverUpdateInfo();
    record->setRouteGuidanceDisplayComponentID(displays.data(), countOf(displays))
        .setIndex(index)
        .setManeuverDescription(maneuver.description.c_str())
        .setManeuverType(maneuver.type)
        .setAfterManeuverRoadName(maneuver.road.c_str())
        .setDistanceBetweenManeuver(static_cast<int32_t>(maneuver.distance))
        .setDistanceBetweenManeuverDisplayStr(distanceText.text.c_str())
        .setDistanceBetweenManeuverDisplayUnits(distanceText.units)
        .setDrivingSide(maneuver.drivingSide)
        .setJunctionType(maneuver.junctionType)
        .setJunctionElementAngel(maneuver.elementAngles.data(),
                                 static_cast<uint32_t>(maneuver.elementAngles.size()))
        .setJunctionElementExitAngel(maneuver.exitAngle);
    if (!maneuver.lanes.lanes.empty()) record->setLinkedLaneGuidanceInformation(index);
    if (!maneuver.exitInfo.empty()) record->setExitInfo(maneuver.exitInfo.c_str());
    return record;
}

android::sp<LaneGuidanceInfo> laneRecord(const LaneGuidance& lanes, uint16_t index,
                                         const Displays& displays) {
    std::vector<std::vector<int16_t>> angles(lanes.lanes.size());
    std::vector<LaneInformation> entries;
    for (size_t i = 0; i < lanes.lanes.size(); ++i) {
        entries.push_back(laneOf(lanes.lanes[i], &angles[i]));
        entries.back().laneField0 = static_cast<uint16_t>(i);
    }
    const android::sp<ILaneGuidanceInformation> record = new ILaneGuidanceInformation();
    record->setRouteGuidanceDisplayComponentID(displays.data(), countOf(displays))
        .setLaneGuidanceIndex(index)
        .setLaneInformation(entries.data(), static_cast<uint32_t>(entries.size()))
        .setLaneGuidanceDescription(lanes.description.c_str());
    return record;
}

}  // namespace accessory::simulator
