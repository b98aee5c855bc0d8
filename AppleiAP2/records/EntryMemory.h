// EntryMemory: where the items of one library update lie together. A library of thousands then costs one trip
// to the heap for dozens of items, and their release a count instead of a search for neighbours.
//
// An item keeps the block that it lies in: a receiver that holds on to a single one holds on to kBlockBytes.
// One thread takes; entries may be released on any.
#pragma once

#include <cstddef>

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

    /// Memory for an entry that comes alone.
    static void* takeAlone(size_t bytes);

    /// Gives back what either of them gave.
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

}  // namespace accessory
