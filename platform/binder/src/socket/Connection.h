// One stream between two processes, and the frames on it.
#pragma once

#include <sys/socket.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "../BufferCache.h"
#include "Frame.h"
#include "RuntimeFd.h"
#include "SharedBlock.h"
#include "Socket.h"

namespace android::runtime {

class Peer;

/// A block of the thread's cache, given back at the end.
class Block {
  public:
    Block() = default;
    explicit Block(size_t atLeast) { mBytes = acquireBlock(atLeast, &mCapacity); }
    Block(Block&& other) noexcept { *this = std::move(other); }
    Block& operator=(Block&& other) noexcept;
    ~Block() { releaseBlock(mBytes, mCapacity); }

    uint8_t* bytes() const { return mBytes; }
    size_t capacity() const { return mBytes != nullptr ? mCapacity : 0; }
    /// Gives the block away; the receiver must release it.
    uint8_t* release();

  private:
    uint8_t* mBytes = nullptr;
    size_t mCapacity = 0;
};

/// A received frame: sound as Frame.h tells, its body in @c body, its descriptors in @c fds. Descriptors that
/// nobody takes are closed. Without memory for the body there is none, its objects have been given back,
/// and the connection is as good as before.
struct Frame {
    FrameHeader header;
    Block body;
    std::vector<int> fds;

    Frame() = default;
    Frame(Frame&&) = default;
    Frame& operator=(Frame&&) = delete;
    ~Frame();
};

enum class Received {
    kFrame,
    kNothing,  ///< not (yet) a whole frame; only when asked not to wait, or after the socket's own time limit
    kClosed,   ///< by the other end, or by an error of the socket
    kBroken,   ///< what came is no frame; the connection is useless now
};

enum class Wait { kNo, kBriefly, kForever };

/// Used by one thread at a time; whoever hands it on orders that.
///
/// A frame may arrive in any number of pieces: what is there of it waits here until the rest comes, so a slow
/// or hostile sender holds up nobody. Nor does one that does not read: what its socket has no room for of an
/// answer or a one-way call waits here, too.
class Connection {
  public:
    Connection(RuntimeFd fd, ConnectionKind kind, std::shared_ptr<Peer> peer, const Credentials& credentials);

    /// @param records of the objects in @p data, described by @p header like everything else.
    /// @return NO_ERROR; DEAD_OBJECT when the connection is gone; FAILED_TRANSACTION when the kernel does not
    ///         take the frame, a descriptor that is not open above all, and the connection is as good as
    ///         before. Only the sending of a call waits for room.
    status_t send(const FrameHeader& header, const void* data, const std::vector<ObjectRecord>& records,
                  const std::vector<int>& fds);

    /// Whether a part of what was sent still waits here.
    bool hasUnsent() const { return !mUnsent.empty(); }
    /// Sends more of it. @return whether nothing is left, also because the connection is gone.
    bool flush();

    /// The memory that is kept here between calls, in bytes; descriptors count as Limits.h says.
    size_t held() const;
    /// What the pool has counted of it; the pool's alone.
    size_t counted = 0;

    /// What the other end has done for which it loses the connection; null for nothing.
    const char* offence() const { return mOffence; }

    /// Whether the socket takes more, at once or within that time; true for one that is gone, which send()
    /// finds.
    bool hasRoom(int milliseconds) const;

    /// @param wait kBriefly waits as long as setTimeLimits() said for the first piece, and for none after it.
    Received receive(Frame* frame, Wait wait);

    /// Whether @p frame is of the one kind that may come now; otherwise the other end breaks the protocol.
    bool expects(const Frame& frame, FrameKind kind);

    /// How long Wait::kBriefly waits, and how long either way is waited for before the patience is asked; 0
    /// for ever.
    void setTimeLimits(std::chrono::milliseconds receiving, std::chrono::milliseconds sending);

    /// Says how to wait beyond the time limits from here on; null: quietly. @return who said it so far.
    Patience* exchangePatience(Patience* patience) { return std::exchange(mPatience, patience); }

    /// For two threads of which the kernel wakes one because of what the other did: the first says handOver()
    /// in front, the second takeOver() afterwards, and the language knows of their order as well.
    void handOver() { mHandedOver.store(true, std::memory_order_release); }
    void takeOver() const { static_cast<void>(mHandedOver.load(std::memory_order_acquire)); }

    int fd() const { return mFd.get(); }
    ConnectionKind kind() const { return mKind; }
    const std::shared_ptr<Peer>& peer() const { return mPeer; }
    const Credentials& credentials() const { return mCredentials; }

  private:
    enum class Progress { kGoOn, kNone, kEnd, kBroken };

    Progress readMore(Wait wait);
    Progress readBeginning(Wait wait);
    Progress readBody(Wait wait);
    Progress passOver(size_t missing, Wait wait, size_t* got);
    void giveBackObjects(const uint8_t* bytes, size_t count, size_t position);
    Progress take(void* room, size_t size, Wait wait, size_t* got);
    Progress readFailed(Wait wait);
    bool noteDescriptors(msghdr* message);
    bool descriptorsComplete();
    bool headerComplete() const { return mHeaderBytes == sizeof(FrameHeader); }
    /// Once the header is complete: whether there was no memory for the body.
    bool isExhausted() const { return mFrame.body.bytes() == nullptr; }
    bool bodyComplete() const { return headerComplete() && mBodyBytes >= streamedSize(mFrame.header); }
    void flushAll();
    status_t refused(const FrameHeader& header);
    bool share(FrameHeader* header, const void* data);
    bool offerBlock(const FrameHeader& header);
    bool takeSharing();
    bool fetchData();
    void finish(Frame* frame);
    Received broken();
    void giveUp();

    RuntimeFd mFd;
    const ConnectionKind mKind;
    const std::shared_ptr<Peer> mPeer;
    const Credentials mCredentials;

    Frame mFrame;  // in the making
    size_t mHeaderBytes = 0;
    size_t mBodyBytes = 0;
    ObjectRecord mPassedOver;  // of a body that there is no memory for, as far as it has come
    bool mDescriptorsLost = false;
    std::atomic<bool> mHandedOver{false};
    std::string mUnsent;
    const char* mOffence = nullptr;
    Patience* mPatience = nullptr;

    enum class Sending { kNoBlock, kOffered, kAccepted, kRefused };
    Sending mSending = Sending::kNoBlock;
    std::unique_ptr<SharedBlock> mBlock;  // for what is sent
    std::unique_ptr<SharedView> mView;    // of what is received
};

}  // namespace android::runtime
