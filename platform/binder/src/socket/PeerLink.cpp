// A peer's links: how they come to be, what is said on them, and how long to try.
#include <poll.h>
#include <sys/epoll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "Limits.h"
#include "Node.h"
#include "Peer.h"

namespace android::runtime {

bool Peer::ensureLinked(bool wait) {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mDead || !mLinks.empty()) return !mDead;
    }
    Credentials credentials;
    status_t status = NO_ERROR;
    RuntimeFd fd = knock(ConnectionKind::kLink, wait, &credentials, &status);
    if (status == DEAD_OBJECT) die();
    return fd.isOpen() && addLink(std::move(fd), credentials, {});
}

bool Peer::seekLink() {
    if (ensureLinked(false)) return true;
    const std::lock_guard<std::mutex> guard(mLock);
    if (mDead || mSeeking) return true;
    mSeeking = mNode.unreached.take(0);
    if (mSeeking) seekLater();
    return static_cast<bool>(mSeeking);
}

void Peer::seekLater() {
    mNode.reactor.after(kPause, [self = shared_from_this()] {
        if (!self->ensureLinked(false) && !self->isDead()) return self->seekLater();
        const std::lock_guard<std::mutex> guard(self->mLock);
        self->mSeeking = {};
    });
}

void Peer::adoptLink(RuntimeFd fd, const Credentials& credentials) {
    Quota::Share share = mNode.links.take(credentials.pid);
    if (!share) return mNode.refusals.tell(credentials, "it has too many links");
    addLink(std::move(fd), credentials, std::move(share));
}

bool Peer::addLink(RuntimeFd fd, const Credentials& credentials, Quota::Share share) {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mDead) return false;
    const auto link = std::make_shared<Link>();
    link->fd = std::move(fd);
    link->share = std::move(share);
    link->watch = mNode.reactor.watch(
        link->fd.get(), EPOLLIN,
        [self = shared_from_this(), link](uint32_t events) { self->onLinkEvent(link, events); });
    if (link->watch == 0) return false;
    mCredentials = credentials;
    mLinks.push_back(link);
    flushLocked();
    return true;
}

void Peer::onLinkEvent(const std::shared_ptr<Link>& link, uint32_t events) {
    if ((events & EPOLLOUT) != 0) {
        const std::lock_guard<std::mutex> guard(mLock);
        flushLocked();
    }
    if ((events & (EPOLLIN | EPOLLHUP | EPOLLERR)) != 0 && !readLink(link.get())) die();
}

/// @return false at the link's end.
bool Peer::readLink(Link* link) {
    char bytes[64 * sizeof(LinkMessage)];
    const ssize_t got = recv(link->fd.get(), bytes, sizeof(bytes), MSG_DONTWAIT);
    if (got < 0) return errno == EAGAIN || errno == EINTR;
    link->incoming.append(bytes, static_cast<size_t>(got));
    size_t done = 0;
    for (; link->incoming.size() - done >= sizeof(LinkMessage); done += sizeof(LinkMessage)) {
        LinkMessage message;
        std::memcpy(&message, link->incoming.data() + done, sizeof(message));
        if (!obey(message)) return false;
    }
    link->incoming.erase(0, done);
    return got > 0;
}

/// @return false when the message makes no sense.
bool Peer::obey(const LinkMessage& message) {
    sp<BBinder> unheld;
    switch (message.kind) {
        case LinkMessageKind::kAcquire:
            mNode.exports.adjust(message.token, mId, 1);
            break;
        case LinkMessageKind::kRelease:
            unheld = mNode.exports.adjust(message.token, mId, -int64_t{message.count});
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
    if (unheld != nullptr) mNode.letGo({std::move(unheld)});
    return true;
}

void Peer::tell(const LinkMessage& message) {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mDead || mGivenUp) return;
    mOutbox.append(reinterpret_cast<const char*>(&message), sizeof(message));
    flushLocked();
    if (mOutbox.size() > kMostOutboxBytes) giveUpLocked();
}

/// Without what it was told of references, the peer is of no use.
void Peer::giveUpLocked() {
    mNode.refusals.tell(mCredentials, "it does not read its link");
    mGivenUp = true;
    mOutbox = {};
    mNode.reactor.after(std::chrono::milliseconds(0), [self = shared_from_this()] { self->die(); });
}

/// Always on the first link, so that messages keep their order. They wait while there is none: a process may
/// have been short of descriptors when it received an object.
void Peer::flushLocked() {
    if (mLinks.empty()) return;
    Link& link = *mLinks.front();
    while (!mOutbox.empty()) {
        const ssize_t sent = send(link.fd.get(), mOutbox.data(), mOutbox.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
        if (sent > 0) {
            mOutbox.erase(0, static_cast<size_t>(sent));
        } else if (errno != EINTR) {
            break;
        }
    }
    mNode.reactor.change(link.watch, link.fd.get(), mOutbox.empty() ? EPOLLIN : EPOLLIN | EPOLLOUT);
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
