// EntryMemory: where the items of one library update lie together. A library of thousands then costs half the
// trips to the heap, for only the counts that the platform keeps beside each object are still taken one by
// one.
//
// An item keeps the block that it lies in: a receiver that holds on to a single one holds on to kBlockBytes,
// or twice that where its mask fell into the next. One thread takes; entries may be released on any.
#pragma once

#include <cstddef>
#include <utility>

namespace accessory {

class EntryMemory {
  public:
    /// Lives while an update is read; the entries may outlive it.
    EntryMemory() = default;
    ~EntryMemory() { close(); }
    EntryMemory(const EntryMemory&) = delete;
    EntryMemory& operator=(const EntryMemory&) = delete;

    static constexpr size_t kBlockBytes = size_t{16} * 1024;

    /// @param bytes a small part of a block: the size of an entry's class.
    void* take(size_t bytes);

    /// Gives back what take() gave.
    static void release(void* entry);

  private:
    struct Block;
    struct Place;

    void open();
    void close();

    Block* mBlock = nullptr;  ///< the one that is being filled
    size_t mUsed = 0;         ///< bytes of it
    size_t mTaken = 0;        ///< entries in it
};

/// A record that lies in an update's memory. Whoever holds it need not know.
template <typename Record>
class Packed final : public Record {
  public:
    template <typename... Arguments>
    explicit Packed(Arguments&&... arguments) : Record(std::forward<Arguments>(arguments)...) {}

    static void* operator new(size_t bytes, EntryMemory& memory) { return memory.take(bytes); }
    // What delete calls has no memory at hand. NOLINTNEXTLINE(misc-new-delete-overloads)
    static void operator delete(void* entry) { EntryMemory::release(entry); }
    static void operator delete(void* entry, EntryMemory& /*memory*/) { EntryMemory::release(entry); }
};

}  // namespace accessory
