// LaneList: the kind of field that is a list of lanes, and the table of one lane.
#pragma once

#include <accessory/RouteGuidanceRecords.h>

#include "AppleiAP2/records/ArrayKinds.h"

namespace accessory {

/// A 16-bit value that travels as if it were signed, whatever it is.
struct SignExtendedHalf {
    const char* name = "u16AsSignedI32";

    bool write(RecordWriter& writer, uint16_t value) const {
        return i16AsI32.write(writer, static_cast<int16_t>(value));
    }
    bool read(RecordReader& reader, uint16_t& slot) const { return u16AsI32.read(reader, slot); }
    void print(std::string& text, uint16_t value) const { u16AsI32.print(text, value); }
};

/// A row of a lane, a plain structure whose members are their own getters.
template <typename Kind, typename Member>
constexpr auto laneField(Kind kind, uint32_t bit, const char* name, Member member) {
    return Field<Kind, Member, Member>{kind, bit, name, member, member};
}

/// The table of a lane; its mask goes before it.
struct LaneTable {
    using Lane = LaneInformation;
    using Angles = CountedMember<Lane, int16_t>;

    static constexpr auto kFields =
        fieldTable(laneField(u16AsI32, Lane::kLaneField0, "laneField0", &Lane::laneField0),
                   laneField(i32, Lane::kLaneField1, "laneField1", &Lane::laneField1),
                   laneField(Block{"curLaneInformation->laneAngle"}, Lane::kLaneAngle, "laneAngle",
                             Angles{&Lane::laneAngleCnt, &Lane::laneAngle}),
                   laneField(SignExtendedHalf{}, Lane::kLaneField3, "laneField3", &Lane::laneField3));
};

/// A count, then as many lanes, each a mask with the fields it names; nothing but the count for a null array.
/// The reader owns an array even for a count of 0.
struct LaneList {
    const char* array = nullptr;  ///< how the log names it when it cannot be allocated
    const char* name = "laneList";

    bool write(RecordWriter& writer, Counted<LaneInformation> lanes) const;
    bool read(RecordReader& reader, CountedSlot<LaneInformation> slot) const;
    void print(std::string& text, Counted<LaneInformation> lanes) const;
};

/// Frees @p count lanes and their angles; null is allowed.
void freeLanes(LaneInformation* lanes, uint32_t count);

}  // namespace accessory
