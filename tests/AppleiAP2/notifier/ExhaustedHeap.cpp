#include "tests/AppleiAP2/notifier/ExhaustedHeap.h"

#include <cerrno>
#include <cstdint>
#include <new>

// NOLINTBEGIN(bugprone-reserved-identifier): the names that the C library gives its own heap
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

thread_local size_t tLimit = SIZE_MAX;
thread_local int tTimes = 0;

bool fails(size_t size) {
    if (size < tLimit || tTimes == 0) return false;
    --tTimes;
    errno = ENOMEM;
    return true;
}

}  // namespace

#define VISIBLE __attribute__((visibility("default")))

extern "C" {

VISIBLE void* malloc(size_t size) { return fails(size) ? nullptr : __libc_malloc(size); }

VISIBLE void* calloc(size_t count, size_t size) {
    return fails(count * size) ? nullptr : __libc_calloc(count, size);
}

}  // extern "C"

namespace accessory::test {

ExhaustedHeap::ExhaustedHeap(size_t bytes, int times) {
    tLimit = bytes;
    tTimes = times;
}
ExhaustedHeap::~ExhaustedHeap() { tLimit = SIZE_MAX; }

}  // namespace accessory::test
