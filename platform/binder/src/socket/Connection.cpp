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

namespace android::runtime {

namespace {

/// Room for a frame's body before its size is known. It holds any usual call; what is beyond it comes with one
/// more system call, right to its place. A connection that rests keeps as much.
constexpr size_t kUsualBody = 4096;

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
    : mFd(std::move(fd)),
      mKind(kind),
      mPeer(std::move(peer)),
      mCredentials(credentials) {}

void Connection::setPatience(int milliseconds) {
    timeval limit{milliseconds / 1000, suseconds_t{milliseconds % 1000} * 1000};
    setsockopt(mFd.get(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof(limit));
}

status_t Connection::send(const FrameHeader& header, const void* data,
                          const std::vector<ObjectRecord>& records, const std::vector<int>& fds) {
    iovec parts[3] = {
        {const_cast<FrameHeader*>(&header), sizeof(header)},
        {const_cast<void*>(data), header.dataSize},
        {const_cast<ObjectRecord*>(records.data()), records.size() * sizeof(ObjectRecord)},
    };
    switch (sendAll(mFd.get(), parts, records.empty() ? 2 : 3, fds.data(), fds.size())) {
        case Sent::kAll:
            return NO_ERROR;
        case Sent::kNothing:
            BINDER_LOGE("a call or an answer cannot be sent: %s", strerror(errno));
            return FAILED_TRANSACTION;
        case Sent::kGone:
            break;
    }
    return DEAD_OBJECT;
}

Received Connection::receive(Frame* frame, Wait wait) {
    for (;;) {
        switch (readMore(wait)) {
            case Progress::kNone:
                return Received::kNothing;
            case Progress::kEnd:
                return Received::kClosed;
            case Progress::kGoOn:
                break;
        }
        if (!headerComplete()) continue;
        if (!isPlausible(mFrame.header)) return Received::kBroken;
        if (!bodyComplete()) continue;
        // The other end has to wait for us before it may say more.
        if (mBodyBytes > bodySize(mFrame.header)) return Received::kBroken;
        if (!descriptorsComplete()) return Received::kBroken;
        if (!areRecordsSound(mFrame.header, mFrame.body.bytes())) return Received::kBroken;
        finish(frame);
        return Received::kFrame;
    }
}

/// One-way connections carry frame after frame, so nothing beyond the current one is taken off the socket. On
/// the others header and body come with one system call.
Connection::Progress Connection::readMore(Wait wait) {
    if (!makeRoom()) return Progress::kEnd;
    const bool bodyToo = mKind != ConnectionKind::kOneway || headerComplete();
    const size_t room = headerComplete() ? bodySize(mFrame.header) : mFrame.body.capacity();
    iovec parts[2] = {
        {reinterpret_cast<uint8_t*>(&mFrame.header) + mHeaderBytes, sizeof(FrameHeader) - mHeaderBytes},
        {mFrame.body.bytes() + mBodyBytes, room - mBodyBytes},
    };
    alignas(cmsghdr) uint8_t control[CMSG_SPACE(kMaxDescriptors * sizeof(int))];
    msghdr message{};
    message.msg_iov = parts;
    message.msg_iovlen = bodyToo ? 2 : 1;
    message.msg_control = control;
    message.msg_controllen = sizeof(control);
    const ssize_t got =
        recvmsg(mFd.get(), &message, MSG_CMSG_CLOEXEC | (wait == Wait::kNo ? MSG_DONTWAIT : 0));
    if (got < 0) return readFailed(wait);
    if ((message.msg_controllen > 0 || message.msg_flags != 0) && !noteDescriptors(&message)) {
        return Progress::kEnd;
    }
    if (got == 0) return Progress::kEnd;
    const size_t ofHeader = std::min(static_cast<size_t>(got), sizeof(FrameHeader) - mHeaderBytes);
    mHeaderBytes += ofHeader;
    mBodyBytes += static_cast<size_t>(got) - ofHeader;
    return Progress::kGoOn;
}

Connection::Progress Connection::readFailed(Wait wait) const {
    if (errno == EINTR) return wait == Wait::kForever ? Progress::kGoOn : Progress::kNone;
    if (errno != EAGAIN) return Progress::kEnd;
    if (wait != Wait::kForever) return Progress::kNone;
    // The socket's time limit serves Wait::kBriefly; a longer wait must not wake up for it again and again.
    pollfd readable{mFd.get(), POLLIN, 0};
    poll(&readable, 1, -1);
    return Progress::kGoOn;
}

/// A block before the header is known, and one that holds the whole body once it is.
bool Connection::makeRoom() {
    const bool known = headerComplete();
    const size_t wanted = known ? bodySize(mFrame.header) : kUsualBody;
    if (mFrame.body.capacity() >= wanted) return true;
    Block larger(wanted);
    if (larger.bytes() == nullptr) return false;
    if (mBodyBytes > 0) std::memcpy(larger.bytes(), mFrame.body.bytes(), mBodyBytes);
    mFrame.body = std::move(larger);
    return true;
}

bool Connection::noteDescriptors(msghdr* message) {
    for (cmsghdr* part = CMSG_FIRSTHDR(message); part != nullptr; part = CMSG_NXTHDR(message, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS) continue;
        const size_t count = (part->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        const size_t before = mFrame.fds.size();
        mFrame.fds.resize(before + count);
        std::memcpy(&mFrame.fds[before], CMSG_DATA(part), count * sizeof(int));
    }
    mDescriptorsLost = mDescriptorsLost || (message->msg_flags & MSG_CTRUNC) != 0;
    return mFrame.fds.size() <= kMaxDescriptors;
}

/// When this process has no room for more descriptors the kernel drops them; their places hold -1 then, and
/// the call goes on.
bool Connection::descriptorsComplete() {
    const size_t announced = mFrame.header.descriptorCount;
    if (mDescriptorsLost && mFrame.fds.size() < announced) mFrame.fds.resize(announced, -1);
    return mFrame.fds.size() == announced;
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
