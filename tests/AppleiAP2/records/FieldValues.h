// Comparing field values of records, whatever their kind.
#pragma once

#include <algorithm>
#include <cstring>

#include "AppleiAP2/records/ArrayKinds.h"
#include "AppleiAP2/records/LaneList.h"

namespace accessory::test {

inline bool sameValue(int64_t a, int64_t b) { return a == b; }

inline bool sameValue(const char* a, const char* b) {
    return a == b || (a != nullptr && b != nullptr && std::strcmp(a, b) == 0);
}

inline bool sameValue(const LaneInformation& a, const LaneInformation& b);

template <typename Entry>
bool sameValue(const Counted<Entry>& a, const Counted<Entry>& b) {
    return a.count == b.count &&
           std::equal(a.data, a.data + a.count, b.data,
                      [](const Entry& one, const Entry& other) { return sameValue(one, other); });
}

inline bool sameValue(const LaneInformation& a, const LaneInformation& b) {
    return a.mask == b.mask && a.laneField0 == b.laneField0 && a.laneField1 == b.laneField1 &&
           sameValue(Counted<int16_t>{a.laneAngleCnt, a.laneAngle},
                     Counted<int16_t>{b.laneAngleCnt, b.laneAngle}) &&
           a.laneField3 == b.laneField3;
}

/// What a field is that the mask does not name: 0, null, or an array of none.
inline bool isAbsent(int64_t value) { return value == 0; }
inline bool isAbsent(const char* value) { return value == nullptr; }
template <typename Entry>
bool isAbsent(const Counted<Entry>& value) {
    return value.count == 0;
}

/// Whether @p record has the values of @p filled in the fields of @p present and no others.
template <typename Table>
bool hasExactly(uint32_t present, const typename Table::Parcelable& record,
                const typename Table::Parcelable& filled) {
    return everyFieldIn(~0u, Table::kFields, [&](const auto& row) {
        const auto value = std::invoke(row.get, record);
        return row.isIn(present) ? sameValue(value, std::invoke(row.get, filled)) : isAbsent(value);
    });
}

}  // namespace accessory::test
