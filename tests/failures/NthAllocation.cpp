// operator new and delete of the whole program, the runtime's and the library's included. What libutils keeps
// in its strings and containers comes from malloc() and is left alone: it ends the process, or goes on with
// a null pointer, when there is none, and nobody above it can help that.
#include <cstdlib>
#include <new>

#include "tests/failures/NthFailure.h"

// NOLINTBEGIN(cppcoreguidelines-no-malloc): what operator new is made of
namespace {

void* allocate(size_t size) {
    return accessory::test::isAllocationToFail() ? nullptr : std::malloc(size != 0 ? size : 1);
}

}  // namespace

void* operator new(size_t size) {
    void* const block = allocate(size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void* operator new(size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, size_t) noexcept { std::free(block); }
// NOLINTEND(cppcoreguidelines-no-malloc)
