// A bounded queue of bytes between the threads that call and the one that writes.
#pragma once

#include <sys/uio.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace android::runtime::trace {

/// Any number of threads put, one takes; nobody waits for anybody.
///
/// A record is one word, its size, and its bytes, filled up to whole words. Who puts reserves its place by
/// moving mReserved, copies, and stores the size last; the taker stops at a size of 0. What is taken is
/// zeroed before its room is given back, so the next record's size is 0 until it is whole.
class Ring {
  public:
    /// @param capacity in bytes, a power of two of at least 64.
    explicit Ring(size_t capacity);
    ~Ring();
    Ring(const Ring&) = delete;
    Ring& operator=(const Ring&) = delete;

    /// Whether the memory could be had; nothing else may be called otherwise.
    bool isReady() const { return mBytes != nullptr; }

    /// Copies the pieces, one behind the other, as one record. @return false when there is no room.
    bool put(const iovec* pieces, size_t count);

    struct Taken {
        size_t bytes = 0;  ///< to release() when the pieces have been used
        size_t records = 0;
    };

    /// Appends the pieces of whole records in their order, as they lie in the ring, about @p most of them.
    Taken take(std::vector<iovec>* pieces, size_t most) const;
    void release(size_t bytes);

    /// Whether nothing is there, nor about to be.
    bool isEmpty() const { return mReserved.load() == mReleased.load(std::memory_order_relaxed); }

  private:
    bool reserve(size_t bytes, uint64_t* position);
    uint64_t* sizeAt(uint64_t position) const;
    uint64_t copyIn(uint64_t position, const iovec& piece);
    void listPieces(uint64_t position, size_t size, std::vector<iovec>* pieces) const;

    alignas(64) std::atomic<uint64_t> mReserved{0};
    alignas(64) std::atomic<uint64_t> mReleased{0};
    const size_t mCapacity;
    uint8_t* const mBytes;
};

}  // namespace android::runtime::trace
