#include "AppleiAP2/records/EntryMemory.h"

#include <atomic>
#include <new>

// The sanitizer sees a block as one piece; it is told which entries of it are gone.
#if defined(__SANITIZE_ADDRESS__)
#define ACCESSORY_TELLS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ACCESSORY_TELLS_SANITIZER
#endif
#endif
#ifdef ACCESSORY_TELLS_SANITIZER
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, size) (static_cast<void>(address), static_cast<void>(size))
#define ASAN_UNPOISON_MEMORY_REGION(address, size) (static_cast<void>(address), static_cast<void>(size))
#endif

namespace accessory {
namespace {

constexpr size_t aligned(size_t bytes) {
    constexpr size_t kAlignment = alignof(std::max_align_t);
    return (bytes + kAlignment - 1) / kAlignment * kAlignment;
}

/// What an open block counts beside its entries; more than it can ever have of them.
constexpr size_t kOpen = EntryMemory::kBlockBytes;

}  // namespace

/// The head of a block.
struct EntryMemory::Block {
    std::atomic<size_t> living{kOpen};

    /// Whoever lets go of the last entry frees the block.
    void letGo(size_t entries) {
        if (living.fetch_sub(entries, std::memory_order_acq_rel) != entries) return;
        ASAN_UNPOISON_MEMORY_REGION(this, kBlockBytes);
        ::operator delete(this);
    }
};

/// What stands before every entry.
struct alignas(std::max_align_t) EntryMemory::Place {
    Block* block;
    size_t bytes;  ///< of the entry

    void* entry() { return this + 1; }
    static Place* of(void* entry) { return static_cast<Place*>(entry) - 1; }
};

void EntryMemory::open() {
    mBlock = new (::operator new(kBlockBytes)) Block;
    mUsed = aligned(sizeof(Block));
    mTaken = 0;
}

void EntryMemory::close() {
    if (mBlock != nullptr) mBlock->letGo(kOpen - mTaken);
    mBlock = nullptr;
}

void* EntryMemory::take(size_t bytes) {
    const size_t needed = sizeof(Place) + aligned(bytes);
    if (mBlock == nullptr || needed > kBlockBytes - mUsed) {
        close();
        open();
    }
    auto* const place = new (reinterpret_cast<char*>(mBlock) + mUsed) Place{mBlock, bytes};
    mUsed += needed;
    ++mTaken;
    return place->entry();
}

void EntryMemory::release(void* entry) {
    Place* const place = Place::of(entry);
    ASAN_POISON_MEMORY_REGION(entry, place->bytes);
    place->block->letGo(1);
}

}  // namespace accessory
