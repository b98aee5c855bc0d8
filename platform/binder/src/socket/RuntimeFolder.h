// The folder in which processes find each other.
#pragma once

#include <string>

namespace android::runtime {

/// $BINDER_RUNTIME_DIR, else $XDG_RUNTIME_DIR/binder, else binder-<uid> in the temporary folder; made with
/// mode 0700 when it is missing.
/// @return its path. When it cannot be used that is logged, with what to do, and everything that needs it
/// fails.
std::string prepareRuntimeFolder();

}  // namespace android::runtime
