// Known values for every field of the route guidance records, and their words in a parcel.
#pragma once

#include "AppleiAP2/records/RouteGuidanceTables.h"
#include "tests/AppleiAP2/records/Words.h"

namespace accessory::test {

/// Three lanes: one with everything, one with nothing, one with an angle list of none.
std::vector<LaneInformation> sampleLanes();

struct RouteGuidanceSample {
    using Table = RouteGuidanceTable;
    static constexpr size_t kWrites = 25;  ///< that all fields and the mask take
    static android::sp<IRouteGuidaceUpdateInfo> filled();
    static std::vector<FieldWords> words();
    /// As filled(), made by a class that was compiled apart, with a mask of its own.
    static android::sp<RouteGuidaceUpdateInfo> apart(uint32_t mask);
};

struct ManeuverSample {
    using Table = ManeuverTable;
    static constexpr size_t kWrites = 17;  ///< that all fields and the mask take
    static android::sp<IRuoteGuidanceManeuverUpdateInfo> filled();
    static std::vector<FieldWords> words();
    /// As filled(), made by a class that was compiled apart, with a mask of its own.
    static android::sp<RuoteGuidanceManeuverUpdateInfo> apart(uint32_t mask);
};

struct LaneGuidanceSample {
    using Table = LaneGuidanceTable;
    static constexpr size_t kWrites = 16;  ///< that all fields and the mask take
    static android::sp<ILaneGuidanceInformation> filled();
    static std::vector<FieldWords> words();
    /// As filled(), made by a class that was compiled apart, with a mask of its own.
    static android::sp<LaneGuidanceInfo> apart(uint32_t mask);
};

}  // namespace accessory::test
