// The folder in which processes find each other.
#pragma once

#include <string>

#include "Access.h"

namespace android::runtime {

/// $BINDER_RUNTIME_DIR, else $XDG_RUNTIME_DIR/binder, else binder-<uid> in the temporary folder; made for
/// those whom @p access lets in when it is missing.
/// @return its path. When it cannot be used that is logged, with what to do, and everything that needs it
/// fails.
std::string prepareRuntimeFolder(const Access& access);

}  // namespace android::runtime
