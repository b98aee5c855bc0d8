#include "AppleiAP2/records/GroupList.h"

#include <algorithm>
#include <utility>

#include "AppleiAP2/records/EntryMemory.h"
#include "AppleiAP2/records/MediaLibraryTables.h"
#include "AppleiAP2/records/RecordParcel.h"
#include "AppleiAP2/records/RecordText.h"

namespace accessory {
namespace {

using android::sp;
using Entry = iAP2MediaLibGroupData;

constexpr size_t kTypeBytes = sizeof(int32_t);
constexpr size_t kSmallestEntryBytes = kTypeBytes + sizeof(uint32_t);  // an item or playlist with a mask of 0
constexpr size_t kMostEntries = kMostTransactionBytes / kSmallestEntryBytes;
constexpr int32_t kNoEntry = 4;  // a type that every reader drops stands for a null entry

// Entries are sent through the getters of their plain record, so that hand-made ones can be sent too.
template <typename Table>
void writeAs(RecordWriter& writer, const Entry& entry) {
    const auto& record = static_cast<const typename Table::Plain&>(entry);
    writer.record(record.getMask(), record, Table::kFields);
}

void writeEntry(RecordWriter& writer, const Entry& entry) {
    writer.int32(entry.type);
    switch (entry.type) {
        case Entry::kItem:
            return writeAs<MediaItemTable>(writer, entry);
        case Entry::kPlaylist:
            return writeAs<MediaPlaylistTable>(writer, entry);
        case Entry::kDeletedItem:
            return writer.int64(static_cast<const iAP2MediaItemDelId&>(entry).getDelId());
        case Entry::kDeletedPlaylist:
            return writer.int64(static_cast<const iAP2MediaPlaylistDelId&>(entry).getDelId());
    }
}

sp<Entry> readItem(RecordReader& reader, EntryMemory& memory) {
    sp<MediaItemMask> mask = new (memory) Packed<MediaItemMask>;
    sp<IiAP2MediaItem> item = new (memory) Packed<IiAP2MediaItem>(std::move(mask));
    return readInto<MediaItemTable>(std::move(item), reader.operation(), reader.parcel());
}

sp<Entry> readEntry(RecordReader& reader, EntryMemory& memory) {
    const android::Parcel& parcel = reader.parcel();
    switch (reader.int32()) {
        case Entry::kItem:
            return readItem(reader, memory);
        case Entry::kPlaylist:
            return IiAP2MediaPlaylist::FromParcel(parcel);
        case Entry::kDeletedItem:
            return IiAP2MediaItemDelId::FromParcel(parcel);
        case Entry::kDeletedPlaylist:
            return IiAP2MediaPlaylistDelId::FromParcel(parcel);
    }
    return nullptr;
}

}  // namespace

bool GroupList::write(RecordWriter& writer, const iAP2MediaLibData& update) const {
    const int32_t count = update.getGroupDataCount();
    writer.int32(count);
    for (int32_t i = 0; i < count; ++i) {
        const sp<Entry> entry = update.getGroupData(static_cast<unsigned int>(i));
        if (entry == nullptr) {
            writer.int32(kNoEntry);
        } else {
            writeEntry(writer, *entry);
        }
    }
    return true;
}

// The count is only believed as far as entries can have come: room is made for what the parcel still holds,
// and the entries that a parcel cut short owes, which read as empty items, end where a transaction would. An
// entry that finds no room ends the list, which has no gaps; it and those behind it are read all the same, so
// that what follows is found.
bool GroupList::read(RecordReader& reader, GroupEntries& slot) const {
    const int32_t count = reader.int32();
    if (count <= 0) return true;
    slot.setCapacity(std::min<size_t>(count, reader.available() / kSmallestEntryBytes));
    EntryMemory memory;
    const auto announced = std::min<size_t>(count, kMostTransactionBytes / kTypeBytes);
    bool hasRoom = true;
    for (size_t i = 0; i < announced && slot.size() < kMostEntries; ++i) {
        sp<Entry> entry = readEntry(reader, memory);
        if (entry == nullptr || !hasRoom) continue;
        const ssize_t place = slot.add();
        hasRoom = place >= 0;
        if (hasRoom) slot.editItemAt(static_cast<size_t>(place)) = std::move(entry);
    }
    return true;
}

void GroupList::print(std::string& text, const iAP2MediaLibData& update) const {
    const auto count = static_cast<uint32_t>(std::max(update.getGroupDataCount(), 0));
    appendList(text, count, true, [&](uint32_t i) {
        const sp<Entry> entry = update.getGroupData(i);
        text += entry == nullptr ? "null" : toString(*entry);
    });
}

}  // namespace accessory
