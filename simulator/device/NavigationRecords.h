// The route guidance records made from a route.
#pragma once

#include <accessory/RouteGuidanceRecords.h>

#include <string>
#include <vector>

#include "simulator/model/Route.h"

namespace accessory::simulator {

/// The route as clients see it, at one moment; owns its texts.
struct GuidanceView {
    GuidanceView() = default;
    /// @param deviceTime seconds since 1970.
    GuidanceView(const Route& route, uint64_t deviceTime);

    int32_t state = 0;
    int32_t maneuverState = 0;
    std::string road;
    std::string destination;
    std::string source;
    uint64_t arrival = 0;  ///< seconds since 1970
    uint64_t secondsRemaining = 0;
    uint32_t metresRemaining = 0;
    uint32_t metresToNext = 0;
    DisplayDistance remaining{"", 0};
    DisplayDistance toNext{"", 0};
    std::vector<uint16_t> nextManeuvers;
    uint16_t maneuverCount = 0;
    bool lanesShown = false;
    uint16_t laneIndex = 0;
    uint16_t laneCount = 0;
    int16_t timeZoneMinutes = 0;
};

using Displays = std::vector<uint16_t>;

/// Their strings are those of the argument, which must outlive the records.
android::sp<RouteGuidaceUpdateInfo> guidanceRecord(const GuidanceView& view, const Displays& displays,
                                                   uint32_t fields);
/// @param distanceText as displayDistance() says it; must outlive the record too.
android::sp<RuoteGuidanceManeuverUpdateInfo> maneuverRecord(const Maneuver& maneuver, uint16_t index,
                                                            const DisplayDistance& distanceText,
                                                            const Displays& displays);
android::sp<LaneGuidanceInfo> laneRecord(const LaneGuidance& lanes, uint16_t index, const Displays& displays);

}  // namespace accessory::simulator
