#include "AppleiAP2/records/LaneList.h"

#include "AppleiAP2/records/ArrayMemory.h"

namespace accessory {
namespace {

constexpr size_t kSmallestLaneBytes = sizeof(uint32_t);  // a mask of 0

}  // namespace

bool LaneList::write(RecordWriter& writer, Counted<LaneInformation> lanes) const {
    writer.int32(static_cast<int32_t>(lanes.count));
    if (lanes.data == nullptr) return true;
    for (uint32_t i = 0; i < lanes.count; ++i) {
        writer.record(lanes.data[i].mask, lanes.data[i], LaneTable::kFields);
    }
    return true;
}

bool LaneList::read(RecordReader& reader, CountedSlot<LaneInformation> slot) const {
    const uint32_t count = reader.uint32();
    slot.data = reader.allocate<LaneInformation>(count, kSmallestLaneBytes, array);
    if (slot.data == nullptr) return false;
    slot.count = count;
    for (uint32_t i = 0; i < count; ++i) {
        LaneInformation& lane = slot.data[i];
        lane.mask = reader.uint32();
        if (!reader.fields(lane.mask, lane, LaneTable::kFields)) return false;
    }
    return true;
}

void LaneList::print(std::string& text, Counted<LaneInformation> lanes) const {
    appendList(text, lanes.count, lanes.data != nullptr,
               [&](uint32_t i) { text += toString(lanes.data[i]); });
}

void freeLanes(LaneInformation* lanes, uint32_t count) {
    if (lanes == nullptr) return;
    for (uint32_t i = 0; i < count; ++i)
        freeArray(lanes[i].laneAngle);
    freeArray(lanes);
}

std::string toString(const LaneInformation& lane) {
    return recordText("LaneInformation", lane.mask, lane, LaneTable::kFields);
}

}  // namespace accessory
