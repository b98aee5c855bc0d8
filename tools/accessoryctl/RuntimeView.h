// The runtime folder as it lies there: which entries and sockets are in it, and whose.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace accessory::ctl {

/// The folder in which processes find each other, whether or not it exists.
struct RuntimeFolder {
    std::string path;
    std::string chosenBy;  ///< "BINDER_RUNTIME_DIR", "XDG_RUNTIME_DIR", "TMPDIR" or "the default"
};
RuntimeFolder runtimeFolder();

/// One entry of a service.
struct ServiceEntry {
    std::string name;
    pid_t owner = 0;  ///< 0 when its process has ended, or is too busy to tell
    bool isAlive = false;
};

/// In ascending order of their names.
std::vector<ServiceEntry> servicesIn(const std::string& folder);

/// The paths of the entries of services whose process has ended.
std::vector<std::string> staleEntriesIn(const std::string& folder);

/// The paths of the sockets on which nobody listens any more.
std::vector<std::string> staleSocketsIn(const std::string& folder);

}  // namespace accessory::ctl
