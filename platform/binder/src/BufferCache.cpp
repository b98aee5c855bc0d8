#include "BufferCache.h"

#include <sanitizer/asan_interface.h>

#include <array>
#include <new>

namespace android::runtime {

namespace {

// Blocks come in powers of two; larger ones are too rare to be kept.
constexpr size_t kSmallestBlock = 512;
constexpr size_t kLargestBlock = size_t{64} * 1024;
constexpr size_t kClasses = 8;
static_assert(kSmallestBlock << (kClasses - 1) == kLargestBlock, "one class per power of two");
/// What a thread keeps at most, in bytes.
constexpr size_t kKeptPerThread = size_t{256} * 1024;

size_t classOf(size_t size) {
    size_t index = 0;
    while (kSmallestBlock << index < size)
        ++index;
    return index;
}

uint8_t* allocate(size_t size) { return static_cast<uint8_t*>(::operator new(size, std::nothrow)); }

/// What a block holds while nobody uses it.
struct Spare {
    Spare* next;
};

/// The spare blocks of one thread, one list per class.
class Cache {
  public:
    ~Cache();

    uint8_t* take(size_t index);
    bool keep(uint8_t* block, size_t index);

  private:
    std::array<Spare*, kClasses> mSpare{};
    size_t mKept = 0;
};

// Outlives the cache: a parcel that ends later in the same thread's end must not use it any more.
thread_local bool tCacheGone = false;
thread_local Cache tCache;

Cache::~Cache() {
    tCacheGone = true;
    for (size_t index = 0; index < kClasses; ++index) {
        while (uint8_t* block = take(index))
            ::operator delete(block);
    }
}

uint8_t* Cache::take(size_t index) {
    auto* const block = reinterpret_cast<uint8_t*>(mSpare[index]);
    if (block == nullptr) return nullptr;
    ASAN_UNPOISON_MEMORY_REGION(block, kSmallestBlock << index);
    mSpare[index] = reinterpret_cast<Spare*>(block)->next;
    mKept -= kSmallestBlock << index;
    return block;
}

// A spare block is poisoned, so that a pointer into a parcel that has ended is found out as after a free. The
// link stays readable: the leak sanitizer follows none that is poisoned.
bool Cache::keep(uint8_t* block, size_t index) {  // NOLINT(readability-non-const-parameter): taken over
    const size_t size = kSmallestBlock << index;
    if (mKept + size > kKeptPerThread) return false;
    auto* const spare = new (block) Spare{mSpare[index]};
    ASAN_POISON_MEMORY_REGION(block + sizeof(Spare), size - sizeof(Spare));
    mSpare[index] = spare;
    mKept += size;
    return true;
}

}  // namespace

uint8_t* acquireBlock(size_t atLeast, size_t* capacity) {
    if (atLeast > kLargestBlock) {
        *capacity = atLeast;
        return allocate(atLeast);
    }
    const size_t index = classOf(atLeast);
    *capacity = kSmallestBlock << index;
    uint8_t* const spare = tCacheGone ? nullptr : tCache.take(index);
    return spare != nullptr ? spare : allocate(*capacity);
}

// Not a pointer to const: the memory is taken over.
void releaseBlock(uint8_t* block, size_t capacity) {  // NOLINT(readability-non-const-parameter)
    if (block == nullptr) return;
    const bool keepable = capacity <= kLargestBlock && !tCacheGone;
    if (keepable && tCache.keep(block, classOf(capacity))) return;
    ::operator delete(block);
}

}  // namespace android::runtime
