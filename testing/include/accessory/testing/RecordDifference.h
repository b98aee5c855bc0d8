// SameRecordAs(): a whole record against another, with a list of what differs.
#pragma once

#include <accessory/testing/FieldMatcher.h>
#include <accessory/testing/RecordBuilder.h>

#include <string>

namespace accessory::testkit {

/// What distinguishes two records in their readable form (toString()), field by field: "title is "A" instead
/// of "B", artist is missing, genre should not be there". Empty when they are the same.
std::string differenceBetween(const std::string& actual, const std::string& expected);

/// The readable form of a record, or of an sp<> of one.
template <typename Given>
std::string readable(const Given& given) {
    const auto* const record = recordIn(given);
    return record != nullptr ? toString(*record) : "null";
}

/// Matches a record, or an sp<> of one, whose readable form is @p expected.
MATCHER_P(SameRecordAsText, expected, (negation ? "is not " : "is ") + std::string(expected)) {
    const std::string actual = readable(arg);
    *result_listener << differenceBetween(actual, expected);
    return actual == expected;
}

/// @name Whole records
/// @{

/// Matches a record, or an sp<> of one, in which the same fields are present with the same values.
/// @param expected an sp<> of a record, or a builder.
template <typename Record>
auto SameRecordAs(const RecordBuilder<Record>& expected) {
    return SameRecordAsText(toString(*expected.build()));
}
template <typename Record>
auto SameRecordAs(const android::sp<Record>& expected) {
    return SameRecordAsText(readable(expected));
}

/// @}

}  // namespace accessory::testkit
