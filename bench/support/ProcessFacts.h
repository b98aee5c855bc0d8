// What the kernel tells about a running process.
#pragma once

#include <sys/types.h>

#include <cstdint>

namespace accessory::bench {

/// Memory that the process alone has and that lies in no file, in bytes.
uint64_t anonymousMemory(pid_t process);

/// How often its threads together have been put on a core anew, willingly or not.
uint64_t contextSwitches(pid_t process);

}  // namespace accessory::bench
