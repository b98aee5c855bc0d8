// A peer's links: how they come to be, what is said on them, and how long to try.
#include <poll.h>
#include <sys/epoll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "../Log.h"
#include "../OutOfMemory.h"
#include "Limits.h"
#include "Node.h"
#include "Peer.h"

namespace android::runtime {

namespace {

/// Room for link messages, in bytes, that stays between two of them.
constexpr size_t kMostKeptOutbox = 4096;

}  // namespace

bool Peer::ensureLinked(bool wait) {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mDead || !mLinks.empty()) return !mDead;
    }
    RuntimeFd fd;
    Credentials credentials;
    status_t status = dial(wait, &fd, &credentials);
    if (status == NO_ERROR) status = addLink(&fd, credentials, {});
    if (status == DEAD_OBJECT) die();
    return status == NO_ERROR;
}

bool Peer::seekLink() {
    if (ensureLinked(false)) return true;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mDead || mSeeking) return true;
        mSeeking = mNode.unreached.take(0);
        if (!mSeeking) return false;
    }
    elseUndo([this] { later(&Peer::seekAgain); },
             [this] {
                 const std::lock_guard<std::mutex> guard(mLock);
                 mSeeking = {};
             });
    return true;
}

void Peer::seekAgain() {
    if (!patiently([this] { return ensureLinked(false); }) && !isDead()) return later(&Peer::seekAgain);
    const std::lock_guard<std::mutex> guard(mLock);
    mSeeking = {};
}

void Peer::adoptLink(RuntimeFd* fd, const Credentials& credentials) {
    Quota::Share share = mNode.links.take(credentials.pid);
    if (!share) return mNode.refusals.tell(credentials, "it has too many links");
    if (addLink(fd, credentials, std::move(share)) != DEAD_OBJECT) return;
    Link last;
    last.fd = std::move(*fd);
    hear(&last);
}

/// A link that ends looks like this process's death, so all memory is had before the other end hears of it.
/// @param share of a link that the other end opened; without it the other end has yet to hear what it is for.
/// @return as dial().
status_t Peer::addLink(RuntimeFd* fd, const Credentials& credentials, Quota::Share share) {
    const bool isOurs = !share;
    const auto link = std::make_shared<Link>();
    link->share = std::move(share);
    const std::lock_guard<std::mutex> guard(mLock);
    if (mDead) return DEAD_OBJECT;
    // Of threads that meet a peer at once, one opens a link; more would be more than the other end takes.
    if (isOurs && !mLinks.empty()) return NO_ERROR;
    mLinks.reserve(mLinks.size() + 1);
    watchLink(link, fd);
    if (link->watch == 0) return FAILED_TRANSACTION;
    const status_t status = isOurs ? introduce(link->fd.get(), ConnectionKind::kLink) : NO_ERROR;
    if (status != NO_ERROR) {
        mNode.reactor.forget(link->watch, link->fd.get());
        return status;
    }
    mCredentials = credentials;
    mLinks.push_back(link);
    mHasComeIn = mHasComeIn || !isOurs;
    flushLocked();
    return NO_ERROR;
}

/// Takes @p fd over, or throws std::bad_alloc and leaves it.
void Peer::watchLink(const std::shared_ptr<Link>& link, RuntimeFd* fd) {
    link->fd = std::move(*fd);
    elseUndo(
        [&] {
            link->watch = mNode.reactor.watch(
                link->fd.get(), EPOLLIN,
                [self = shared_from_this(), link](uint32_t events) { self->onLinkEvent(link, events); });
        },
        [&] { *fd = std::move(link->fd); });
}

void Peer::onLinkEvent(const std::shared_ptr<Link>& link, uint32_t events) {
    if ((events & EPOLLOUT) != 0) {
        const std::lock_guard<std::mutex> guard(mLock);
        flushLocked();
    }
    if ((events & (EPOLLIN | EPOLLHUP | EPOLLERR)) != 0 && !readLink(link.get())) {
        patiently([this] { die(); });
    }
}

/// @return false at the link's end.
bool Peer::readLink(Link* link) {
    const ssize_t got = recv(link->fd.get(), link->incoming + link->bytes,
                             sizeof(link->incoming) - link->bytes, MSG_DONTWAIT);
    if (got < 0) return isPassing(errno);
    link->bytes += static_cast<size_t>(got);
    size_t done = 0;
    for (; link->bytes - done >= sizeof(LinkMessage); done += sizeof(LinkMessage)) {
        LinkMessage message;
        std::memcpy(&message, link->incoming + done, sizeof(message));
        if (!obey(message)) return false;
    }
    link->bytes -= done;
    std::memmove(link->incoming, link->incoming + done, link->bytes);
    return got > 0;
}

/// Obeys what has arrived by now.
void Peer::hear(Link* link) {
    int waiting = 0;
    ioctl(link->fd.get(), FIONREAD, &waiting);
    for (size_t left = static_cast<size_t>(waiting) / sizeof(LinkMessage) + 1; left > 0 && readLink(link);
         --left) {
    }
}

/// @return false when the message makes no sense.
bool Peer::obey(const LinkMessage& message) {
    sp<BBinder> unheld;
    switch (message.kind) {
        case LinkMessageKind::kAcquire:
            unheld = count(message.token, 1);
            break;
        case LinkMessageKind::kRelease:
            unheld = count(message.token, -int64_t{message.count});
            break;
        case LinkMessageKind::kTransfer:
            unheld = mNode.credit(message.token, message.beneficiary, 1, *this);
            break;
        case LinkMessageKind::kRevoke:
            unheld = mNode.credit(message.token, message.beneficiary, -1, *this);
            break;
        default:
            mNode.refusals.tell(credentials(), "it breaks the protocol");
            return false;
    }
    mNode.letGo(std::move(unheld));
    return true;
}

/// Throws std::bad_alloc when there is no memory for it to wait in, and has said nothing then.
void Peer::tell(const LinkMessage& message) {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mDead || mGivenUp) return;
    mOutbox.append(reinterpret_cast<const char*>(&message), sizeof(message));
    flushLocked();
    if (mOutbox.size() <= kMostOutboxBytes) return;
    mNode.refusals.tell(mCredentials, "it does not read its link");
    giveUpLocked();
}

/// For what must be said although nobody could do anything about a failure.
void Peer::tellForSure(const LinkMessage& message) {
    const status_t said = unlessExhausted([&] {
        patiently([&] { tell(message); });
        return NO_ERROR;
    });
    if (said != NO_ERROR) BINDER_LOGE("an object of another process is kept alive in vain");
}

/// Without what it was told of references, the peer is of no use. When there is no memory to say so, the next
/// message tries again.
void Peer::giveUpLocked() {
    unlessExhausted([this] {
        mNode.reactor.after(std::chrono::milliseconds(0),
                            [self = shared_from_this()] { patiently([&] { self->die(); }); });
        mGivenUp = true;
        std::string().swap(mOutbox);
        return NO_ERROR;
    });
}

/// Always on the first link, so that messages keep their order. They wait while there is none: a process may
/// have been short of descriptors when it received an object.
void Peer::flushLocked() {
    if (mLinks.empty()) return;
    Link& link = *mLinks.front();
    const int error = sendOutboxLocked(link);
    // A link that will never take anything again, and one for which the kernel has no memory, are "ready" all
    // the time.
    if (isHangUp(error)) giveUpLocked();
    const bool rests = mOutbox.empty() || (error != EAGAIN && flushesLaterLocked());
    mNode.reactor.change(link.watch, link.fd.get(), rests ? EPOLLIN : EPOLLIN | EPOLLOUT);
}

/// @return 0 when all of it is out, else why not.
int Peer::sendOutboxLocked(const Link& link) {
    while (!mOutbox.empty()) {
        const ssize_t sent = send(link.fd.get(), mOutbox.data(), mOutbox.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
        if (sent > 0) {
            mOutbox.erase(0, static_cast<size_t>(sent));
        } else if (errno != EINTR) {
            return errno;
        }
    }
    if (mOutbox.capacity() > kMostKeptOutbox) std::string().swap(mOutbox);
    return 0;
}

/// @return whether a timer tries again.
bool Peer::flushesLaterLocked() {
    if (mFlushing) return true;
    const status_t arranged = unlessExhausted([this] {
        mNode.reactor.after(Reactor::kPause, [self = shared_from_this()] { self->flushAgain(); });
        return NO_ERROR;
    });
    mFlushing = arranged == NO_ERROR;
    return mFlushing;
}

void Peer::flushAgain() {
    const std::lock_guard<std::mutex> guard(mLock);
    mFlushing = false;
    flushLocked();
}

/// The kernel knows of a death before the reactor does.
bool Peer::isHungUp() {
    const std::lock_guard<std::mutex> guard(mLock);
    return mDead || std::any_of(mLinks.begin(), mLinks.end(), [](const std::shared_ptr<Link>& link) {
               pollfd state{link->fd.get(), POLLRDHUP, 0};
               return poll(&state, 1, 0) > 0;
           });
}

}  // namespace android::runtime
