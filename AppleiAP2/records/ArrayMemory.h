// The memory of the records' arrays. It is malloc's and free's by contract: a producer may hand an array of
// its own to a record's member, or take one from there.
#pragma once

#include <cstddef>

namespace accessory {

/// Zeroed memory for @p count entries of @p size bytes, also for none; null when there is not enough.
void* allocateArray(size_t count, size_t size);

/// Null is allowed.
void freeArray(void* array);

}  // namespace accessory
