// Memory through which the data of large calls goes from one process to another: two copies between programs
// cost less than two copies through the kernel and the memory that it sets up for them.
//
// Each end of a call connection may have a block of its own for what it sends; the other end can read it, but
// neither write nor cut it. A receiver copies the data out before it looks at them, so nobody can change
// bytes under a reader. The sender uses the block again only after the other end has spoken, which it does
// only when it has read. The kernel frees a block with the last process that maps it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "RuntimeFd.h"

namespace android::runtime {

/// What a block holds: the data of any transaction.
constexpr size_t kSharedBytes = size_t{1024} * 1024;

/// The sender's end.
class SharedBlock {
  public:
    /// Null when there is no memory or descriptor for it, or this process has enough of them.
    static std::unique_ptr<SharedBlock> create();
    ~SharedBlock();
    SharedBlock(const SharedBlock&) = delete;
    SharedBlock& operator=(const SharedBlock&) = delete;

    uint8_t* bytes() const { return mBytes; }
    /// What the receiver maps.
    int fd() const { return mFd.get(); }
    /// The block has been mapped by the other end, or never will be.
    void closeFd() { mFd.reset(); }

  private:
    SharedBlock(RuntimeFd fd, uint8_t* bytes);

    RuntimeFd mFd;
    uint8_t* const mBytes;
};

/// The receiver's end.
class SharedView {
  public:
    /// Null when the descriptor is not a block that cannot be cut short, or cannot be mapped, or this process
    /// has enough of them. Does not take the descriptor over.
    static std::unique_ptr<SharedView> map(int fd);
    ~SharedView();
    SharedView(const SharedView&) = delete;
    SharedView& operator=(const SharedView&) = delete;

    const uint8_t* bytes() const { return mBytes; }

  private:
    explicit SharedView(const uint8_t* bytes);

    const uint8_t* const mBytes;
};

}  // namespace android::runtime
