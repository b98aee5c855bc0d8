#include "Connection.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "../Log.h"
#include "../OutOfMemory.h"
#include "Limits.h"
#include "ParcelCodec.h"

namespace android::runtime {

namespace {

/// As much of a body is received together with the header; what is beyond it comes with one more system call,
/// right to its place.
constexpr size_t kUsualBody = 4096;

/// Up to this size a body is sent from one buffer with its header: to copy it costs less than to describe two
/// buffers to the kernel.
constexpr size_t kWorthJoining = 2048;

/// From this size on the way through shared memory is the shorter one.
constexpr size_t kWorthSharing = size_t{16} * 1024;

void setTimeLimit(int fd, int option, std::chrono::milliseconds span) {
    const timeval limit{static_cast<time_t>(span.count() / 1000),
                        static_cast<suseconds_t>(span.count() % 1000 * 1000)};
    setsockopt(fd, SOL_SOCKET, option, &limit, sizeof(limit));
}

}  // namespace

Block& Block::operator=(Block&& other) noexcept {
    std::swap(mBytes, other.mBytes);
    std::swap(mCapacity, other.mCapacity);
    return *this;
}

uint8_t* Block::release() { return std::exchange(mBytes, nullptr); }

Frame::~Frame() {
    for (const int fd : fds) {
        if (fd >= 0) close(fd);
    }
}

Connection::Connection(RuntimeFd fd, ConnectionKind kind, std::shared_ptr<Peer> peer,
                       const Credentials& credentials)
    : mFd(std::move(fd)), mKind(kind), mPeer(std::move(peer)), mCredentials(credentials) {}

void Connection::setTimeLimits(std::chrono::milliseconds receiving, std::chrono::milliseconds sending) {
    setTimeLimit(mFd.get(), SO_RCVTIMEO, receiving);
    setTimeLimit(mFd.get(), SO_SNDTIMEO, sending);
}

status_t Connection::send(const FrameHeader& header, const void* data,
                          const std::vector<ObjectRecord>& records, const std::vector<int>& fds) {
    flushAll();
    FrameHeader sent = header;
    const bool shared = share(&sent, data);
    const bool offers = !shared && offerBlock(header);
    if (offers) sent.sharing |= kOffersBlock;
    const size_t streamed = shared ? 0 : header.dataSize;
    uint8_t joined[sizeof(sent) + kWorthJoining];
    iovec parts[3] = {
        {&sent, sizeof(sent)},
        {const_cast<void*>(data), streamed},
        {const_cast<ObjectRecord*>(records.data()), records.size() * sizeof(ObjectRecord)},
    };
    size_t count = records.empty() ? 2 : 3;
    if (records.empty() && streamed <= kWorthJoining) {
        std::memcpy(joined, &sent, sizeof(sent));
        if (streamed > 0) std::memcpy(joined + sizeof(sent), data, streamed);
        parts[0] = {joined, sizeof(sent) + streamed};
        count = 1;
    }
    const int block = offers ? mBlock->fd() : -1;
    const int* const descriptors = offers ? &block : fds.data();
    std::string* const rest = header.kind == FrameKind::kCall ? nullptr : &mUnsent;
    switch (sendAll(mFd.get(), parts, count, descriptors, descriptorsOf(sent), rest, mPatience)) {
        case Sent::kAll:
        case Sent::kBegun:
            return NO_ERROR;
        case Sent::kNothing:
            if (offers) mSending = Sending::kNoBlock;
            return refused(header);
        case Sent::kGone:
            break;
    }
    return DEAD_OBJECT;
}

/// The kernel has not taken the frame, and errno says why. Who waits for an answer has read the one before,
/// so there is room for its beginning unless he has not.
status_t Connection::refused(const FrameHeader& header) {
    if (errno != EAGAIN) {
        BINDER_LOGE("a call or an answer cannot be sent: %s", strerror(errno));
    } else if (header.kind == FrameKind::kReply) {
        mOffence = "it does not read its answers";
    }
    return FAILED_TRANSACTION;
}

/// Puts large data into the block when the other end maps it. @return whether it did.
bool Connection::share(FrameHeader* header, const void* data) {
    if (mView != nullptr) header->sharing |= kMapsBlock;
    if (mSending != Sending::kAccepted || header->dataSize < kWorthSharing) return false;
    std::memcpy(mBlock->bytes(), data, header->dataSize);
    header->sharing |= kDataInBlock;
    return true;
}

/// The first large frame still goes through the socket, and a block beside it for those to come. One-way
/// connections have none: their sender never learns when a frame was read.
bool Connection::offerBlock(const FrameHeader& header) {
    if (mKind != ConnectionKind::kCall || header.dataSize < kWorthSharing) return false;
    if (mSending != Sending::kNoBlock || header.objectCount > 0) return false;
    if (mBlock == nullptr) mBlock = SharedBlock::create();
    if (mBlock == nullptr) return false;
    mSending = Sending::kOffered;
    return true;
}

bool Connection::flush() {
    std::string rest;
    iovec part{mUnsent.data(), mUnsent.size()};
    switch (sendAll(mFd.get(), &part, 1, nullptr, 0, &rest)) {
        case Sent::kBegun:
            mUnsent.swap(rest);
            return false;
        case Sent::kNothing:
            if (isPassing(errno)) return false;
            [[fallthrough]];
        case Sent::kGone:
            giveUp();
            break;
        case Sent::kAll:
            break;
    }
    std::string().swap(mUnsent);
    return true;
}

void Connection::flushAll() {
    while (hasUnsent() && !flush())
        awaitSocket(mFd.get(), POLLOUT, false, mPatience);
}

/// The other end misses a part, so nothing that it says makes sense any more: receive() finds the end.
void Connection::giveUp() { shutdown(mFd.get(), SHUT_RDWR); }

size_t Connection::held() const {
    const size_t unsent = hasUnsent() ? mUnsent.capacity() : 0;
    return mFrame.body.capacity() + unsent + mFrame.fds.size() * kHeldDescriptorBytes;
}

bool Connection::hasRoom(int milliseconds) const { return awaitEvents(mFd.get(), POLLOUT, milliseconds); }

Received Connection::receive(Frame* frame, Wait wait) {
    if (wait == Wait::kForever) flushAll();
    for (;;) {
        switch (readMore(wait)) {
            case Progress::kNone:
                return Received::kNothing;
            case Progress::kBroken:
                return broken();
            case Progress::kEnd:
                return Received::kClosed;
            case Progress::kGoOn:
                break;
        }
        if (wait == Wait::kBriefly) wait = Wait::kNo;
        if (!headerComplete()) continue;
        if (!isPlausible(mFrame.header)) return broken();
        if (!bodyComplete()) continue;
        // The other end has to wait for us before it may say more.
        if (mBodyBytes > streamedSize(mFrame.header)) return broken();
        if (!descriptorsComplete() || !takeSharing()) return broken();
        if (!isExhausted() && !areRecordsSound(mFrame.header, mFrame.body.bytes())) return broken();
        finish(frame);
        return Received::kFrame;
    }
}

bool Connection::expects(const Frame& frame, FrameKind kind) {
    if (frame.header.kind != kind) broken();
    return frame.header.kind == kind;
}

Received Connection::broken() {
    mOffence = "it breaks the protocol";
    return Received::kBroken;
}

Connection::Progress Connection::readMore(Wait wait) {
    return headerComplete() ? readBody(wait) : readBeginning(wait);
}

/// One-way connections carry frame after frame, so nothing beyond the current one is taken off the socket. On
/// the others header and body come with one system call. A connection that rests holds no memory.
Connection::Progress Connection::readBeginning(Wait wait) {
    uint8_t beginning[sizeof(FrameHeader) + kUsualBody];
    const size_t missing = sizeof(FrameHeader) - mHeaderBytes;
    const size_t room = mKind == ConnectionKind::kOneway ? missing : missing + kUsualBody;
    size_t got = 0;
    const Progress progress = take(beginning, room, wait, &got);
    const size_t ofHeader = std::min(got, missing);
    std::memcpy(reinterpret_cast<uint8_t*>(&mFrame.header) + mHeaderBytes, beginning, ofHeader);
    mHeaderBytes += ofHeader;
    if (progress != Progress::kGoOn || !headerComplete() || !isPlausible(mFrame.header)) return progress;
    mFrame.body = Block(streamedSize(mFrame.header));
    mBodyBytes = got - ofHeader;
    const size_t ofBody = std::min(mBodyBytes, streamedSize(mFrame.header));
    if (isExhausted()) {
        giveBackObjects(beginning + ofHeader, ofBody, 0);
    } else {
        std::memcpy(mFrame.body.bytes(), beginning + ofHeader, ofBody);
    }
    return Progress::kGoOn;
}

Connection::Progress Connection::readBody(Wait wait) {
    size_t got = 0;
    const size_t missing = streamedSize(mFrame.header) - mBodyBytes;
    const Progress progress = isExhausted() ? passOver(missing, wait, &got)
                                            : take(mFrame.body.bytes() + mBodyBytes, missing, wait, &got);
    mBodyBytes += got;
    return progress;
}

/// A body that there is no memory for is taken off the stream all the same, so that the next frame can
/// follow.
Connection::Progress Connection::passOver(size_t missing, Wait wait, size_t* got) {
    uint8_t dropped[kUsualBody];
    const Progress progress = take(dropped, std::min(missing, sizeof(dropped)), wait, got);
    giveBackObjects(dropped, *got, mBodyBytes);
    return progress;
}

/// The references that came with what nobody will decode.
/// @param bytes of the streamed body, from @p position on; the records end it.
void Connection::giveBackObjects(const uint8_t* bytes, size_t count, size_t position) {
    const size_t records = streamedSize(mFrame.header) - mFrame.header.objectCount * sizeof(ObjectRecord);
    for (size_t i = records > position ? records - position : 0; i < count; ++i) {
        const size_t at = (position + i - records) % sizeof(mPassedOver);
        std::memcpy(reinterpret_cast<uint8_t*>(&mPassedOver) + at, bytes + i, 1);
        if (at + 1 == sizeof(mPassedOver)) giveBack(mPassedOver, *mPeer);
    }
}

/// One system call's worth of bytes and descriptors.
Connection::Progress Connection::take(void* room, size_t size, Wait wait, size_t* got) {
    iovec part{room, size};
    alignas(cmsghdr) uint8_t control[CMSG_SPACE(kMaxDescriptors * sizeof(int))];
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control;
    message.msg_controllen = sizeof(control);
    const ssize_t received =
        receiveMessage(mFd.get(), &message, MSG_CMSG_CLOEXEC | (wait == Wait::kNo ? MSG_DONTWAIT : 0));
    if (received < 0) return readFailed(wait);
    if ((message.msg_controllen > 0 || message.msg_flags != 0) && !noteDescriptors(&message)) {
        return Progress::kBroken;
    }
    *got = static_cast<size_t>(received);
    return received == 0 ? Progress::kEnd : Progress::kGoOn;
}

Connection::Progress Connection::readFailed(Wait wait) {
    if (!isPassing(errno)) return Progress::kEnd;
    if (wait != Wait::kForever) return Progress::kNone;
    // A longer wait must not wake up for the socket's time limit again and again.
    awaitSocket(mFd.get(), POLLIN, errno == EAGAIN, mPatience);
    return Progress::kGoOn;
}

bool Connection::noteDescriptors(msghdr* message) {
    for (cmsghdr* part = CMSG_FIRSTHDR(message); part != nullptr; part = CMSG_NXTHDR(message, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS) continue;
        const size_t count = (part->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        const size_t before = mFrame.fds.size();
        // Without a place here nobody would ever close them.
        patiently([&] { mFrame.fds.resize(before + count); });
        std::memcpy(&mFrame.fds[before], CMSG_DATA(part), count * sizeof(int));
    }
    mDescriptorsLost = mDescriptorsLost || (message->msg_flags & MSG_CTRUNC) != 0;
    return mFrame.fds.size() <= kMaxDescriptors;
}

/// When this process has no room for more descriptors the kernel drops them; their places hold -1 then, and
/// the call goes on.
bool Connection::descriptorsComplete() {
    const size_t announced = descriptorsOf(mFrame.header);
    if (mDescriptorsLost && mFrame.fds.size() < announced) {
        patiently([&] { mFrame.fds.resize(announced, -1); });
    }
    return mFrame.fds.size() == announced;
}

/// What the other end says about blocks. @return false when it says what it cannot mean.
bool Connection::takeSharing() {
    const uint8_t sharing = mFrame.header.sharing;
    if (sharing != 0 && mKind != ConnectionKind::kCall) return false;
    if ((sharing & kOffersBlock) != 0) {
        const RuntimeFd block(mFrame.fds.back());
        mFrame.fds.pop_back();
        if (mView == nullptr && block.isOpen()) mView = SharedView::map(block.get());
    }
    if (mSending == Sending::kOffered) {
        mSending = (sharing & kMapsBlock) != 0 ? Sending::kAccepted : Sending::kRefused;
        mSending == Sending::kAccepted ? mBlock->closeFd() : mBlock.reset();
    }
    return (sharing & kDataInBlock) == 0 || fetchData();
}

/// The whole body as if it had come through the stream: the data out of the other end's block, then the
/// records.
bool Connection::fetchData() {
    if (mView == nullptr) return false;
    const FrameHeader& header = mFrame.header;
    Block whole(bodySize(header));
    if (whole.bytes() != nullptr && !isExhausted()) {
        std::memcpy(whole.bytes(), mView->bytes(), header.dataSize);
        std::memcpy(whole.bytes() + header.dataSize, mFrame.body.bytes(), streamedSize(header));
    } else {
        if (!isExhausted()) giveBackObjects(mFrame.body.bytes(), streamedSize(header), 0);
        whole = Block();
    }
    mFrame.body = std::move(whole);
    return true;
}

void Connection::finish(Frame* frame) {
    frame->header = mFrame.header;
    frame->body = std::move(mFrame.body);
    frame->fds.swap(mFrame.fds);
    mHeaderBytes = 0;
    mBodyBytes = 0;
    mDescriptorsLost = false;
}

}  // namespace android::runtime
