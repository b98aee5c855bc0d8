// RecordWriter: appends a record to a parcel, checking and logging every single write.
#pragma once

#include <binder/Parcel.h>

#include "AppleiAP2/records/Field.h"
#include "AppleiAP2/records/Operation.h"
#include "common/Marshal.h"

namespace accessory {

/// Lives for one writeToParcel(). A failed write is logged and the next one is tried all the same.
class RecordWriter {
  public:
    RecordWriter(android::Parcel* parcel, const Operation& operation)
        : mParcel(*parcel), mOperation(operation) {}

    /// The mask, then the fields of @p record that it names.
    template <typename Record, typename Table>
    void record(uint32_t mask, const Record& record, const Table& table) {
        int32(static_cast<int32_t>(mask));
        fields(mask, record, table);
    }

    /// The fields of @p record that @p mask names.
    /// @return false when a field ended the writing.
    template <typename Record, typename Table>
    bool fields(uint32_t mask, const Record& record, const Table& table) {
        return everyFieldIn(mask, table, [&](const auto& row) {
            return row.kind.write(*this, std::invoke(row.get, record));
        });
    }

    void int32(int32_t value) { check(mParcel.writeInt32(value)); }
    void int64(uint64_t value) { check(mParcel.writeInt64(static_cast<int64_t>(value))); }
    void cstring(const char* value) { check(wire::appendCString(mParcel, value)); }
    /// For those who know how long it is. @param bytes its length with the NUL.
    void cstring(const char* value, size_t bytes) { check(mParcel.write(value, bytes)); }

    /// @p count 16-bit values in the machine's byte order. Ends the process when there are some and @p values
    /// is null.
    void block(const void* values, uint32_t count);

    /// Condition check.
    bool holds(bool condition, const char* text) const {
        return accessory::holds(mOperation.at(__LINE__), condition, text);
    }

    /// Assertion: ends the process when @p condition is false.
    void require(bool condition, const char* text) const;

  private:
    void check(android::status_t status) const {
        if (status != android::NO_ERROR) succeeded(mOperation.at(__LINE__), status);
    }

    android::Parcel& mParcel;
    const Operation mOperation;
};

}  // namespace accessory
