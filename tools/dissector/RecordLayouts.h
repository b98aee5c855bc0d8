// How the fields of the records lie in a parcel.
#pragma once

#include "AppleiAP2/records/LaneList.h"
#include "AppleiAP2/records/MediaLibraryTables.h"
#include "AppleiAP2/records/NowPlayingTables.h"
#include "AppleiAP2/records/PowerTables.h"
#include "AppleiAP2/records/RouteGuidanceTables.h"
#include "tools/dissector/Nodes.h"
#include "tools/rows/RecordCodecs.h"

namespace accessory::dissector {

template <typename Fields>
std::vector<Node> recordFields(const Fields& fields);

/// Of kinds with no overload of their own the nearest base counts.
template <typename Integer>
Node recordNode(const NarrowInteger<Integer>& /*kind*/, const char* name) {
    return word<Integer>(name);
}
inline Node recordNode(const SignExtendedHalf& /*kind*/, const char* name) { return word<uint16_t>(name); }
inline Node recordNode(const WideInteger& /*kind*/, const char* name) { return word<uint64_t>(name); }
inline Node recordNode(const PlainString& /*kind*/, const char* name) { return text(name); }
inline Node recordNode(const CountedString& /*kind*/, const char* name) { return optional(text(name)); }
inline Node recordNode(const Block& /*kind*/, const char* name) { return array<int16_t>(name); }
inline Node recordNode(const LaneList& /*kind*/, const char* name) {
    return nodeOf("list", name, {nodeOf("record", "", recordFields(LaneTable::kFields))});
}
inline Node recordNode(const GroupList& /*kind*/, const char* name) {
    return nodeOf("typed", name,
                  {nodeOf("record", "item", recordFields(MediaItemTable::kFields)),
                   nodeOf("record", "playlist", recordFields(MediaPlaylistTable::kFields)),
                   nodeOf("struct", "deletedItem", {word<uint64_t>("delId")}),
                   nodeOf("struct", "deletedPlaylist", {word<uint64_t>("delId")})});
}

template <typename Fields>
std::vector<Node> recordFields(const Fields& fields) {
    std::vector<Node> nodes;
    const auto add = [&nodes](const auto& row) {
        nodes.push_back("{bit=" + std::to_string(row.bit) + ",node=" + recordNode(row.kind, row.name) + "}");
    };
    std::apply([&add](const auto&... row) { (add(row), ...); }, fields);
    return nodes;
}

/// The record of the events.
template <typename Plain, typename Parcelable, typename Argument>
Node layout(const wire::iap2_notifier::Record<Plain, Parcelable, Argument>& field) {
    return nodeOf("record", field.name, recordFields(tools::TableOf<Plain>::kFields));
}

}  // namespace accessory::dissector
