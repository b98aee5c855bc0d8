#include <accessory/NowPlayingRecords.h>

#include "AppleiAP2/records/NowPlayingTables.h"
#include "AppleiAP2/records/RecordParcel.h"

namespace accessory {

using android::Parcel;
using android::sp;

iAP2ItemAttributeMask::~iAP2ItemAttributeMask() = default;
iAP2ItemAttribute::~iAP2ItemAttribute() = default;
IiAP2ItemAttribute::IiAP2ItemAttribute() : mMask(new iAP2ItemAttributeMask) {}
IiAP2ItemAttribute::~IiAP2ItemAttribute() = default;

sp<IiAP2ItemAttribute> IiAP2ItemAttribute::FromParcel(const Parcel& parcel) {
    return readRecord<ItemAttributeTable>(ACCESSORY_OPERATION(kiAP2NotifierUnit), parcel);
}

void IiAP2ItemAttribute::writeToParcel(Parcel* parcel, const sp<iAP2ItemAttribute>& record) {
    writeRecord<ItemAttributeTable>(ACCESSORY_OPERATION(kiAP2NotifierUnit), parcel, *record);
}

std::string toString(const iAP2ItemAttribute& record) { return textOf<ItemAttributeTable>(record); }

iAP2MediaPlaybackMask::~iAP2MediaPlaybackMask() = default;
iAP2MediaPlayback::~iAP2MediaPlayback() = default;
IiAP2MediaPlayback::IiAP2MediaPlayback() : mMask(new iAP2MediaPlaybackMask) {}
IiAP2MediaPlayback::~IiAP2MediaPlayback() = default;

sp<IiAP2MediaPlayback> IiAP2MediaPlayback::FromParcel(const Parcel& parcel) {
    return readRecord<MediaPlaybackTable>(ACCESSORY_OPERATION(kiAP2NotifierUnit), parcel);
}

void IiAP2MediaPlayback::writeToParcel(Parcel* parcel, const sp<iAP2MediaPlayback>& record) {
    writeRecord<MediaPlaybackTable>(ACCESSORY_OPERATION(kiAP2NotifierUnit), parcel, *record);
}

std::string toString(const iAP2MediaPlayback& record) { return textOf<MediaPlaybackTable>(record); }

}  // namespace accessory
