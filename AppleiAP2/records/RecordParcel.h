// What FromParcel, writeToParcel and toString of most records are made of: a table of its fields and these
// functions.
#pragma once

#include "AppleiAP2/records/RecordReader.h"
#include "AppleiAP2/records/RecordText.h"
#include "AppleiAP2/records/RecordWriter.h"

namespace accessory {

/// Appends @p record in its parcel form.
template <typename Table>
void writeRecord(const Operation& operation, android::Parcel* parcel, const typename Table::Plain& record) {
    RecordWriter(parcel, operation).record(record.getMask(), record, Table::kFields);
}

/// Reads from the position of @p parcel into @p record, a new one with a mask object.
template <typename Table>
android::sp<typename Table::Parcelable> readInto(android::sp<typename Table::Parcelable> record,
                                                 const Operation& operation, const android::Parcel& parcel) {
    RecordReader reader(parcel, operation);
    record->mMask->mask = reader.uint32();
    reader.fields(record->mMask->mask, *record, Table::kFields);
    return record;
}

/// A record with a mask object, from the position of @p parcel.
template <typename Table>
android::sp<typename Table::Parcelable> readRecord(const Operation& operation,
                                                   const android::Parcel& parcel) {
    return readInto<Table>(new typename Table::Parcelable, operation, parcel);
}

/// The readable form of a record with a mask.
template <typename Table>
std::string textOf(const typename Table::Plain& record) {
    return recordText(Table::kName, record.getMask(), record, Table::kFields);
}

}  // namespace accessory
