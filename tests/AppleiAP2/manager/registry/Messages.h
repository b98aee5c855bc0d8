// What the broadcaster says about each of the 45 events, as a table.
#pragma once

#include <string>
#include <vector>

#include "tests/AppleiAP2/manager/registry/Expectations.h"

namespace accessory::test {

/// One operation of the broadcaster.
struct Message {
    const char* operation = nullptr;
    const char* failure = nullptr;  ///< between "notify the <index> " and " error ,ret:<result>"
    bool logsSize = false;
    bool returnsLast = false;
    bool traces = true;
};

/// All of them.
const std::vector<Message>& messages();

/// The one of @p operation.
const Message& messageOf(const std::string& operation);

/// The line about a client that failed.
Line failed(const Message& message, size_t index, int result);

/// All lines of an event that goes to @p size clients, with @p failures among them.
Lines roundOf(const Message& message, size_t size, const Lines& failures);

}  // namespace accessory::test
