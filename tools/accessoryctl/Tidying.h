// Tidying: what processes that have ended left in the runtime folder.
#pragma once

#include <string>
#include <vector>

namespace accessory::ctl {

/// Removes sockets on which nobody listens any more, and entries of services whose process has ended. Whoever
/// starts at that moment loses nothing.
/// @return how many files are gone.
size_t tidyFolder(const std::string& folder);

}  // namespace accessory::ctl
