// Threads of the runtime's own.
#pragma once

#include <functional>

namespace android::runtime {

/// Starts a detached thread on which no signal handler of the application ever runs.
/// @param name at most 15 characters, for debuggers.
/// @return false when the system has no thread left; that is logged.
bool startRuntimeThread(const char* name, std::function<void()> body);

}  // namespace android::runtime
