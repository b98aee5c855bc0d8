// GroupList: the kind of field that is the group list of a library update, entries of four kinds in any mix.
#pragma once

#include <accessory/MediaLibraryRecords.h>

#include "AppleiAP2/records/RecordReader.h"
#include "AppleiAP2/records/RecordWriter.h"

namespace accessory {

using GroupEntries = android::Vector<android::sp<iAP2MediaLibGroupData>>;

/// A count, then for each entry its type and its own parcel form; of an unknown type nothing but the type.
struct GroupList {
    const char* name = "groupList";

    bool write(RecordWriter& writer, const iAP2MediaLibData& update) const;
    bool read(RecordReader& reader, GroupEntries& slot) const;
    void print(std::string& text, const iAP2MediaLibData& update) const;
};

/// The getter of the list is the update itself: entries are asked for one by one.
struct WholeUpdate {
    const iAP2MediaLibData& operator()(const iAP2MediaLibData& update) const { return update; }
};

/// The row of the group list, which no bit of the mask decides about.
constexpr auto groupListField(const char* name, GroupEntries IiAP2MediaLibData::*member) {
    return Field<GroupList, WholeUpdate, GroupEntries IiAP2MediaLibData::*>{GroupList{}, kAlwaysPresent, name,
                                                                            WholeUpdate{}, member};
}

}  // namespace accessory
