#include <accessory/MediaLibraryRecords.h>

#include <utility>

#include "AppleiAP2/records/MediaLibraryTables.h"
#include "AppleiAP2/records/RecordParcel.h"

namespace accessory {

using android::Parcel;
using android::sp;

MediaItemMask::~MediaItemMask() = default;
MediaPlaylistMask::~MediaPlaylistMask() = default;
MediaLibDataMask::~MediaLibDataMask() = default;
iAP2MediaLibGroupData::~iAP2MediaLibGroupData() = default;
MediaLibUpdateInfo::~MediaLibUpdateInfo() = default;

iAP2MediaItem::~iAP2MediaItem() = default;
IiAP2MediaItem::IiAP2MediaItem() : IiAP2MediaItem(new MediaItemMask) {}
IiAP2MediaItem::IiAP2MediaItem(sp<MediaItemMask> mask) : mMask(std::move(mask)) {}
IiAP2MediaItem::~IiAP2MediaItem() = default;

sp<IiAP2MediaItem> IiAP2MediaItem::FromParcel(const Parcel& parcel) {
    return readRecord<MediaItemTable>(ACCESSORY_OPERATION(kiAP2ManagerUnit), parcel);
}

void IiAP2MediaItem::writeToParcel(Parcel* parcel) const {
    writeRecord<MediaItemTable>(ACCESSORY_OPERATION(kiAP2ManagerUnit), parcel, *this);
}

std::string toString(const iAP2MediaItem& record) { return textOf<MediaItemTable>(record); }

iAP2MediaPlaylist::~iAP2MediaPlaylist() = default;
IiAP2MediaPlaylist::IiAP2MediaPlaylist() : mMask(new MediaPlaylistMask) {}
IiAP2MediaPlaylist::~IiAP2MediaPlaylist() = default;

sp<IiAP2MediaPlaylist> IiAP2MediaPlaylist::FromParcel(const Parcel& parcel) {
    return readRecord<MediaPlaylistTable>(ACCESSORY_OPERATION(kiAP2ManagerUnit), parcel);
}

void IiAP2MediaPlaylist::writeToParcel(Parcel* parcel) const {
    writeRecord<MediaPlaylistTable>(ACCESSORY_OPERATION(kiAP2ManagerUnit), parcel, *this);
}

std::string toString(const iAP2MediaPlaylist& record) { return textOf<MediaPlaylistTable>(record); }

iAP2MediaItemDelId::~iAP2MediaItemDelId() = default;
IiAP2MediaItemDelId::IiAP2MediaItemDelId() = default;
IiAP2MediaItemDelId::~IiAP2MediaItemDelId() = default;

sp<IiAP2MediaItemDelId> IiAP2MediaItemDelId::FromParcel(const Parcel& parcel) {
    sp<IiAP2MediaItemDelId> record = new IiAP2MediaItemDelId;
    record->mDelId = static_cast<uint64_t>(parcel.readInt64());
    return record;
}

std::string toString(const iAP2MediaItemDelId& record) {
    return recordText(MediaItemDelIdTable::kName, 0, record, MediaItemDelIdTable::kFields);
}

iAP2MediaPlaylistDelId::~iAP2MediaPlaylistDelId() = default;
IiAP2MediaPlaylistDelId::IiAP2MediaPlaylistDelId() = default;
IiAP2MediaPlaylistDelId::~IiAP2MediaPlaylistDelId() = default;

sp<IiAP2MediaPlaylistDelId> IiAP2MediaPlaylistDelId::FromParcel(const Parcel& parcel) {
    sp<IiAP2MediaPlaylistDelId> record = new IiAP2MediaPlaylistDelId;
    record->mDelId = static_cast<uint64_t>(parcel.readInt64());
    return record;
}

std::string toString(const iAP2MediaPlaylistDelId& record) {
    return recordText(MediaPlaylistDelIdTable::kName, 0, record, MediaPlaylistDelIdTable::kFields);
}

iAP2MediaLibData::~iAP2MediaLibData() = default;
IiAP2MediaLibData::IiAP2MediaLibData() : mMask(new MediaLibDataMask) {}
IiAP2MediaLibData::~IiAP2MediaLibData() = default;

sp<IiAP2MediaLibData> IiAP2MediaLibData::FromParcel(const Parcel& parcel) {
    return readRecord<MediaLibDataTable>(ACCESSORY_OPERATION(kiAP2ManagerUnit), parcel);
}

void IiAP2MediaLibData::writeToParcel(Parcel* parcel, const sp<iAP2MediaLibData>& record) {
    writeRecord<MediaLibDataTable>(ACCESSORY_OPERATION(kiAP2ManagerUnit), parcel, *record);
}

std::string toString(const iAP2MediaLibData& record) { return textOf<MediaLibDataTable>(record); }

IiAP2MediaLibData& IiAP2MediaLibData::addGroupData(const sp<iAP2MediaLibGroupData>& entry) {
    mGroupData.push(entry);
    if (entry != nullptr && entry->type >= iAP2MediaLibGroupData::kItem &&
        entry->type <= iAP2MediaLibGroupData::kDeletedPlaylist) {
        mMask->mask |= uint32_t{Mask::kItems} << entry->type;
    }
    return *this;
}

std::string toString(const iAP2MediaLibGroupData& record) {
    switch (record.type) {
        case iAP2MediaLibGroupData::kItem:
            return toString(static_cast<const iAP2MediaItem&>(record));
        case iAP2MediaLibGroupData::kPlaylist:
            return toString(static_cast<const iAP2MediaPlaylist&>(record));
        case iAP2MediaLibGroupData::kDeletedItem:
            return toString(static_cast<const iAP2MediaItemDelId&>(record));
        case iAP2MediaLibGroupData::kDeletedPlaylist:
            return toString(static_cast<const iAP2MediaPlaylistDelId&>(record));
    }
    return "iAP2MediaLibGroupData{type: " + std::to_string(record.type) + '}';
}

std::string toString(const MediaLibUpdateInfo& record) {
    std::string text = "MediaLibUpdateInfo{firstText: ";
    appendQuoted(text, record.mFirstText);
    text += ", secondText: ";
    appendQuoted(text, record.mSecondText);
    text += ", values: ";
    appendList(text, std::size(record.mValues), true,
               [&](uint32_t i) { text += std::to_string(record.mValues[i]); });
    return text + '}';
}

}  // namespace accessory
