#include "Peer.h"

#include <poll.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

#include "../Log.h"
#include "../OutOfMemory.h"
#include "Node.h"
#include "SocketRemote.h"

namespace android::runtime {

namespace {

/// Idle connections that are kept for the next calls; more come and go with their call.
constexpr size_t kMaxIdle = 16;

/// How long a one-way call waits for room when the receiver has fallen behind; after that, calls are refused
/// at once until there is room again.
constexpr int kOnewayPatienceMs = 1000;

/// Link messages beyond which the outbox asks for memory.
constexpr size_t kUsualMessages = 64;

bool isGone(int error) { return error == ECONNREFUSED || error == ENOENT; }

}  // namespace

Peer::Peer(Node& node, const PeerId& id) : mNode(node), mId(id) {
    mOutbox.reserve(kUsualMessages * sizeof(LinkMessage));
    mIdle.reserve(kMaxIdle);  // so that a call that went well does not fail at its very end
}

Peer::~Peer() { mNode.peers.forget(*this); }

/// @return NO_ERROR; DEAD_OBJECT when nobody is there; FAILED_TRANSACTION, logged, when this process cannot
/// ask.
status_t Peer::dial(RuntimeFd* fd, Credentials* credentials) const {
    *fd = mNode.folder.connect(mId.toString(), true);
    if (fd->isOpen() && readCredentials(fd->get(), credentials)) return NO_ERROR;
    if (!fd->isOpen() && isGone(errno)) return DEAD_OBJECT;
    BINDER_LOGE("cannot connect to a peer: %s", strerror(errno));
    return FAILED_TRANSACTION;
}

/// Says on a new connection what it is for. @return as dial().
status_t Peer::introduce(int fd, ConnectionKind kind) const {
    Hello hello{kProtocol, kind, mNode.id};
    iovec part{&hello, sizeof(hello)};
    switch (sendAll(fd, &part, 1, nullptr, 0)) {
        case Sent::kAll:
            return NO_ERROR;
        case Sent::kGone:
            return DEAD_OBJECT;
        case Sent::kNothing:
            break;
    }
    BINDER_LOGE("cannot speak to a peer: %s", strerror(errno));
    return FAILED_TRANSACTION;
}

/// All memory is had before the other end hears anything.
std::unique_ptr<Connection> Peer::open(ConnectionKind kind, status_t* status) {
    RuntimeFd fd;
    Credentials credentials;
    *status = dial(&fd, &credentials);
    if (*status == DEAD_OBJECT && errno == ENOENT && livesOn()) {
        BINDER_LOGE("a process lives, but its socket is not in the runtime folder any more");
        *status = FAILED_TRANSACTION;
    }
    if (*status != NO_ERROR) return nullptr;
    auto connection = std::make_unique<Connection>(std::move(fd), kind, shared_from_this(), credentials);
    *status = introduce(connection->fd(), kind);
    return *status == NO_ERROR ? std::move(connection) : nullptr;
}

std::unique_ptr<Connection> Peer::takeConnection(status_t* status) {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mDead) {
            *status = DEAD_OBJECT;
            return nullptr;
        }
        if (!mIdle.empty()) {
            std::unique_ptr<Connection> connection = std::move(mIdle.back());
            mIdle.pop_back();
            return connection;
        }
    }
    // One that could not be had when an object was received may be had now.
    ensureLinked();
    return open(ConnectionKind::kCall, status);
}

void Peer::giveBack(std::unique_ptr<Connection> connection) {
    const std::lock_guard<std::mutex> guard(mLock);
    if (!mDead && mIdle.size() < kMaxIdle) mIdle.push_back(std::move(connection));
}

status_t Peer::sendOneway(const FrameHeader& header, const void* data,
                          const std::vector<ObjectRecord>& records, const std::vector<int>& fds) {
    const std::lock_guard<std::mutex> guard(mOnewayLock);
    if (isDead()) return DEAD_OBJECT;
    status_t status = NO_ERROR;
    if (mOneway == nullptr) mOneway = open(ConnectionKind::kOneway, &status);
    if (mOneway == nullptr) return status;
    if (!mOneway->hasRoom(mOnewayIsFull ? 0 : kOnewayPatienceMs)) {
        if (!mOnewayIsFull)
            BINDER_LOGE("process %d takes in no one-way calls; more are refused", mOneway->credentials().pid);
        mOnewayIsFull = true;
        return FAILED_TRANSACTION;
    }
    mOnewayIsFull = false;
    status = mOneway->send(header, data, records, fds);
    if (status == DEAD_OBJECT) mOneway.reset();
    return status;
}

void Peer::dropOneway() {
    const std::lock_guard<std::mutex> guard(mOnewayLock);
    mOneway.reset();
}

bool Peer::isDead() {
    const std::lock_guard<std::mutex> guard(mLock);
    return mDead;
}

bool Peer::ensureLinked() {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mDead || !mLinks.empty()) return !mDead;
    }
    RuntimeFd fd;
    Credentials credentials;
    status_t status = dial(&fd, &credentials);
    if (status == NO_ERROR) status = addLink(&fd, credentials, true);
    if (status == DEAD_OBJECT) die();
    return status == NO_ERROR;
}

void Peer::adoptLink(RuntimeFd* fd, const Credentials& credentials) { addLink(fd, credentials, false); }

/// A link that ends looks like this process's death, so all memory is had before the other end hears of it,
/// and one that the other end opened stays with the caller until there is memory for it.
/// @param isOurs whether the other end has yet to hear what the connection is for.
status_t Peer::addLink(RuntimeFd* fd, const Credentials& credentials, bool isOurs) {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mDead) return DEAD_OBJECT;
    if (mPid != 0 && mPid != credentials.pid) {
        BINDER_LOGW("process %d poses as process %d and is refused", credentials.pid, mPid);
        return FAILED_TRANSACTION;
    }
    mLinks.reserve(mLinks.size() + 1);
    const auto link = std::make_shared<Link>();
    link->fd = std::move(*fd);
    try {
        watchLink(link);
    } catch (const std::bad_alloc&) {
        *fd = std::move(link->fd);
        throw;
    }
    if (link->watch == 0) return FAILED_TRANSACTION;
    const status_t status = isOurs ? introduce(link->fd.get(), ConnectionKind::kLink) : NO_ERROR;
    if (status != NO_ERROR) {
        mNode.reactor.forget(link->watch, link->fd.get());
        return status;
    }
    mPid = credentials.pid;
    mLinks.push_back(link);
    flushLocked();
    return NO_ERROR;
}

void Peer::watchLink(const std::shared_ptr<Link>& link) {
    link->watch = mNode.reactor.watch(
        link->fd.get(), EPOLLIN,
        [self = shared_from_this(), link](uint32_t events) { self->onLinkEvent(link, events); });
}

/// Whether a process whose socket is not to be found lives on all the same: one that is about to end removes
/// its socket first, and its link ends a moment later.
bool Peer::livesOn() {
    constexpr int kLastMomentsMs = 1000;
    std::shared_ptr<Link> link;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mDead || mLinks.empty()) return false;
        link = mLinks.front();
    }
    return !awaitEvents(link->fd.get(), POLLRDHUP, kLastMomentsMs);
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
        obey(message);
    }
    link->bytes -= done;
    std::memmove(link->incoming, link->incoming + done, link->bytes);
    return got > 0;
}

void Peer::obey(const LinkMessage& message) {
    sp<BBinder> unheld;
    const auto adjust = [&](int64_t change) {
        return patiently([&] { return mNode.exports.adjust(message.token, mId, change); });
    };
    switch (message.kind) {
        case LinkMessageKind::kAcquire:
            adjust(1);
            break;
        case LinkMessageKind::kRelease:
            unheld = adjust(-int64_t{message.count});
            break;
        case LinkMessageKind::kTransfer:
            unheld = mNode.credit(message.token, message.beneficiary, 1);
            break;
        case LinkMessageKind::kRevoke:
            unheld = mNode.credit(message.token, message.beneficiary, -1);
            break;
        default:
            BINDER_LOGW("process %d sends link messages of a kind unknown here", mPid);
            break;
    }
    mNode.letGo(std::move(unheld));
}

/// Throws std::bad_alloc when there is no memory for it to wait in, and has said nothing then.
void Peer::tell(const LinkMessage& message) {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mDead) return;
    mOutbox.append(reinterpret_cast<const char*>(&message), sizeof(message));
    flushLocked();
}

/// For what must be said although nobody could do anything about a failure.
void Peer::tellForSure(const LinkMessage& message) {
    const status_t said = unlessExhausted([&] {
        patiently([&] { tell(message); });
        return NO_ERROR;
    });
    if (said != NO_ERROR) BINDER_LOGE("an object of another process is kept alive in vain");
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

sp<IBinder> Peer::receive(const Token& token) {
    ensureLinked();
    bool dead = false;
    sp<BpBinder> binder = knownProxy(token, &dead);
    if (binder == nullptr) binder = newProxy(token, &dead);
    if (dead) binder->sendObituary();
    return binder;
}

/// The proxy that there is already, with one reference more; else null.
sp<BpBinder> Peer::knownProxy(const Token& token, bool* dead) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto proxy = mProxies.find(token);
    sp<BpBinder> binder = proxy != mProxies.end() ? proxy->second.binder.promote() : nullptr;
    if (binder != nullptr) ++proxy->second.remote->received;
    *dead = mDead;
    return binder;
}

/// Made without the lock, because a proxy that could not be made, or came second, gives up its remote end,
/// which takes the lock.
sp<BpBinder> Peer::newProxy(const Token& token, bool* dead) {
    auto remote = std::make_unique<SocketRemote>(shared_from_this(), token);
    SocketRemote* const end = remote.get();
    const sp<BpBinder> made = new BpBinder(std::move(remote));
    const std::lock_guard<std::mutex> guard(mLock);
    Proxy& proxy = mProxies[token];
    sp<BpBinder> binder = proxy.binder.promote();
    if (binder == nullptr) {
        proxy.remote = end;
        proxy.binder = made;
        binder = made;
    }
    ++proxy.remote->received;
    *dead = mDead;
    return binder;
}

/// The kernel knows of a death before the reactor does.
bool Peer::isHungUp() {
    const std::lock_guard<std::mutex> guard(mLock);
    return mDead || std::any_of(mLinks.begin(), mLinks.end(), [](const std::shared_ptr<Link>& link) {
               pollfd state{link->fd.get(), POLLRDHUP, 0};
               return poll(&state, 1, 0) > 0;
           });
}

sp<IBinder> Peer::acquire(const Token& token) {
    if (!ensureLinked() || isHungUp()) return nullptr;
    tell({LinkMessageKind::kAcquire, 1, token, {}});
    return receive(token);
}

void Peer::forget(const SocketRemote& remote) {
    // A forked child has nothing to give back, and mLock may be held for ever by a thread it does not have.
    if (RuntimeFd::isForkedChild()) return;
    uint32_t count = 0;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        const auto proxy = mProxies.find(remote.token());
        // A newer proxy may have taken the place while this one was dying.
        if (proxy != mProxies.end() && proxy->second.remote == &remote) mProxies.erase(proxy);
        count = remote.received;
    }
    if (count > 0) tellForSure({LinkMessageKind::kRelease, count, remote.token(), {}});
}

Token Peer::lend(const sp<BBinder>& object) {
    if (!ensureLinked()) return {};
    const std::lock_guard<std::mutex> guard(mLock);
    return mDead ? Token() : mNode.exports.lend(object, mId);
}

void Peer::takeBack(const Token& token) { mNode.letGo(mNode.exports.adjust(token, mId, -1)); }

void Peer::tellPassingOn(const Token& token, const PeerId& beneficiary) {
    tell({LinkMessageKind::kTransfer, 1, token, beneficiary});
}

void Peer::tellNotPassedOn(const Token& token, const PeerId& beneficiary) {
    tellForSure({LinkMessageKind::kRevoke, 1, token, beneficiary});
}

void Peer::die() {
    std::vector<std::shared_ptr<Link>> links;
    std::vector<std::unique_ptr<Connection>> idle;
    std::vector<sp<BpBinder>> bereaved;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mDead) return;
        bereaved.reserve(mProxies.size());
        mDead = true;
        links.swap(mLinks);
        idle.swap(mIdle);
        for (const auto& [token, proxy] : mProxies) {
            sp<BpBinder> binder = proxy.binder.promote();
            if (binder != nullptr) bereaved.push_back(std::move(binder));
        }
    }
    for (const auto& link : links)
        mNode.reactor.forget(link->watch, link->fd.get());
    mNode.peers.forget(*this);
    patiently([this] { unlink(mNode.folder.pathOf(mId.toString()).c_str()); });
    mNode.letGo(patiently([this] { return mNode.exports.dropHolder(mId); }));
    for (const sp<BpBinder>& binder : bereaved) {
        mNode.notify([binder] { binder->sendObituary(); });
    }
    // Its lock may be held by a thread that sends, which must not hold up the reactor.
    mNode.notify([self = shared_from_this()] { self->dropOneway(); });
}

std::shared_ptr<Peer> PeerTable::get(const PeerId& id) {
    const std::lock_guard<std::mutex> guard(mLock);
    auto& [address, known] = mPeers[id];
    std::shared_ptr<Peer> peer = known.lock();
    if (peer == nullptr) {
        peer = std::make_shared<Peer>(mNode, id);
        address = peer.get();
        known = peer;
    }
    return peer;
}

void PeerTable::forget(const Peer& peer) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto known = mPeers.find(peer.id());
    if (known != mPeers.end() && known->second.first == &peer) mPeers.erase(known);
}

}  // namespace android::runtime
