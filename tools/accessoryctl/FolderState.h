// FolderState: whether processes can meet in the runtime folder.
#pragma once

#include <string>

#include "tools/accessoryctl/RuntimeView.h"

namespace accessory::ctl {

struct FolderState {
    bool usable;
    std::string finding;  ///< "mode 0700", "belongs to user 0"; follows the folder's name
    std::string advice;   ///< a command line; empty when all is well
};
FolderState stateOf(const RuntimeFolder& folder);

/// "/tmp/binder-1000 (the default)".
std::string nameOf(const RuntimeFolder& folder);

/// @throws Failure kFailed when nothing can be found in the folder, and why.
void requireUsableFolder();

}  // namespace accessory::ctl
