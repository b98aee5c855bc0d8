// Rows without their types, for those who list transactions: pages, tools, tests.
#pragma once

#include <cstdint>
#include <tuple>
#include <vector>

#include "common/Rows.h"

namespace accessory::wire {

struct FieldInfo {
    const char* name;
    const char* kind;
    bool inReply;
};

struct OperationInfo {
    uint32_t code;
    const char* name;
    std::vector<FieldInfo> fields;  ///< in the order of the operation's parameters
};

template <typename Row>
OperationInfo describe(const Row& row) {
    OperationInfo info{row.code, row.name, {}};
    const auto add = [&info](const auto& field) {
        info.fields.push_back({field.name, field.kKind, isInReply<decltype(field)>});
    };
    std::apply([&add](const auto&... field) { (add(field), ...); }, row.fields);
    return info;
}

/// All rows of an interface, in their order.
template <typename... Rows>
std::vector<OperationInfo> describeAll(const std::tuple<Rows...>& rows) {
    return std::apply([](const Rows&... row) { return std::vector<OperationInfo>{describe(row)...}; }, rows);
}

}  // namespace accessory::wire
