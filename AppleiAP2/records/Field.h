// Field: one row of a record's table. The tables drive the writers, the readers and the readable form.
//
// A row says which bit of the mask stands for the field, how the field is called, how it is got from the
// plain record and where it lies in the parcelable. Its kind knows the parcel form:
//
//     bool write(RecordWriter&, Value) const;      false: nothing more of the record is written
//     bool read(RecordReader&, Slot) const;        false: an allocation failed, there is no record
//     void print(std::string& text, Value) const;
//     const char* name;
//
// A row whose kind does not fit its getter and its member does not compile.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <tuple>

namespace accessory {

/// In place of a bit: the field is in the parcel whatever the mask says.
inline constexpr uint32_t kAlwaysPresent = 0;

template <typename Kind, typename Get, typename Member>
struct Field {
    Kind kind;
    uint32_t bit;  ///< as it stands in the mask
    const char* name;
    Get get;        ///< called with the plain record, gives the value
    Member member;  ///< called with the parcelable, gives the place of the value

    constexpr bool isIn(uint32_t mask) const { return bit == kAlwaysPresent || (mask & bit) != 0; }
};

/// The row of a field with one getter and one member.
template <typename Kind, typename Plain, typename Parcelable>
constexpr auto field(Kind kind, uint32_t bit, const char* name, typename Kind::Value (Plain::*get)() const,
                     typename Kind::Value Parcelable::*member) {
    return Field<Kind, decltype(get), decltype(member)>{kind, bit, name, get, member};
}

/// The rows of one record, in the order of the parcel.
template <typename... Rows>
constexpr std::tuple<Rows...> fieldTable(Rows... rows) {
    return {rows...};
}

/// Visits the rows of @p table that @p mask names, until a visit gives false.
/// @return whether all visits gave true.
template <typename... Rows, typename Visit>
constexpr bool everyFieldIn(uint32_t mask, const std::tuple<Rows...>& table, Visit&& visit) {
    return std::apply([&](const Rows&... row) { return ((!row.isIn(mask) || visit(row)) && ...); }, table);
}

/// A row without its types, for those who list fields.
struct FieldInfo {
    const char* name;
    uint32_t bit;      ///< as it stands in the mask; kAlwaysPresent when no bit decides
    const char* kind;  ///< name of the parcel form
};

template <typename... Rows>
constexpr std::array<FieldInfo, sizeof...(Rows)> describe(const std::tuple<Rows...>& table) {
    return std::apply(
        [](const Rows&... row) {
            return std::array<FieldInfo, sizeof...(Rows)>{FieldInfo{row.name, row.bit, row.kind.name}...};
        },
        table);
}

}  // namespace accessory
