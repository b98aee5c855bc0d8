// On which cores the processes of a benchmark run. Children run where the process that starts them runs.
#pragma once

#include <string>
#include <vector>

namespace accessory::bench {

/// "pinned": both ends on one core, so that what counts is the work. "unpinned": where the scheduler likes.
inline const std::vector<std::string> kSettings = {"pinned", "unpinned"};

/// From here on this process, and every child that it starts, runs in that setting.
void enter(const std::string& setting);

}  // namespace accessory::bench
