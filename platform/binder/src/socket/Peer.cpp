#include "Peer.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <utility>

#include "../Log.h"
#include "../OutOfMemory.h"
#include "LongWait.h"
#include "Node.h"

namespace android::runtime {

namespace {

/// Idle connections that are kept for the next calls; more come and go with their call.
constexpr size_t kMaxIdle = 16;

/// How long the kernel may take to end a process whose end has shown.
constexpr std::chrono::seconds kDying{1};

}  // namespace

Peer::Peer(Node& node, const PeerId& id) : mNode(node), mId(id), mHomecoming(Secret::random()) {
    mIdle.reserve(kMaxIdle);  // so that a call that went well does not fail at its very end
}

/// Nothing that the peer has sent is still under way here.
Peer::~Peer() {
    if (RuntimeFd::isForkedChild()) return;
    mNode.peers.forget(*this);
    mNode.letGo(mNode.exports.dropHolder(mHomecoming));
}

/// @return NO_ERROR; DEAD_OBJECT when nobody is there; FAILED_TRANSACTION when this process cannot ask.
status_t Peer::dial(bool wait, RuntimeFd* fd, Credentials* credentials) {
    *fd = mNode.folder.connect(mId.toString(), wait);
    if (fd->isOpen()) return readCredentials(fd->get(), credentials) ? NO_ERROR : FAILED_TRANSACTION;
    const bool isGone = errno == ECONNREFUSED || (errno == ENOENT && !livesOn());
    return isGone ? DEAD_OBJECT : FAILED_TRANSACTION;
}

/// Whether a process whose socket is not to be found lives all the same: one that is about to end removes its
/// socket first, and its link ends a moment later.
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

/// Says on a new connection what it is for. @return as dial().
status_t Peer::introduce(int fd, ConnectionKind kind) const {
    Hello hello{kProtocol, kind, mNode.id};
    iovec part{&hello, sizeof(hello)};
    const Sent sent = sendAll(fd, &part, 1, nullptr, 0);
    if (sent == Sent::kAll) return NO_ERROR;
    return sent == Sent::kGone ? DEAD_OBJECT : FAILED_TRANSACTION;
}

/// All memory is had before the other end hears anything.
std::unique_ptr<Connection> Peer::open(ConnectionKind kind, bool wait, status_t* status) {
    RuntimeFd fd;
    Credentials credentials;
    *status = dial(wait, &fd, &credentials);
    if (*status == NO_ERROR) {
        auto opened = std::make_unique<Connection>(std::move(fd), kind, shared_from_this(), credentials);
        if (kind == ConnectionKind::kCall)
            opened->setTimeLimits(LongWait::firstSpan(), LongWait::firstSpan());
        *status = introduce(opened->fd(), kind);
        if (*status == NO_ERROR) return opened;
    }
    if (*status == FAILED_TRANSACTION) BINDER_LOGE("cannot connect to a peer: %s", strerror(errno));
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

bool Peer::isDead() {
    const std::lock_guard<std::mutex> guard(mLock);
    return mDead;
}

Credentials Peer::credentials() {
    const std::lock_guard<std::mutex> guard(mLock);
    return mCredentials;
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

/// What it takes is had or waited for: whoever it is to be told to would never hear of it otherwise.
void Peer::die() {
    std::vector<std::shared_ptr<Link>> links;
    std::vector<std::unique_ptr<Connection>> idle;
    std::vector<sp<BpBinder>> bereaved;
    pid_t process = 0;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mDead) return;
        bereaved.reserve(mProxies.size());
        mDead = true;
        process = mCredentials.pid;
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
    patiently([this] { mNode.peers.noteDeath(mId); });
    patiently([this] { removeSocket(); });
    mNode.letGo(mNode.exports.dropHolder(mId));
    for (const sp<BpBinder>& binder : bereaved) {
        patiently([&] {
            mNode.notices.post("telling of the death of process " + std::to_string(process),
                               [binder] { binder->sendObituary(); });
        });
    }
    dropOneway();
}

/// A process whose link has ended may live on, and others may need its socket.
void Peer::removeSocket() {
    const std::string name = mId.toString();
    if (!mNode.folder.isAlive(name) && errno == ECONNREFUSED) unlink(mNode.folder.pathOf(name).c_str());
}

/// Runs @p step on the reactor's thread after a pause, as soon as there is memory to say so.
void Peer::later(void (Peer::*step)()) {
    patiently([&] {
        mNode.reactor.after(Reactor::kPause, [self = shared_from_this(), step] { (self.get()->*step)(); });
    });
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

void PeerTable::noteDeath(const PeerId& id) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto now = Clock::now();
    while (!mDeaths.empty() && mDeaths.front().first + kDying < now)
        mDeaths.pop_front();
    mDeaths.emplace_back(now, id);
}

bool PeerTable::isDying(const PeerId& id) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto since = Clock::now() - kDying;
    return std::any_of(mDeaths.begin(), mDeaths.end(),
                       [&](const auto& death) { return death.second == id && death.first > since; });
}

}  // namespace android::runtime
