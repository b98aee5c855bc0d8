// The setters of the route guidance records that copy an array.
#include <accessory/RouteGuidanceRecords.h>

#include <algorithm>

#include "AppleiAP2/records/ArrayMemory.h"
#include "AppleiAP2/records/LaneList.h"

namespace accessory {
namespace {

// A copy in array memory; null for a null source, or without memory.
template <typename Entry>
Entry* copyOf(const Entry* entries, uint32_t count) {
    if (entries == nullptr) return nullptr;
    auto* copy = static_cast<Entry*>(allocateArray(count, sizeof(Entry)));
    if (copy != nullptr) std::copy_n(entries, count, copy);
    return copy;
}

// Gives the lane its own angles in place of the producer's, and none that its mask does not name.
bool ownAngles(LaneInformation& lane) {
    const int16_t* borrowed = (lane.mask & LaneInformation::kLaneAngle) != 0 ? lane.laneAngle : nullptr;
    lane.laneAngle = copyOf(borrowed, lane.laneAngleCnt);
    return (lane.laneAngle == nullptr) == (borrowed == nullptr);
}

LaneInformation* copyOfLanes(const LaneInformation* lanes, uint32_t count) {
    LaneInformation* copies = copyOf(lanes, count);
    if (copies == nullptr) return nullptr;
    bool complete = true;
    for (uint32_t i = 0; i < count; ++i)
        complete = ownAngles(copies[i]) && complete;
    if (complete) return copies;
    freeLanes(copies, count);
    return nullptr;
}

// Puts a copy of @p source, null when that failed, into a slot that was emptied, and its bit into the mask. A
// null source keeps its count: the writer ends the process at it, or sends the count of lanes alone.
template <typename Entry>
void store(uint32_t& mask, uint32_t bit, CountedSlot<Entry> slot, Entry* copy, const Entry* source,
           uint32_t count) {
    const bool stored = (copy == nullptr) == (source == nullptr);
    slot.data = copy;
    slot.count = stored ? count : 0;
    mask = stored ? mask | bit : mask & ~bit;
}

template <typename Entry>
void replace(uint32_t& mask, uint32_t bit, CountedSlot<Entry> slot, const Entry* values, uint32_t count) {
    Entry* copy = copyOf(values, count);
    freeArray(slot.data);
    store(mask, bit, slot, copy, values, count);
}

}  // namespace

IRouteGuidaceUpdateInfo& IRouteGuidaceUpdateInfo::setDisplayID(const uint16_t* values, uint32_t count) {
    replace(mMask, kDisplayID, {mDisplayIdCnt, mDisplayID}, values, count);
    return *this;
}

IRouteGuidaceUpdateInfo& IRouteGuidaceUpdateInfo::setRouteGuidanceManeuverCurrentList(const uint16_t* values,
                                                                                      uint32_t count) {
    replace(mMask, kRouteGuidanceManeuverCurrentList,
            {mRouteGuidanceManeuverInCurrentListCnt, mRouteGuidanceManeuverCurrentList}, values, count);
    return *this;
}

IRuoteGuidanceManeuverUpdateInfo& IRuoteGuidanceManeuverUpdateInfo::setRouteGuidanceDisplayComponentID(
    const uint16_t* values, uint32_t count) {
    replace(mMask, kRouteGuidanceDisplayComponentID,
            {mRouteGuidanceDisplayComponentIDCnt, mRouteGuidanceDisplayComponentID}, values, count);
    return *this;
}

IRuoteGuidanceManeuverUpdateInfo& IRuoteGuidanceManeuverUpdateInfo::setJunctionElementAngel(
    const int16_t* values, uint32_t count) {
    replace(mMask, kJunctionElementAngel, {mJunctionElementAngelCnt, mJunctionElementAngel}, values, count);
    return *this;
}

ILaneGuidanceInformation& ILaneGuidanceInformation::setRouteGuidanceDisplayComponentID(const uint16_t* values,
                                                                                       uint32_t count) {
    replace(mMask, kRouteGuidanceDisplayComponentID,
            {mRouteGuidanceDisplayComponentIDCnt, mRouteGuidanceDisplayComponentID}, values, count);
    return *this;
}

ILaneGuidanceInformation& ILaneGuidanceInformation::setLaneInformation(const LaneInformation* values,
                                                                       uint32_t count) {
    LaneInformation* copies = copyOfLanes(values, count);
    freeLanes(mLaneInformation, mLaneInformationCnt);
    store(mMask, kLaneInformation, {mLaneInformationCnt, mLaneInformation}, copies, values, count);
    return *this;
}

}  // namespace accessory
