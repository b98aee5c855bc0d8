#include "BufferCache.h"

#include <sanitizer/asan_interface.h>

#include <array>
#include <mutex>
#include <new>

namespace android::runtime {

namespace {

// Blocks come in powers of two, up to the one that the largest transaction needs; a larger one is not kept.
constexpr size_t kSmallestBlock = 512;
constexpr size_t kClasses = 12;
constexpr size_t kLargestBlock = kSmallestBlock << (kClasses - 1);
static_assert(kLargestBlock == size_t{1024} * 1024, "a transaction fits the largest block");

/// Up to this size each thread keeps blocks of its own, so that taking one needs no lock. Larger blocks hold
/// more than a lock costs, and a process has few of them in use at a time: its threads share what is kept.
constexpr size_t kLargestOfThread = size_t{64} * 1024;
constexpr size_t kKeptPerThread = size_t{256} * 1024;
constexpr size_t kKeptPerProcess = size_t{4} * 1024 * 1024;

constexpr size_t sizeOf(size_t index) { return kSmallestBlock << index; }

size_t classOf(size_t size) {
    size_t index = 0;
    while (sizeOf(index) < size)
        ++index;
    return index;
}

uint8_t* allocate(size_t size) { return static_cast<uint8_t*>(::operator new(size, std::nothrow)); }

/// What a block holds while nobody uses it.
struct Spare {
    Spare* next;
};

/// Spare blocks, one list per class, @p most bytes in all.
class Cache {
  public:
    explicit Cache(size_t most) : mMost(most) {}
    ~Cache();
    Cache(const Cache&) = delete;
    Cache& operator=(const Cache&) = delete;

    uint8_t* take(size_t index);
    bool keep(uint8_t* block, size_t index);

  private:
    const size_t mMost;
    std::array<Spare*, kClasses> mSpare{};
    size_t mKept = 0;
};

Cache::~Cache() {
    for (size_t index = 0; index < kClasses; ++index) {
        while (uint8_t* block = take(index))
            ::operator delete(block);
    }
}

uint8_t* Cache::take(size_t index) {
    auto* const block = reinterpret_cast<uint8_t*>(mSpare[index]);
    if (block == nullptr) return nullptr;
    ASAN_UNPOISON_MEMORY_REGION(block, sizeOf(index));
    mSpare[index] = reinterpret_cast<Spare*>(block)->next;
    mKept -= sizeOf(index);
    return block;
}

// A spare block is poisoned, so that a pointer into a parcel that has ended is found out as after a free. The
// link stays readable: the leak sanitizer follows none that is poisoned.
bool Cache::keep(uint8_t* block, size_t index) {  // NOLINT(readability-non-const-parameter): taken over
    const size_t size = sizeOf(index);
    if (mKept + size > mMost) return false;
    auto* const spare = new (block) Spare{mSpare[index]};
    ASAN_POISON_MEMORY_REGION(block + sizeof(Spare), size - sizeof(Spare));
    mSpare[index] = spare;
    mKept += size;
    return true;
}

/// Of one thread. What a parcel that ends even later in the thread's end gives back is not kept.
struct ThreadCache {
    ~ThreadCache() { gone = true; }
    static thread_local bool gone;
    Cache cache{kKeptPerThread};
};
thread_local bool ThreadCache::gone = false;
thread_local ThreadCache tOwn;

/// Of all threads. Never destroyed, because threads may outlive main(), and in no memory of the heap, which
/// may have run out when it is first needed.
struct SharedCache {
    std::mutex lock;
    Cache cache{kKeptPerProcess};
};

SharedCache& shared() {
    alignas(SharedCache) static uint8_t place[sizeof(SharedCache)];
    static auto* const theOne = new (place) SharedCache;
    return *theOne;
}

uint8_t* takeSpare(size_t index) {
    if (sizeOf(index) <= kLargestOfThread) return ThreadCache::gone ? nullptr : tOwn.cache.take(index);
    const std::lock_guard<std::mutex> guard(shared().lock);
    return shared().cache.take(index);
}

bool keepSpare(uint8_t* block, size_t index) {
    if (sizeOf(index) <= kLargestOfThread) return !ThreadCache::gone && tOwn.cache.keep(block, index);
    const std::lock_guard<std::mutex> guard(shared().lock);
    return shared().cache.keep(block, index);
}

}  // namespace

uint8_t* acquireBlock(size_t atLeast, size_t* capacity) {
    if (atLeast > kLargestBlock) {
        *capacity = atLeast;
        return allocate(atLeast);
    }
    const size_t index = classOf(atLeast);
    *capacity = sizeOf(index);
    uint8_t* const spare = takeSpare(index);
    return spare != nullptr ? spare : allocate(*capacity);
}

// Not a pointer to const: the memory is taken over.
void releaseBlock(uint8_t* block, size_t capacity) {  // NOLINT(readability-non-const-parameter)
    if (block == nullptr) return;
    if (capacity <= kLargestBlock && keepSpare(block, classOf(capacity))) return;
    ::operator delete(block);
}

}  // namespace android::runtime
