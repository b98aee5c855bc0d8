// A heap that tells how much the calling thread held at once. Linked into a program, it stands before malloc
// and its relatives for everything in it.
#pragma once

#include <cstddef>

namespace accessory::test {

/// Meters the calling thread from its construction on.
class HeapMeter {
  public:
    HeapMeter();
    ~HeapMeter();
    HeapMeter(const HeapMeter&) = delete;
    HeapMeter& operator=(const HeapMeter&) = delete;

    /// The most bytes that were held at once and asked for since.
    size_t peak() const;
};

}  // namespace accessory::test
