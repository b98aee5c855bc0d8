// Builders of route guidance; how they work is told in <accessory/testing/RecordBuilder.h>.
#pragma once

#include <accessory/RouteGuidanceRecords.h>
#include <accessory/testing/RecordBuilder.h>

#include <string>
#include <vector>

namespace accessory::testkit {

/// The overall state: RouteGuidance().currentRoadName("Mill Lane").
class RouteGuidance : public RecordBuilder<IRouteGuidaceUpdateInfo> {
  public:
    /// @name Fields
    /// @{

    /// Sets the record's field of that name, and marks it present. Arrays and texts are copied.
    /// @return this builder, for the next field.
    RouteGuidance& displayID(const std::vector<uint16_t>& values) {
        return setList(this, &Record::setDisplayID, values);
    }
    RouteGuidance& routeGuidanceState(int32_t value) {
        return set(this, &Record::setRouteGuidanceState, value);
    }
    RouteGuidance& maneuverState(int32_t value) { return set(this, &Record::setManeuverState, value); }
    RouteGuidance& currentRoadName(const Text& value) {
        return set(this, &Record::setCurrentRoadName, text(value));
    }
    RouteGuidance& destinationName(const Text& value) {
        return set(this, &Record::setDestinationName, text(value));
    }
    RouteGuidance& eta(uint64_t value) { return set(this, &Record::setETA, value); }
    RouteGuidance& timeRemainingToDestination(uint64_t value) {
        return set(this, &Record::setTimeRemainingToDestination, value);
    }
    RouteGuidance& disatnceRemaining(int32_t value) {
        return set(this, &Record::setDisatnceRemaining, value);
    }
    RouteGuidance& distanceRemainingDisplayStr(const Text& value) {
        return set(this, &Record::setDistanceRemainingDisplayStr, text(value));
    }
    RouteGuidance& distanceRemainingDisplayUints(int32_t value) {
        return set(this, &Record::setDistanceRemainingDisplayUints, value);
    }
    RouteGuidance& distanceToNextManeuver(int32_t value) {
        return set(this, &Record::setDistanceToNextManeuver, value);
    }
    RouteGuidance& distanceToNextManeuverDisplayStr(const Text& value) {
        return set(this, &Record::setDistanceToNextManeuverDisplayStr, text(value));
    }
    RouteGuidance& distanceToNextManeuverDisplayUnits(int32_t value) {
        return set(this, &Record::setDistanceToNextManeuverDisplayUnits, value);
    }
    RouteGuidance& routeGuidanceManeuverCurrentList(const std::vector<uint16_t>& values) {
        return setList(this, &Record::setRouteGuidanceManeuverCurrentList, values);
    }
    RouteGuidance& routeGuidanceManeuverCount(uint16_t value) {
        return set(this, &Record::setRouteGuidanceManeuverCount, value);
    }
    RouteGuidance& routeGuidanceVisiableInApp(uint16_t value) {
        return set(this, &Record::setRouteGuidanceVisiableInApp, value);
    }
    RouteGuidance& laneGuidanceCurrentIndex(uint16_t value) {
        return set(this, &Record::setLaneGuidanceCurrentIndex, value);
    }
    RouteGuidance& laneGuidanceTotalCount(uint16_t value) {
        return set(this, &Record::setLaneGuidanceTotalCount, value);
    }
    RouteGuidance& laneGuidanceBeingShownInApp(uint16_t value) {
        return set(this, &Record::setLaneGuidanceBeingShownInApp, value);
    }
    RouteGuidance& sourceName(const Text& value) { return set(this, &Record::setSourceName, text(value)); }
    RouteGuidance& sourceSupportsRouteGuidance(uint16_t value) {
        return set(this, &Record::setSourceSupportsRouteGuidance, value);
    }
    RouteGuidance& destinationTimeZoneOffsetMinutes(int16_t value) {
        return set(this, &Record::setDestinationTimeZoneOffsetMinutes, value);
    }

    /// @}
};

/// Maneuver().index(1).maneuverDescription("Turn right").
class Maneuver : public RecordBuilder<IRuoteGuidanceManeuverUpdateInfo> {
  public:
    /// @name Fields
    /// @{

    /// Sets the record's field of that name, and marks it present. Arrays and texts are copied.
    /// @return this builder, for the next field.
    Maneuver& routeGuidanceDisplayComponentID(const std::vector<uint16_t>& values) {
        return setList(this, &Record::setRouteGuidanceDisplayComponentID, values);
    }
    Maneuver& index(uint16_t value) { return set(this, &Record::setIndex, value); }
    Maneuver& maneuverDescription(const Text& value) {
        return set(this, &Record::setManeuverDescription, text(value));
    }
    Maneuver& maneuverType(int32_t value) { return set(this, &Record::setManeuverType, value); }
    Maneuver& afterManeuverRoadName(const Text& value) {
        return set(this, &Record::setAfterManeuverRoadName, text(value));
    }
    Maneuver& distanceBetweenManeuver(int32_t value) {
        return set(this, &Record::setDistanceBetweenManeuver, value);
    }
    Maneuver& distanceBetweenManeuverDisplayStr(const Text& value) {
        return set(this, &Record::setDistanceBetweenManeuverDisplayStr, text(value));
    }
    Maneuver& distanceBetweenManeuverDisplayUnits(int32_t value) {
        return set(this, &Record::setDistanceBetweenManeuverDisplayUnits, value);
    }
    Maneuver& drivingSide(int32_t value) { return set(this, &Record::setDrivingSide, value); }
    Maneuver& junctionType(int32_t value) { return set(this, &Record::setJunctionType, value); }
    Maneuver& junctionElementAngel(const std::vector<int16_t>& values) {
        return setList(this, &Record::setJunctionElementAngel, values);
    }
    Maneuver& junctionElementExitAngel(int16_t value) {
        return set(this, &Record::setJunctionElementExitAngel, value);
    }
    Maneuver& linkedLaneGuidanceInformation(uint16_t value) {
        return set(this, &Record::setLinkedLaneGuidanceInformation, value);
    }
    Maneuver& exitInfo(const Text& value) { return set(this, &Record::setExitInfo, text(value)); }

    /// @}
};

/// The lanes at one point; each lane owns nothing, as in the record.
class LaneGuidance : public RecordBuilder<ILaneGuidanceInformation> {
  public:
    /// @name Fields
    /// @{

    /// Sets the record's field of that name, and marks it present. Arrays and texts are copied.
    /// @return this builder, for the next field.
    LaneGuidance& routeGuidanceDisplayComponentID(const std::vector<uint16_t>& values) {
        return setList(this, &Record::setRouteGuidanceDisplayComponentID, values);
    }
    LaneGuidance& laneGuidanceIndex(uint16_t value) {
        return set(this, &Record::setLaneGuidanceIndex, value);
    }
    LaneGuidance& laneInformation(const std::vector<LaneInformation>& values) {
        return setList(this, &Record::setLaneInformation, values);
    }
    LaneGuidance& laneGuidanceDescription(const Text& value) {
        return set(this, &Record::setLaneGuidanceDescription, text(value));
    }

    /// @}
};

}  // namespace accessory::testkit
