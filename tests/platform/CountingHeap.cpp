#include "tests/platform/CountingHeap.h"

#include <malloc.h>

#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

thread_local size_t tAllocations = 0;
thread_local size_t tFrees = 0;
thread_local ptrdiff_t tHeld = 0;
thread_local size_t tTooLarge = SIZE_MAX;

void* allocate(size_t size) {
    ++tAllocations;
    void* const block = size >= tTooLarge ? nullptr : std::malloc(size);
    if (block != nullptr) tHeld += static_cast<ptrdiff_t>(malloc_usable_size(block));
    return block;
}

}  // namespace

void* operator new(size_t size) {
    void* const block = allocate(size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void* operator new(size_t size, const std::nothrow_t&) noexcept { return allocate(size); }

void operator delete(void* block) noexcept {
    if (block != nullptr) {
        ++tFrees;
        tHeld -= static_cast<ptrdiff_t>(malloc_usable_size(block));
    }
    std::free(block);  // NOLINT(cppcoreguidelines-no-malloc): what operator delete is made of
}

void operator delete(void* block, size_t) noexcept { operator delete(block); }

namespace accessory::test {

size_t allocations() { return tAllocations; }

size_t frees() { return tFrees; }

ptrdiff_t bytesHeld() { return tHeld; }

Exhaustion::Exhaustion(size_t atLeast) { tTooLarge = atLeast; }

Exhaustion::~Exhaustion() { tTooLarge = SIZE_MAX; }

}  // namespace accessory::test
