// RecordReader: takes a record out of a parcel, believing nothing that a peer announces.
#pragma once

#include <binder/Parcel.h>

#include "AppleiAP2/records/Field.h"
#include "AppleiAP2/records/Operation.h"
#include "common/Buffer.h"

namespace accessory {

/// Lives for one FromParcel(). What the parcel lacks reads as 0 or null.
class RecordReader {
  public:
    RecordReader(const android::Parcel& parcel, const Operation& operation)
        : mParcel(parcel), mOperation(operation) {}

    /// The fields that @p mask names, into @p record.
    /// @return false when an allocation failed; the failure is logged.
    template <typename Record, typename Table>
    bool fields(uint32_t mask, Record& record, const Table& table) {
        return everyFieldIn(mask, table, [&](const auto& row) {
            return row.kind.read(*this, std::invoke(row.member, record));
        });
    }

    int32_t int32() { return mParcel.readInt32(); }
    uint32_t uint32() { return static_cast<uint32_t>(mParcel.readInt32()); }
    uint64_t int64() { return static_cast<uint64_t>(mParcel.readInt64()); }
    /// Borrowed from the parcel.
    const char* cstring() { return mParcel.readCString(); }

    /// @p count 16-bit values in the machine's byte order. A failure is logged and leaves @p values as it
    /// was.
    void block(void* values, uint32_t count);

    /// Zeroed memory from malloc for @p count entries, also for none. All that one record asks for must fit
    /// the transaction that brings it: what does not counts as a failed allocation.
    /// @param wireBytes the least that one entry takes in the parcel.
    /// @param text      what the log line of a failure names.
    /// @return null on failure, which is logged.
    template <typename Entry>
    Entry* allocate(uint32_t count, size_t wireBytes, const char* text) {
        return static_cast<Entry*>(allocateBytes(count, sizeof(Entry), wireBytes, text));
    }

    /// Bytes of the parcel that were not read yet.
    size_t available() const { return mParcel.dataAvail(); }
    const android::Parcel& parcel() const { return mParcel; }
    const Operation& operation() const { return mOperation; }

  private:
    void* allocateBytes(size_t count, size_t entryBytes, size_t wireBytes, const char* text);

    const android::Parcel& mParcel;
    const Operation mOperation;
    size_t mBudget = kMostTransactionBytes;  ///< bytes that the arrays still to come can have brought
};

}  // namespace accessory
