// What the records do differently, brought to one form for tests that walk all records.
#pragma once

#include <type_traits>

#include "AppleiAP2/records/MediaLibraryTables.h"
#include "tests/AppleiAP2/records/Words.h"

namespace accessory::test {

/// The mask of a record, which stands in a mask object of its own or in the record itself.
template <typename Record>
uint32_t& maskOf(Record& record) {
    if constexpr (std::is_same_v<decltype(record.mMask), uint32_t>) {
        return record.mMask;
    } else {
        return record.mMask->mask;
    }
}

/// Writes a record, through itself or through the static writer of its class.
template <typename Record>
void writeTo(android::Parcel* parcel, const android::sp<Record>& record) {
    if constexpr (std::is_base_of_v<iAP2MediaLibGroupData, Record>) {
        record->writeToParcel(parcel);
    } else {
        Record::writeToParcel(parcel, record);
    }
}

/// The words that @p record is written as.
template <typename Record>
Words written(const android::sp<Record>& record) {
    android::Parcel parcel;
    writeTo(&parcel, record);
    return wordsOf(parcel);
}

/// The record that is read from @p words. It has no strings, which would not outlive the parcel.
template <typename Record>
android::sp<Record> received(const Words& words) {
    android::Parcel parcel;
    words.putInto(parcel);
    return Record::FromParcel(parcel);
}

/// The words of a sample's record that was compiled apart. A group entry can only be written by a library
/// update, of which the words before it are taken off.
template <typename Sample>
Words writtenApart(uint32_t mask) {
    using Table = typename Sample::Table;
    android::Parcel parcel;
    if constexpr (std::is_base_of_v<iAP2MediaLibGroupData, typename Table::Plain>) {
        android::sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
        update->addGroupData(Sample::apart(mask));
        IiAP2MediaLibData::writeToParcel(&parcel, update);
        constexpr size_t kBefore = size_t{3} * 4;  // the mask, the count, the type
        android::Parcel entry;
        entry.setData(parcel.data() + kBefore, parcel.dataSize() - kBefore);
        return wordsOf(entry);
    } else {
        Table::Parcelable::writeToParcel(&parcel, Sample::apart(mask));
        return wordsOf(parcel);
    }
}

}  // namespace accessory::test
