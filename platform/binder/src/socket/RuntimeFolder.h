// The folder in which processes find each other.
#pragma once

#include <string>

#include "Access.h"

namespace android::runtime {

/// $BINDER_RUNTIME_DIR, else $XDG_RUNTIME_DIR/binder, else binder-<uid> in the temporary folder.
std::string chooseRuntimeFolder();

/// Makes @p folder for those whom @p access lets in when it is missing.
/// @return whether it can be used. If not, that is logged, with what to do, and nothing may be looked for in
/// it.
bool prepareRuntimeFolder(const std::string& folder, const Access& access);

}  // namespace android::runtime
