// How GoogleTest shows records in what it says of a failure: in their readable form, toString().
//
// They stand in the records' own namespace, where GoogleTest looks for them.
#pragma once

#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/PowerRecords.h>
#include <accessory/RouteGuidanceRecords.h>

#include <ostream>
#include <string>
#include <type_traits>

namespace accessory {

/// @name Printers of records
/// @{

/// Writes the readable form of @p record to @p out; "null" for a null pointer.
inline void PrintTo(const iAP2ItemAttribute& record, std::ostream* out) { *out << toString(record); }
inline void PrintTo(const iAP2MediaPlayback& record, std::ostream* out) { *out << toString(record); }
inline void PrintTo(const iAP2PowerUpdate& record, std::ostream* out) { *out << toString(record); }
inline void PrintTo(const iAP2MediaLibGroupData& record, std::ostream* out) { *out << toString(record); }
inline void PrintTo(const iAP2MediaLibData& record, std::ostream* out) { *out << toString(record); }
inline void PrintTo(const MediaLibUpdateInfo& record, std::ostream* out) { *out << toString(record); }
inline void PrintTo(const RouteGuidaceUpdateInfo& record, std::ostream* out) { *out << toString(record); }
inline void PrintTo(const RuoteGuidanceManeuverUpdateInfo& record, std::ostream* out) {
    *out << toString(record);
}
inline void PrintTo(const LaneInformation& record, std::ostream* out) { *out << toString(record); }
inline void PrintTo(const LaneGuidanceInfo& record, std::ostream* out) { *out << toString(record); }
template <typename Record>
auto PrintTo(const android::sp<Record>& record, std::ostream* out)
    -> std::enable_if_t<std::is_same_v<decltype(toString(*record)), std::string>> {
    *out << (record != nullptr ? toString(*record) : "null");
}

/// @}

}  // namespace accessory
