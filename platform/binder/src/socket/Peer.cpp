#include "Peer.h"

#include <poll.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "../Log.h"
#include "../trace/Trace.h"
#include "Node.h"
#include "SocketRemote.h"

namespace android::runtime {

namespace {

/// Idle connections that are kept for the next calls; more come and go with their call.
constexpr size_t kMaxIdle = 16;

/// How long a one-way call waits for room when the receiver has fallen behind; after that, calls are refused
/// at once until there is room again.
constexpr int kOnewayPatienceMs = 1000;

bool isGone(int error) { return error == ECONNREFUSED || error == ENOENT; }

}  // namespace

Peer::Peer(Node& node, const PeerId& id) : mNode(node), mId(id) {}

Peer::~Peer() { mNode.peers.forget(*this); }

std::unique_ptr<Connection> Peer::open(ConnectionKind kind, status_t* status) {
    RuntimeFd fd = mNode.folder.connect(mId.toString(), true);
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
    trace::oneway(trace::Direction::kOut, mOneway->credentials(), header, {data, records});
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
    RuntimeFd fd = mNode.folder.connect(mId.toString(), true);
    const int error = errno;
    Credentials credentials;
    Hello hello{kProtocol, ConnectionKind::kLink, mNode.id};
    iovec part{&hello, sizeof(hello)};
    if (!fd.isOpen() || !readCredentials(fd.get(), &credentials) ||
        sendAll(fd.get(), &part, 1, nullptr, 0) != Sent::kAll) {
        if (fd.isOpen() || isGone(error)) die();
        return false;
    }
    return addLink(std::move(fd), credentials);
}

void Peer::adoptLink(RuntimeFd fd, const Credentials& credentials) { addLink(std::move(fd), credentials); }

bool Peer::addLink(RuntimeFd fd, const Credentials& credentials) {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mDead) return false;
    if (mPid != 0 && mPid != credentials.pid) {
        BINDER_LOGW("process %d poses as process %d and is refused", credentials.pid, mPid);
        return false;
    }
    const auto link = std::make_shared<Link>();
    link->fd = std::move(fd);
    link->watch = mNode.reactor.watch(
        link->fd.get(), EPOLLIN,
        [self = shared_from_this(), link](uint32_t events) { self->onLinkEvent(link, events); });
    if (link->watch == 0) return false;
    mPid = credentials.pid;
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
        obey(message);
    }
    link->incoming.erase(0, done);
    return got > 0;
}

void Peer::obey(const LinkMessage& message) {
    sp<BBinder> unheld;
    switch (message.kind) {
        case LinkMessageKind::kAcquire:
            mNode.exports.adjust(message.token, mId, 1);
            break;
        case LinkMessageKind::kRelease:
            unheld = mNode.exports.adjust(message.token, mId, -int64_t{message.count});
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
    if (unheld != nullptr) mNode.letGo({std::move(unheld)});
}

void Peer::tell(const LinkMessage& message) {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mDead) return;
    mOutbox.append(reinterpret_cast<const char*>(&message), sizeof(message));
    flushLocked();
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
    sp<BpBinder> binder;
    bool dead = false;
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
    tell({LinkMessageKind::kRelease, count, remote.token(), {}});
}

Token Peer::lend(const sp<BBinder>& object) {
    if (!ensureLinked()) return {};
    const std::lock_guard<std::mutex> guard(mLock);
    return mDead ? Token() : mNode.exports.lend(object, mId);
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
    unlink(mNode.folder.pathOf(mId.toString()).c_str());
    mNode.letGo(mNode.exports.dropHolder(mId));
    for (sp<BpBinder>& binder : bereaved) {
        mNode.notices.post([binder = std::move(binder)] { binder->sendObituary(); });
    }
    // Its lock may be held by a thread that sends, which must not hold up the reactor.
    mNode.notices.post([self = shared_from_this()] { self->dropOneway(); });
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
