#include "AppleiAP2/records/ArrayMemory.h"

#include <algorithm>
#include <cstdlib>

namespace accessory {

// NOLINTBEGIN(cppcoreguidelines-no-malloc): the contract of these arrays

void* allocateArray(size_t count, size_t size) { return std::calloc(std::max<size_t>(count, 1), size); }

void freeArray(void* array) { std::free(array); }

// NOLINTEND(cppcoreguidelines-no-malloc)

}  // namespace accessory
