// Memory blocks for parcels and frames, kept by each thread for its next call: a warm call allocates nothing.
#pragma once

#include <cstddef>
#include <cstdint>

namespace android::runtime {

/// A block of at least @p atLeast bytes, not initialised; null when there is no memory.
/// @param capacity set to the true size, to be given back with the block.
uint8_t* acquireBlock(size_t atLeast, size_t* capacity);

/// Takes a block back, from any thread; null is allowed.
void releaseBlock(uint8_t* block, size_t capacity);

}  // namespace android::runtime
