// The readable form of records: `Name{field: value, field: value}`, naming only what is present.
#pragma once

#include <string>

#include "AppleiAP2/records/Field.h"

namespace accessory {

/// @p value in double quotes, with escapes for what would garble a line; null for a null pointer.
void appendQuoted(std::string& text, const char* value);

template <typename Record, typename Table>
std::string recordText(const char* name, uint32_t mask, const Record& record, const Table& table) {
    std::string text = std::string(name) + '{';
    bool first = true;
    everyFieldIn(mask, table, [&](const auto& row) {
        if (!first) text += ", ";
        first = false;
        text += std::string(row.name) + ": ";
        row.kind.print(text, std::invoke(row.get, record));
        return true;
    });
    return text + '}';
}

/// `[a, b, c]`, where @p print appends the element of an index; null when there should be elements
/// and @p present is false.
template <typename Print>
void appendList(std::string& text, uint32_t count, bool present, Print&& print) {
    if (!present && count != 0) {
        text += "null";
        return;
    }
    text += '[';
    for (uint32_t i = 0; i < count; ++i) {
        if (i != 0) text += ", ";
        print(i);
    }
    text += ']';
}

}  // namespace accessory
