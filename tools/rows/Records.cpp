#include "tools/rows/Records.h"

#include "AppleiAP2/records/MediaLibraryTables.h"

namespace accessory::tools {

using android::sp;
using Entry = iAP2MediaLibGroupData;

namespace {

/// What tells the entries of a library update apart.
constexpr char kType[] = "type";
constexpr const char* kTypes[] = {"item", "playlist", "deletedItem", "deletedPlaylist"};
constexpr char kGroupExpected[] =
    "a list of structures whose type is item, playlist, deletedItem or deletedPlaylist";

template <typename Table>
Json::Value entryToJson(const Entry& entry, uint32_t mask) {
    return fieldsToJson(mask, static_cast<const typename Table::Plain&>(entry), Table::kFields);
}

Json::Value entryFieldsToJson(const Entry& entry) {
    switch (entry.type) {
        case Entry::kItem:
            return entryToJson<MediaItemTable>(entry, static_cast<const iAP2MediaItem&>(entry).getMask());
        case Entry::kPlaylist:
            return entryToJson<MediaPlaylistTable>(entry,
                                                   static_cast<const iAP2MediaPlaylist&>(entry).getMask());
        case Entry::kDeletedItem:
            return entryToJson<MediaItemDelIdTable>(entry, 0);
        case Entry::kDeletedPlaylist:
            return entryToJson<MediaPlaylistDelIdTable>(entry, 0);
    }
    return Json::Value(Json::objectValue);
}

template <typename Table>
sp<Entry> entryFromJson(const RecordInput& input) {
    sp<typename Table::Parcelable> entry = new typename Table::Parcelable;
    fieldsFromJson(input, entry.get(), Table::kFields, kType);
    return entry;
}

sp<Entry> anyEntryFromJson(const RecordInput& input) {
    const Json::Value type = input.value.isObject() ? input.value[kType] : Json::Value();
    if (type == kTypes[Entry::kItem]) return entryFromJson<MediaItemTable>(input);
    if (type == kTypes[Entry::kPlaylist]) return entryFromJson<MediaPlaylistTable>(input);
    if (type == kTypes[Entry::kDeletedItem]) return entryFromJson<MediaItemDelIdTable>(input);
    if (type == kTypes[Entry::kDeletedPlaylist]) return entryFromJson<MediaPlaylistDelIdTable>(input);
    refuse(input.where, kGroupExpected, input.value);
}

Json::Value typedExample(int type, const char* field, const Json::Value& value) {
    Json::Value entry(Json::objectValue);
    entry[kType] = kTypes[type];
    entry[field] = value;
    return entry;
}

}  // namespace

void checkEntries(uint32_t count) {
    if (count <= kMostEntriesShown) return;
    throw UndecodableParcel("a list claims " + std::to_string(count) + " entries");
}

FieldDescription describeKind(const Block& /*kind*/, const char* name, unsigned position) {
    FieldDescription made;
    made.name = name;
    made.shape = Shape::kList;
    made.expects = "a list of numbers";
    made.example.append(position + 1);
    made.example.append(position + 2);
    return made;
}

FieldDescription describeKind(const LaneList& /*kind*/, const char* name, unsigned /*position*/) {
    FieldDescription made;
    made.name = name;
    made.shape = Shape::kList;
    made.members = describeRecordFields(LaneTable::kFields);
    made.expects = "a list of structures of laneField0, laneField1, laneAngle, laneField3";
    Json::Value lane(Json::objectValue);
    for (const FieldDescription& each : made.members)
        lane[each.name] = each.example;
    made.example.append(lane);
    return made;
}

FieldDescription describeKind(const GroupList& /*kind*/, const char* name, unsigned /*position*/) {
    FieldDescription made;
    made.name = name;
    made.shape = Shape::kList;
    made.expects = kGroupExpected;
    made.example.append(typedExample(Entry::kItem, "title", "some-title"));
    made.example.append(typedExample(Entry::kDeletedItem, "delId", 7));
    return made;
}

Json::Value valueToJson(const LaneList& /*kind*/, Counted<LaneInformation> lanes) {
    checkEntries(lanes.count);
    Json::Value shown(Json::arrayValue);
    for (uint32_t i = 0; lanes.data != nullptr && i < lanes.count; ++i)
        shown.append(fieldsToJson(lanes.data[i].mask, lanes.data[i], LaneTable::kFields));
    return shown;
}

Json::Value valueToJson(const GroupList& /*kind*/, const iAP2MediaLibData& update) {
    const auto count = static_cast<uint32_t>(update.getGroupDataCount());
    checkEntries(count);
    Json::Value shown(Json::arrayValue);
    for (uint32_t i = 0; i < count; ++i) {
        const sp<Entry> entry = update.getGroupData(i);
        Json::Value fields = entryFieldsToJson(*entry);
        fields[kType] = kTypes[entry->type];
        shown.append(fields);
    }
    return shown;
}

void valueFromJson(const LaneList& /*kind*/, const RecordInput& input, CountedSlot<LaneInformation> slot) {
    const Json::Value lanes = list(input.value, input.where, "a list of lanes");
    LaneInformation* lane = makeArray(slot, lanes.size());
    for (const Json::Value& each : lanes)
        fieldsFromJson({each, input.where, input.keeper}, lane++, LaneTable::kFields);
}

void groupFromJson(const RecordInput& input, IiAP2MediaLibData* update) {
    for (const Json::Value& each : list(input.value, input.where, kGroupExpected))
        update->addGroupData(anyEntryFromJson({each, input.where, input.keeper}));
}

}  // namespace accessory::tools
