#include "Ring.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstring>

namespace android::runtime::trace {

namespace {

constexpr size_t kWord = sizeof(uint64_t);

constexpr size_t wholeWords(size_t size) { return (size + kWord - 1) & ~(kWord - 1); }

/// Zeroed, and taken from the machine only where it is used.
uint8_t* mapped(size_t capacity) {
    void* const memory = mmap(nullptr, capacity, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return memory != MAP_FAILED ? static_cast<uint8_t*>(memory) : nullptr;
}

}  // namespace

Ring::Ring(size_t capacity) : mCapacity(capacity), mBytes(mapped(capacity)) {}

Ring::~Ring() {
    if (mBytes != nullptr) munmap(mBytes, mCapacity);
}

uint64_t* Ring::sizeAt(uint64_t position) const {
    return reinterpret_cast<uint64_t*>(mBytes + (position & (mCapacity - 1)));
}

/// The taker may have released what others put beyond the position that was loaded; the exchange fails then,
/// which loads it anew.
bool Ring::reserve(size_t bytes, uint64_t* position) {
    *position = mReserved.load(std::memory_order_acquire);
    do {
        if (*position + bytes > mReleased.load(std::memory_order_acquire) + mCapacity) return false;
    } while (!mReserved.compare_exchange_weak(*position, *position + bytes));
    return true;
}

bool Ring::put(const iovec* pieces, size_t count) {
    size_t size = 0;
    for (size_t i = 0; i < count; ++i)
        size += pieces[i].iov_len;
    uint64_t begin = 0;
    if (size == 0 || !reserve(kWord + wholeWords(size), &begin)) return false;
    uint64_t position = begin + kWord;
    for (size_t i = 0; i < count; ++i)
        position = copyIn(position, pieces[i]);
    __atomic_store_n(sizeAt(begin), size, __ATOMIC_RELEASE);
    return true;
}

uint64_t Ring::copyIn(uint64_t position, const iovec& piece) {
    if (piece.iov_len == 0) return position;
    const size_t begin = position & (mCapacity - 1);
    const size_t first = std::min(piece.iov_len, mCapacity - begin);
    const auto* const bytes = static_cast<const uint8_t*>(piece.iov_base);
    std::memcpy(mBytes + begin, bytes, first);
    std::memcpy(mBytes, bytes + first, piece.iov_len - first);
    return position + piece.iov_len;
}

Ring::Taken Ring::take(std::vector<iovec>* pieces, size_t most) const {
    const uint64_t begin = mReleased.load(std::memory_order_relaxed);
    const uint64_t end = mReserved.load(std::memory_order_acquire);
    uint64_t position = begin;
    size_t records = 0;
    while (position < end && pieces->size() < most) {
        const size_t size = __atomic_load_n(sizeAt(position), __ATOMIC_ACQUIRE);
        if (size == 0) break;
        listPieces(position + kWord, size, pieces);
        position += kWord + wholeWords(size);
        ++records;
    }
    return {static_cast<size_t>(position - begin), records};
}

void Ring::listPieces(uint64_t position, size_t size, std::vector<iovec>* pieces) const {
    const size_t begin = position & (mCapacity - 1);
    const size_t first = std::min(size, mCapacity - begin);
    pieces->push_back({mBytes + begin, first});
    if (first < size) pieces->push_back({mBytes, size - first});
}

void Ring::release(size_t bytes) {
    const uint64_t position = mReleased.load(std::memory_order_relaxed);
    const size_t begin = position & (mCapacity - 1);
    const size_t first = std::min(bytes, mCapacity - begin);
    std::memset(mBytes + begin, 0, first);
    std::memset(mBytes, 0, bytes - first);
    mReleased.store(position + bytes, std::memory_order_release);
}

}  // namespace android::runtime::trace
