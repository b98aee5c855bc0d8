// The lines of a watch.
#pragma once

#include <cstddef>
#include <string>

#include "tools/accessoryctl/Output.h"
#include "tools/accessoryctl/WatchNotifier.h"

namespace accessory::ctl {

/// An event and the moment at which the line is made, as text or JSON, without a newline.
std::string eventLine(const Options& options, const Event& event);

/// That @p count events were dropped.
std::string droppedLine(bool json, size_t count);

}  // namespace accessory::ctl
