// The tables of the route guidance records.
#pragma once

#include <accessory/RouteGuidanceRecords.h>

#include "AppleiAP2/records/ArrayKinds.h"
#include "AppleiAP2/records/LaneList.h"

namespace accessory {

inline constexpr AssertedString kAssertedString("tmpStr");
inline constexpr StoppingString kStoppingString("tmpStr");

/// The table of the guidance state.
struct RouteGuidanceTable {
    using Plain = RouteGuidaceUpdateInfo;
    using Parcelable = IRouteGuidaceUpdateInfo;

    static constexpr const char* kName = "RouteGuidaceUpdateInfo";
    static constexpr auto kFields = fieldTable(
        countedField(ArrayBlock("info->displayComponentID"), Plain::kDisplayID, "displayID",
                     &Plain::getDisplayIdCnt, &Plain::getDisplayID, &Parcelable::mDisplayIdCnt,
                     &Parcelable::mDisplayID),
        field(i32, Plain::kRouteGuidanceState, "routeGuidanceState", &Plain::getRouteGuidanceState,
              &Parcelable::mRouteGuidanceState),
        field(i32, Plain::kManeuverState, "maneuverState", &Plain::getManeuverState,
              &Parcelable::mManeuverState),
        field(kAssertedString, Plain::kCurrentRoadName, "currentRoadName", &Plain::getCurrentRoadName,
              &Parcelable::mCurrentRoadName),
        field(kAssertedString, Plain::kDestinationName, "destinationName", &Plain::getDestinationName,
              &Parcelable::mDestinationName),
        field(u64, Plain::kETA, "ETA", &Plain::getETA, &Parcelable::mETA),
        field(u64, Plain::kTimeRemainingToDestination, "timeRemainingToDestination",
              &Plain::getTimeRemainingToDestination, &Parcelable::mTimeRemainingToDestination),
        field(i32, Plain::kDisatnceRemaining, "disatnceRemaining", &Plain::getDisatnceRemaining,
              &Parcelable::mDisatnceRemaining),
        field(kAssertedString, Plain::kDistanceRemainingDisplayStr, "distanceRemainingDisplayStr",
              &Plain::getDistanceRemainingDisplayStr, &Parcelable::mDistanceRemainingDisplayStr),
        field(i32, Plain::kDistanceRemainingDisplayUints, "distanceRemainingDisplayUints",
              &Plain::getDistanceRemainingDisplayUints, &Parcelable::mDistanceRemainingDisplayUints),
        field(i32, Plain::kDistanceToNextManeuver, "distanceToNextManeuver",
              &Plain::getDistanceToNextManeuver, &Parcelable::mDistanceToNextManeuver),
        field(kStoppingString, Plain::kDistanceToNextManeuverDisplayStr, "distanceToNextManeuverDisplayStr",
              &Plain::getDistanceToNextManeuverDisplayStr, &Parcelable::mDistanceToNextManeuverDisplayStr),
        field(i32, Plain::kDistanceToNextManeuverDisplayUnits, "distanceToNextManeuverDisplayUnits",
              &Plain::getDistanceToNextManeuverDisplayUnits,
              &Parcelable::mDistanceToNextManeuverDisplayUnits),
        countedField(
            ArrayBlock("info->routeGuidanceManeuverCurrentList"), Plain::kRouteGuidanceManeuverCurrentList,
            "routeGuidanceManeuverCurrentList", &Plain::getRouteGuidanceManeuverInCurrentListCnt,
            &Plain::getRouteGuidanceManeuverCurrentList, &Parcelable::mRouteGuidanceManeuverInCurrentListCnt,
            &Parcelable::mRouteGuidanceManeuverCurrentList),
        field(u16AsI32, Plain::kRouteGuidanceManeuverCount, "routeGuidanceManeuverCount",
              &Plain::getRouteGuidanceManeuverCount, &Parcelable::mRouteGuidanceManeuverCount),
        field(u16AsI32, Plain::kRouteGuidanceVisiableInApp, "routeGuidanceVisiableInApp",
              &Plain::getRouteGuidanceVisiableInApp, &Parcelable::mRouteGuidanceVisiableInApp),
        field(u16AsI32, Plain::kLaneGuidanceCurrentIndex, "laneGuidanceCurrentIndex",
              &Plain::getLaneGuidanceCurrentIndex, &Parcelable::mLaneGuidanceCurrentIndex),
        field(u16AsI32, Plain::kLaneGuidanceTotalCount, "laneGuidanceTotalCount",
              &Plain::getLaneGuidanceTotalCount, &Parcelable::mLaneGuidanceTotalCount),
        field(u16AsI32, Plain::kLaneGuidanceBeingShownInApp, "laneGuidanceBeingShownInApp",
              &Plain::getLaneGuidanceBeingShownInApp, &Parcelable::mLaneGuidanceBeingShownInApp),
        field(kStoppingString, Plain::kSourceName, "sourceName", &Plain::getSourceName,
              &Parcelable::mSourceName),
        field(u16AsI32, Plain::kSourceSupportsRouteGuidance, "sourceSupportsRouteGuidance",
              &Plain::getSourceSupportsRouteGuidance, &Parcelable::mSourceSupportsRouteGuidance),
        field(i16AsI32, Plain::kDestinationTimeZoneOffsetMinutes, "destinationTimeZoneOffsetMinutes",
              &Plain::getDestinationTimeZoneOffsetMinutes, &Parcelable::mDestinationTimeZoneOffsetMinutes));
};

/// The table of a maneuver.
struct ManeuverTable {
    using Plain = RuoteGuidanceManeuverUpdateInfo;
    using Parcelable = IRuoteGuidanceManeuverUpdateInfo;

    static constexpr const char* kName = "RuoteGuidanceManeuverUpdateInfo";
    static constexpr auto kFields = fieldTable(
        countedField(
            ArrayBlock("info->routeGuidanceDisplayComponentID"), Plain::kRouteGuidanceDisplayComponentID,
            "routeGuidanceDisplayComponentID", &Plain::getRouteGuidanceDisplayComponentIDCnt,
            &Plain::getRouteGuidanceDisplayComponentID, &Parcelable::mRouteGuidanceDisplayComponentIDCnt,
            &Parcelable::mRouteGuidanceDisplayComponentID),
        field(u16AsI32, Plain::kIndex, "index", &Plain::getIndex, &Parcelable::mIndex),
        field(kAssertedString, Plain::kManeuverDescription, "maneuverDescription",
              &Plain::getManeuverDescription, &Parcelable::mManeuverDescription),
        field(i32, Plain::kManeuverType, "maneuverType", &Plain::getManeuverType, &Parcelable::mManeuverType),
        field(kAssertedString, Plain::kAfterManeuverRoadName, "afterManeuverRoadName",
              &Plain::getAfterManeuverRoadName, &Parcelable::mAfterManeuverRoadName),
        field(i32, Plain::kDistanceBetweenManeuver, "distanceBetweenManeuver",
              &Plain::getDistanceBetweenManeuver, &Parcelable::mDistanceBetweenManeuver),
        field(kAssertedString, Plain::kDistanceBetweenManeuverDisplayStr, "distanceBetweenManeuverDisplayStr",
              &Plain::getDistanceBetweenManeuverDisplayStr, &Parcelable::mDistanceBetweenManeuverDisplayStr),
        field(i32, Plain::kDistanceBetweenManeuverDisplayUnits, "distanceBetweenManeuverDisplayUnits",
              &Plain::getDistanceBetweenManeuverDisplayUnits,
              &Parcelable::mDistanceBetweenManeuverDisplayUnits),
        field(i32, Plain::kDrivingSide, "drivingSide", &Plain::getDrivingSide, &Parcelable::mDrivingSide),
        field(i32, Plain::kJunctionType, "junctionType", &Plain::getJunctionType, &Parcelable::mJunctionType),
        countedField(ArrayBlock("info->junctionElementAngel"), Plain::kJunctionElementAngel,
                     "junctionElementAngel", &Plain::getJunctionElementAngelCnt,
                     &Plain::getJunctionElementAngel, &Parcelable::mJunctionElementAngelCnt,
                     &Parcelable::mJunctionElementAngel),
        field(i16AsI32, Plain::kJunctionElementExitAngel, "junctionElementExitAngel",
              &Plain::getJunctionElementExitAngel, &Parcelable::mJunctionElementExitAngel),
        field(u16AsI32, Plain::kLinkedLaneGuidanceInformation, "linkedLaneGuidanceInformation",
              &Plain::getLinkedLaneGuidanceInformation, &Parcelable::mLinkedLaneGuidanceInformation),
        field(kAssertedString, Plain::kExitInfo, "exitInfo", &Plain::getExitInfo, &Parcelable::mExitInfo));
};

/// The table of lane guidance.
struct LaneGuidanceTable {
    using Plain = LaneGuidanceInfo;
    using Parcelable = ILaneGuidanceInformation;

    static constexpr const char* kName = "LaneGuidanceInfo";
    static constexpr auto kFields = fieldTable(
        countedField(
            ArrayBlock("info->routeGuidanceDisplayComponentID"), Plain::kRouteGuidanceDisplayComponentID,
            "routeGuidanceDisplayComponentID", &Plain::getRouteGuidanceDisplayComponentIDCnt,
            &Plain::getRouteGuidanceDisplayComponentID, &Parcelable::mRouteGuidanceDisplayComponentIDCnt,
            &Parcelable::mRouteGuidanceDisplayComponentID),
        field(u16AsI32, Plain::kLaneGuidanceIndex, "laneGuidanceIndex", &Plain::getLaneGuidanceIndex,
              &Parcelable::mLaneGuidanceIndex),
        countedField(LaneList{"info->laneInformation"}, Plain::kLaneInformation, "laneInformation",
                     &Plain::getLaneInformationCnt, &Plain::getLaneInformation,
                     &Parcelable::mLaneInformationCnt, &Parcelable::mLaneInformation),
        field(kAssertedString, Plain::kLaneGuidanceDescription, "laneGuidanceDescription",
              &Plain::getLaneGuidanceDescription, &Parcelable::mLaneGuidanceDescription));
};

}  // namespace accessory
