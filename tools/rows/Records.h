// The data records between their classes and JSON, driven by the records' tables: an object of the fields
// that are present, by name.
#pragma once

#include <accessory/MediaLibraryRecords.h>
#include <accessory/RouteGuidanceRecords.h>

#include <algorithm>
#include <cstdlib>
#include <functional>

#include "AppleiAP2/records/ArrayKinds.h"
#include "AppleiAP2/records/GroupList.h"
#include "AppleiAP2/records/Kinds.h"
#include "AppleiAP2/records/LaneList.h"
#include "tools/rows/Members.h"

namespace accessory::tools {

/// A list whose count stands in a parcel is not believed beyond this many entries.
inline constexpr uint32_t kMostEntriesShown = 65536;
void checkEntries(uint32_t count);

// Each kind of field: describe, to JSON, from JSON.

template <typename Integer>
FieldDescription describeKind(const NarrowInteger<Integer>& /*kind*/, const char* name, unsigned position) {
    return describeScalar<Integer>(name, position);
}
inline FieldDescription describeKind(const WideInteger& /*kind*/, const char* name, unsigned position) {
    return describeScalar<uint64_t>(name, position);
}
inline FieldDescription describeKind(const SignExtendedHalf& /*kind*/, const char* name, unsigned position) {
    return describeScalar<uint16_t>(name, position);
}
/// Whatever a kind does with a null string, a field that is present must have one.
inline FieldDescription describeKind(const PlainString& /*kind*/, const char* name, unsigned /*position*/) {
    return describeText(name, false);
}
FieldDescription describeKind(const Block& kind, const char* name, unsigned position);
FieldDescription describeKind(const LaneList& kind, const char* name, unsigned position);
FieldDescription describeKind(const GroupList& kind, const char* name, unsigned position);

template <typename Kind, typename Number, typename = std::enable_if_t<std::is_arithmetic_v<Number>>>
Json::Value valueToJson(const Kind& /*kind*/, Number value) {
    return Scalar<Number>::toJson(value);
}
inline Json::Value valueToJson(const PlainString& /*kind*/, const char* value) { return textToJson(value); }
template <typename Entry>
Json::Value valueToJson(const Block& /*kind*/, Counted<Entry> value) {
    checkEntries(value.count);
    Json::Value shown(Json::arrayValue);
    for (uint32_t i = 0; value.data != nullptr && i < value.count; ++i)
        shown.append(Scalar<std::remove_const_t<Entry>>::toJson(value.data[i]));
    return shown;
}
Json::Value valueToJson(const LaneList& kind, Counted<LaneInformation> lanes);
Json::Value valueToJson(const GroupList& kind, const iAP2MediaLibData& update);

/// Where a value goes, and what a message about it needs.
struct RecordInput {
    const Json::Value& value;
    std::string where;
    Keeper* keeper;
};

template <typename Kind, typename Number, typename = std::enable_if_t<std::is_arithmetic_v<Number>>>
void valueFromJson(const Kind& /*kind*/, const RecordInput& input, Number& slot) {
    slot = Scalar<Number>::fromJson(input.value, input.where);
}
inline void valueFromJson(const PlainString& /*kind*/, const RecordInput& input, const char*& slot) {
    slot = input.keeper->keepText(text(input.value, input.where));
}
/// The record owns its arrays, as malloc gives them.
template <typename Entry>
Entry* makeArray(const CountedSlot<Entry>& slot, uint32_t count) {
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc)
    slot.data = static_cast<Entry*>(std::calloc(std::max(count, 1U), sizeof(Entry)));
    if (slot.data == nullptr) throw std::bad_alloc();
    slot.count = count;
    return slot.data;
}
template <typename Entry>
void valueFromJson(const Block& /*kind*/, const RecordInput& input, CountedSlot<Entry> slot) {
    const Json::Value values = list(input.value, input.where, "a list of numbers");
    Entry* entry = makeArray(slot, values.size());
    for (const Json::Value& each : values)
        *entry++ = Scalar<Entry>::fromJson(each, input.where);
}
void valueFromJson(const LaneList& kind, const RecordInput& input, CountedSlot<LaneInformation> slot);

/// The record's mask, which is a member or an object of its own.
template <typename Record>
void addToMask(Record* record, uint32_t bit) {
    if constexpr (std::is_same_v<decltype(record->mMask), uint32_t>) {
        record->mMask |= bit;
    } else {
        record->mMask->mask |= bit;
    }
}
inline void addToMask(LaneInformation* lane, uint32_t bit) { lane->mask |= bit; }
inline void addToMask(IiAP2MediaItemDelId* /*record*/, uint32_t /*bit*/) {}
inline void addToMask(IiAP2MediaPlaylistDelId* /*record*/, uint32_t /*bit*/) {}

template <typename Fields>
std::vector<FieldDescription> describeRecordFields(const Fields& fields) {
    std::vector<FieldDescription> described;
    const auto add = [&](const auto& row) {
        described.push_back(describeKind(row.kind, row.name, static_cast<unsigned>(described.size())));
    };
    std::apply([&add](const auto&... row) { (add(row), ...); }, fields);
    return described;
}

template <typename Record, typename Fields>
Json::Value fieldsToJson(uint32_t mask, const Record& record, const Fields& fields) {
    Json::Value shown(Json::objectValue);
    everyFieldIn(mask, fields, [&](const auto& row) {
        shown[row.name] = valueToJson(row.kind, std::invoke(row.get, record));
        return true;
    });
    return shown;
}

/// The list of a library update is entered through the record, which marks the kinds of its entries.
void groupFromJson(const RecordInput& input, IiAP2MediaLibData* update);

template <typename Row, typename Record>
void fieldFromJson(const Row& row, const RecordInput& input, Record* record) {
    if constexpr (std::is_same_v<std::decay_t<decltype(row.kind)>, GroupList>) {
        groupFromJson(input, record);
    } else {
        valueFromJson(row.kind, input, std::invoke(row.member, *record));
        addToMask(record, row.bit);
    }
}

/// Fills in the fields that @p value has, and marks them present.
/// @param also a member of @p value that is not a field; null for none.
template <typename Record, typename Fields>
void fieldsFromJson(const RecordInput& input, Record* record, const Fields& fields,
                    const char* also = nullptr) {
    std::vector<std::string> names;
    std::apply([&names](const auto&... row) { (names.emplace_back(row.name), ...); }, fields);
    const std::string expects = membersExpected(describeRecordFields(fields));
    if (also != nullptr) names.emplace_back(also);
    const Json::Value given = object(input.value, input.where, expects, names);
    const auto take = [&](const auto& row) {
        if (!given.isMember(row.name)) return;
        fieldFromJson(row, {given[row.name], input.where + "." + row.name, input.keeper}, record);
    };
    std::apply([&take](const auto&... row) { (take(row), ...); }, fields);
}

}  // namespace accessory::tools
