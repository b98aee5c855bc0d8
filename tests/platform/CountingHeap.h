// A heap that counts and can be told to be exhausted. Linked into a program, it replaces operator new and
// delete for everything in it. All of this is per thread.
#pragma once

#include <cstddef>

namespace accessory::test {

/// How often the calling thread has asked operator new for memory, with or without success.
size_t allocations();

/// How many blocks the calling thread has handed to operator delete.
size_t frees();

/// The bytes that the calling thread has got from operator new and not handed back, of which another thread's
/// blocks that it handed back are taken off.
ptrdiff_t bytesHeld();

/// While it lives, the calling thread's allocations of @p atLeast bytes and more fail.
class Exhaustion {
  public:
    explicit Exhaustion(size_t atLeast = 0);
    ~Exhaustion();
    Exhaustion(const Exhaustion&) = delete;
    Exhaustion& operator=(const Exhaustion&) = delete;
};

}  // namespace accessory::test
