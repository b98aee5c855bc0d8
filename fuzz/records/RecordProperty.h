// What must hold for any bytes that a record reader is given.
#pragma once

#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/PowerRecords.h>
#include <accessory/RouteGuidanceRecords.h>
#include <binder/Parcel.h>

#include <string>
#include <type_traits>

#include "tests/AppleiAP2/records/RecordMask.h"

namespace accessory::fuzz {

/// Deleted identifiers are written by the library update alone.
template <typename Record>
inline constexpr bool kHasWriter =
    !std::is_same_v<Record, IiAP2MediaItemDelId> && !std::is_same_v<Record, IiAP2MediaPlaylistDelId>;

/// Whether a record is made of so many zeroed entries that only reading it is worth the time.
template <typename Record>
bool isHuge(const Record& record) {
    constexpr uint32_t kMany = 4096;
    if constexpr (std::is_same_v<Record, IiAP2MediaLibData>) {
        return record.getGroupDataCount() > static_cast<int32_t>(kMany);
    } else if constexpr (std::is_same_v<Record, ILaneGuidanceInformation>) {
        return record.getLaneInformationCnt() > kMany;
    } else {
        return false;
    }
}

/// Reads a record from @p data, shows it, and where it can be written, writes it and reads that again.
/// @return whether the second record reads as the first. A record with a null string cannot be written: most
///         writers end the process at it.
template <typename Record>
bool readsToAFixedPoint(const uint8_t* data, size_t size) {
    android::Parcel parcel;
    parcel.setData(data, size);
    parcel.setDataPosition(0);
    const android::sp<Record> record = Record::FromParcel(parcel);
    if (record == nullptr || isHuge(*record)) return true;
    const std::string text = toString(*record);
    if constexpr (kHasWriter<Record>) {
        if (text.find(": null") != std::string::npos) return true;
        android::Parcel written;
        test::writeTo(&written, record);
        written.setDataPosition(0);
        const android::sp<Record> again = Record::FromParcel(written);
        return again != nullptr && toString(*again) == text && written.dataAvail() == 0;
    }
    return true;
}

}  // namespace accessory::fuzz
