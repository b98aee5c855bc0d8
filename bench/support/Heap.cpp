#include "bench/support/Heap.h"

namespace {
thread_local size_t tAllocations = 0;
}

// NOLINTBEGIN(bugprone-reserved-identifier): the C library's own names for what it replaces
extern "C" {

void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);

__attribute__((visibility("default"))) void* malloc(size_t size) {
    ++tAllocations;
    return __libc_malloc(size);
}

__attribute__((visibility("default"))) void* calloc(size_t count, size_t size) {
    ++tAllocations;
    return __libc_calloc(count, size);
}

__attribute__((visibility("default"))) void* realloc(void* block, size_t size) {
    ++tAllocations;
    return __libc_realloc(block, size);
}
}
// NOLINTEND(bugprone-reserved-identifier)

namespace accessory::bench {

size_t allocations() { return tAllocations; }

}  // namespace accessory::bench
