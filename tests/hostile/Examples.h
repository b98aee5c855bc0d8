// The requests that hostile senders begin with: of every operation of every interface, with an example of
// every argument.
#pragma once

#include <string>
#include <vector>

#include "tests/AccessoryManager/Bytes.h"
#include "tools/rows/Operation.h"

namespace accessory::test {

/// The names of the five.
std::vector<std::string> interfaceNames();

/// What every request of @p interface begins with.
Bytes tokenOf(const tools::Interface& interface);

/// The request of @p operation with an example of every argument.
Bytes exampleRequest(const tools::Operation& operation);

/// Whether the stub must end the process over a request of @p operation: a link key or an address larger than
/// every transaction.
bool endsTheProcess(const tools::Operation& operation, const Bytes& request);

}  // namespace accessory::test
