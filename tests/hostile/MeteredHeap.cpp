#include "tests/hostile/MeteredHeap.h"

#include <malloc.h>

#include <algorithm>

// NOLINTBEGIN(bugprone-reserved-identifier): the names that the C library gives its own heap
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
void __libc_free(void* block);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

// Blocks that others made may be freed while the meter runs, so what is held may be negative.
thread_local bool tMetering = false;
thread_local long tHeld = 0;
thread_local long tPeak = 0;

long sizeOf(void* block) { return block != nullptr ? static_cast<long>(malloc_usable_size(block)) : 0; }

void note(long bytes) {
    if (!tMetering) return;
    tHeld += bytes;
    tPeak = std::max(tPeak, tHeld);
}

void* noted(void* block) {
    note(sizeOf(block));
    return block;
}

}  // namespace

#define VISIBLE __attribute__((visibility("default")))

extern "C" {

VISIBLE void* malloc(size_t size) { return noted(__libc_malloc(size)); }

VISIBLE void* calloc(size_t count, size_t size) { return noted(__libc_calloc(count, size)); }

VISIBLE void* realloc(void* block, size_t size) {
    note(-sizeOf(block));
    return noted(__libc_realloc(block, size));
}

VISIBLE void free(void* block) {
    note(-sizeOf(block));
    __libc_free(block);
}

}  // extern "C"

namespace accessory::test {

HeapMeter::HeapMeter() {
    tHeld = 0;
    tPeak = 0;
    tMetering = true;
}

HeapMeter::~HeapMeter() { tMetering = false; }

size_t HeapMeter::peak() const { return static_cast<size_t>(tPeak); }

}  // namespace accessory::test
