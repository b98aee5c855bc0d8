// The codecs of the events' data records and of the destination, all of which hold only what is present.
#pragma once

#include "AppleiAP2/notifier/NotifierRows.h"
#include "AppleiAP2/records/MediaLibraryTables.h"
#include "AppleiAP2/records/NowPlayingTables.h"
#include "AppleiAP2/records/PowerTables.h"
#include "AppleiAP2/records/RouteGuidanceTables.h"
#include "tools/rows/FieldCodec.h"
#include "tools/rows/Records.h"

namespace accessory::tools {

/// For the kinds that carry a record of @p Table.
template <typename Field, typename Table>
struct RecordCodec : UnguardedCodec {
    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        FieldDescription made;
        made.name = field.name;
        made.shape = Shape::kStructure;
        made.members = describeRecordFields(Table::kFields);
        made.expects = membersExpected(made.members);
        for (const FieldDescription& each : made.members)
            made.example[each.name] = each.example;
        return made;
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* keeper) {
        const android::sp<typename Table::Parcelable> record = new typename Table::Parcelable;
        fieldsFromJson({value, field.name, keeper}, record.get(), Table::kFields);
        field.write(out, android::sp<typename Table::Plain>(record.get()));
    }
    static Json::Value show(const android::sp<typename Table::Plain>& record) {
        return fieldsToJson(record->getMask(), *record, Table::kFields);
    }
};

/// Which table belongs to a record's plain class.
template <typename Plain>
struct TableOf;
template <>
struct TableOf<iAP2MediaLibData> : MediaLibDataTable {};
template <>
struct TableOf<iAP2ItemAttribute> : ItemAttributeTable {};
template <>
struct TableOf<iAP2MediaPlayback> : MediaPlaybackTable {};
template <>
struct TableOf<iAP2PowerUpdate> : PowerUpdateTable {};
template <>
struct TableOf<RouteGuidaceUpdateInfo> : RouteGuidanceTable {};
template <>
struct TableOf<RuoteGuidanceManeuverUpdateInfo> : ManeuverTable {};
template <>
struct TableOf<LaneGuidanceInfo> : LaneGuidanceTable {};

template <typename Plain, typename Parcelable, typename Argument>
struct FieldCodec<wire::iap2_notifier::Record<Plain, Parcelable, Argument>>
    : RecordCodec<wire::iap2_notifier::Record<Plain, Parcelable, Argument>, TableOf<Plain>> {};
template <typename Plain, typename Parcelable>
struct FieldCodec<wire::iap2_notifier::RequiredRecord<Plain, Parcelable>>
    : RecordCodec<wire::iap2_notifier::RequiredRecord<Plain, Parcelable>, TableOf<Plain>> {};

/// A field that is present is one that was given.
template <>
struct FieldCodec<wire::iap2_notifier::Destination> : UnguardedCodec {
    using Field = wire::iap2_notifier::Destination;

    static FieldDescription describe(const Field& field, unsigned position);
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* keeper);
    static Json::Value show(const DestinationInfo* info);
};

}  // namespace accessory::tools
