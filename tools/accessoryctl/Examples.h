// Command lines that are right.
#pragma once

#include <string>
#include <vector>

#include "tools/rows/Operation.h"

namespace accessory::ctl {

/// Calls @p operation with an example of every argument.
std::string exampleCall(const tools::Interface& interface, const tools::Operation& operation);

/// Calls @p operation with those of @p words that fit it, as they were meant, and examples of what else it
/// needs.
std::string correctedCall(const tools::Interface& interface, const tools::Operation& operation,
                          const std::vector<std::string>& words);

}  // namespace accessory::ctl
