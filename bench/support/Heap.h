// A heap that counts. Linked into a program, it stands in for the C library's allocation functions for
// everything in it, shared libraries too.
#pragma once

#include <cstddef>

namespace accessory::bench {

/// How many blocks the calling thread has asked for since it began.
size_t allocations();

}  // namespace accessory::bench
