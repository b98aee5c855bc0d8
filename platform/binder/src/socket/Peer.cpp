#include "Peer.h"

#include <poll.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <utility>

#include "../Log.h"
#include "Limits.h"
#include "Node.h"
#include "SocketRemote.h"

namespace android::runtime {

namespace {

/// Idle connections that are kept for the next calls; more come and go with their call.
constexpr size_t kMaxIdle = 16;

/// How long a one-way call waits for room when the receiver has fallen behind; after that, calls are refused
/// at once until there is room again.
constexpr int kOnewayPatienceMs = 1000;

/// How long to leave alone what cannot be had or sent just now.
constexpr std::chrono::milliseconds kPause{50};

bool isGone(int error) { return error == ECONNREFUSED || error == ENOENT; }

}  // namespace

Peer::Peer(Node& node, const PeerId& id) : mNode(node), mId(id), mHomecoming(Secret::random()) {}

/// Nothing that the peer has sent is still under way here.
Peer::~Peer() {
    if (RuntimeFd::isForkedChild()) return;
    mNode.peers.forget(*this);
    mNode.letGo(mNode.exports.dropHolder(mHomecoming));
}

std::unique_ptr<Connection> Peer::open(ConnectionKind kind, bool wait, status_t* status) {
    RuntimeFd fd = mNode.folder.connect(mId.toString(), wait);
    const int error = errno;
    Credentials credentials;
    Hello hello{kProtocol, kind, mNode.id};
    iovec part{&hello, sizeof(hello)};
    if (fd.isOpen() && readCredentials(fd.get(), &credentials) &&
        sendAll(fd.get(), &part, 1, nullptr, 0) == Sent::kAll) {
        return std::make_unique<Connection>(std::move(fd), kind, shared_from_this(), credentials);
    }
    *status = fd.isOpen() || isGone(error) ? DEAD_OBJECT : FAILED_TRANSACTION;
    if (*status == FAILED_TRANSACTION) BINDER_LOGE("cannot connect to a peer: %s", strerror(error));
    return nullptr;
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
    ensureLinked(true);
    return open(ConnectionKind::kCall, true, status);
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
    if (mOneway == nullptr) mOneway = open(ConnectionKind::kOneway, false, &status);
    if (mOneway == nullptr) return status;
    if (!hasOnewayRoom()) return FAILED_TRANSACTION;
    status = mOneway->send(header, data, records, fds);
    if (status == DEAD_OBJECT) mOneway.reset();
    if (mOneway != nullptr && mOneway->hasUnsent() && !hasOnewayRoom()) finishOnewayLater();
    return status;
}

/// Sends what is left of the call before, and waits for room, as long as anything goes on.
bool Peer::hasOnewayRoom() {
    const int patience = mOnewayIsFull ? 0 : kOnewayPatienceMs;
    do {
        if (!mOneway->hasRoom(patience)) {
            if (!mOnewayIsFull)
                BINDER_LOGE("process %d takes in no one-way calls; more are refused",
                            mOneway->credentials().pid);
            mOnewayIsFull = true;
            return false;
        }
    } while (mOneway->hasUnsent() && !mOneway->flush());
    mOnewayIsFull = false;
    return true;
}

/// A call that has been begun is sent whole, whether another follows or not.
void Peer::finishOnewayLater() {
    if (mFinishing) return;
    mFinishing = true;
    mNode.reactor.after(kPause, [peer = weak_from_this()] {
        if (const std::shared_ptr<Peer> self = peer.lock()) self->finishOneway();
    });
}

void Peer::finishOneway() {
    // The reactor waits for nobody; who has the lock now may be waiting for room.
    const std::unique_lock<std::mutex> guard(mOnewayLock, std::try_to_lock);
    if (guard.owns_lock()) {
        mFinishing = false;
        if (mOneway == nullptr || mOneway->flush()) return;
        finishOnewayLater();
    } else {
        mNode.reactor.after(kPause, [self = shared_from_this()] { self->finishOneway(); });
    }
}

/// The lock may be held by a thread that sends, which must not hold up the reactor.
void Peer::dropOneway() {
    const std::unique_lock<std::mutex> guard(mOnewayLock, std::try_to_lock);
    if (guard.owns_lock()) return mOneway.reset();
    mNode.reactor.after(kPause, [self = shared_from_this()] { self->dropOneway(); });
}

bool Peer::isDead() {
    const std::lock_guard<std::mutex> guard(mLock);
    return mDead;
}

Credentials Peer::credentials() {
    const std::lock_guard<std::mutex> guard(mLock);
    return mCredentials;
}

bool Peer::ensureLinked(bool wait) {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mDead || !mLinks.empty()) return !mDead;
    }
    RuntimeFd fd = mNode.folder.connect(mId.toString(), wait);
    const int error = errno;
    Credentials credentials;
    Hello hello{kProtocol, ConnectionKind::kLink, mNode.id};
    iovec part{&hello, sizeof(hello)};
    if (!fd.isOpen() || !readCredentials(fd.get(), &credentials) ||
        sendAll(fd.get(), &part, 1, nullptr, 0) != Sent::kAll) {
        if (fd.isOpen() || isGone(error)) die();
        return false;
    }
    return addLink(std::move(fd), credentials, {});
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

/// Everybody can read the names of the others in the runtime folder; only the process itself listens there.
bool Peer::isOf(const Credentials& credentials) {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mCredentials.pid != 0) return mCredentials.pid == credentials.pid;
    }
    Credentials listener;
    const RuntimeFd door = mNode.folder.connect(mId.toString(), false);
    if (!door.isOpen() || !readCredentials(door.get(), &listener)) return true;
    if (listener.pid != credentials.pid) return false;
    const std::lock_guard<std::mutex> guard(mLock);
    mCredentials = credentials;
    return true;
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

sp<IBinder> Peer::receive(const Token& token) {
    seekLink();
    sp<BpBinder> binder;
    bool dead = false;
    if (hasTooManyProxies(token)) return nullptr;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        Proxy& proxy = mProxies[token];
        binder = proxy.binder.promote();
        if (binder == nullptr) {
            auto remote = std::make_unique<SocketRemote>(shared_from_this(), token);
            proxy.remote = remote.get();
            binder = new BpBinder(std::move(remote));
            proxy.binder = binder;
        }
        ++proxy.remote->received;
        dead = mDead;
    }
    if (dead) binder->sendObituary();
    return binder;
}

/// Of which @p token would be one more; the reference that came with it is given back then.
bool Peer::hasTooManyProxies(const Token& token) {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mProxies.size() < kMostObjects || mProxies.count(token) > 0) return false;
    }
    mNode.refusals.tell(credentials(), "it hands out too many objects");
    tell({LinkMessageKind::kRelease, 1, token, {}});
    return true;
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
    if (!ensureLinked(true) || isHungUp()) return nullptr;
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
    tell({LinkMessageKind::kRelease, count, remote.token(), {}});
}

status_t Peer::lend(const sp<BBinder>& object, Token* token) {
    *token = {};
    if (!ensureLinked(false)) return NO_ERROR;
    const std::lock_guard<std::mutex> guard(mLock);
    if (mDead) return NO_ERROR;
    *token = mNode.exports.lend(object, mId);
    if (*token) return NO_ERROR;
    mNode.refusals.tell(mCredentials, "it holds too many objects");
    return FAILED_TRANSACTION;
}

void Peer::takeBack(const Token& token) {
    sp<BBinder> unheld = mNode.exports.adjust(token, mId, -1);
    if (unheld != nullptr) mNode.letGo({std::move(unheld)});
}

void Peer::tellPassingOn(const Token& token, const PeerId& beneficiary) {
    tell({LinkMessageKind::kTransfer, 1, token, beneficiary});
}

void Peer::tellNotPassedOn(const Token& token, const PeerId& beneficiary) {
    tell({LinkMessageKind::kRevoke, 1, token, beneficiary});
}

void Peer::die() {
    std::vector<std::shared_ptr<Link>> links;
    std::vector<std::unique_ptr<Connection>> idle;
    std::vector<sp<BpBinder>> bereaved;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mDead) return;
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
    // A process whose link has ended may live on, and others may need its socket.
    const std::string name = mId.toString();
    if (!mNode.folder.isAlive(name) && errno == ECONNREFUSED) unlink(mNode.folder.pathOf(name).c_str());
    mNode.letGo(mNode.exports.dropHolder(mId));
    for (sp<BpBinder>& binder : bereaved) {
        mNode.notices.post([binder = std::move(binder)] { binder->sendObituary(); });
    }
    dropOneway();
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
