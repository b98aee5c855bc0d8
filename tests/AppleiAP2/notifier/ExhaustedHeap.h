// ExhaustedHeap: lets allocations fail that no limit of the library refuses.
#pragma once

#include <climits>
#include <cstddef>

namespace accessory::test {

/// While one lives, the calling thread's malloc() and calloc(), from whichever library, fail when they are
/// asked for at least @p bytes; the first @p times that they are.
class ExhaustedHeap {
  public:
    explicit ExhaustedHeap(size_t bytes, int times = INT_MAX);
    ~ExhaustedHeap();

    ExhaustedHeap(const ExhaustedHeap&) = delete;
    ExhaustedHeap& operator=(const ExhaustedHeap&) = delete;
};

}  // namespace accessory::test
