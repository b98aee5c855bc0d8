#include "Peer.h"

#include <poll.h>
#include <sys/stat.h>
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

Claim claim(bool isTrue) { return isTrue ? Claim::kTrue : Claim::kFalse; }

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
    if (fd->isOpen()) return admits(*fd, credentials) ? NO_ERROR : FAILED_TRANSACTION;
    return errno == ECONNREFUSED || errno == ENOENT ? lost() : FAILED_TRANSACTION;
}

/// Whether the process that listens may talk to this one; what lies in a shared folder may be anybody's.
bool Peer::admits(const RuntimeFd& fd, Credentials* credentials) {
    if (!readCredentials(fd.get(), credentials)) return false;
    if (mNode.access.admits(fd.get(), *credentials)) return true;
    mNode.refusals.tell(*credentials, "it listens here and is another user's");
    errno = EACCES;
    return false;
}

status_t Peer::lost() {
    const int error = errno;
    const status_t status = livesOn() ? FAILED_TRANSACTION : DEAD_OBJECT;
    errno = error;
    return status;
}

/// Whether a process whose socket is not to be found, or whose connection has ended, lives all the same: one
/// that is about to end lets go of everything in turn, and its link ends a moment sooner or later.
bool Peer::livesOn() {
    constexpr int kLastMomentsMs = 1000;
    std::shared_ptr<Link> link;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mDead || mGivenUp || mLinks.empty()) return false;
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
        if (*status == DEAD_OBJECT) *status = lost();
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
    // One that could not be had when an object was received may be had now. The door is waited for once.
    const bool isLinked = ensureLinked(true);
    return open(ConnectionKind::kCall, isLinked, status);
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
Claim Peer::claimOf(const Credentials& credentials) {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mCredentials.pid != 0) return claim(mCredentials.pid == credentials.pid);
    }
    Credentials listener;
    const RuntimeFd door = mNode.folder.connect(mId.toString(), false);
    if (!door.isOpen()) return claimAtClosedDoor(credentials);
    if (!readCredentials(door.get(), &listener)) return Claim::kUnclear;
    if (listener.pid != credentials.pid) return Claim::kFalse;
    const std::lock_guard<std::mutex> guard(mLock);
    mCredentials = credentials;
    return Claim::kTrue;
}

/// With errno of connect(). Behind a door that is another user's is at least that user.
Claim Peer::claimAtClosedDoor(const Credentials& credentials) {
    if (isPassing(errno) || errno == EMFILE || errno == ENFILE) return Claim::kUnclear;
    if (errno != EACCES && errno != EPERM) return Claim::kTrue;
    struct stat door {};
    const int found = lstat(mNode.folder.pathOf(mId.toString()).c_str(), &door);
    return claim(found != 0 || door.st_uid == credentials.uid);
}

/// What it takes is had or waited for: whoever it is to be told to would never hear of it otherwise.
void Peer::die() {
    std::vector<std::unique_ptr<Connection>> idle;
    std::vector<sp<BpBinder>> bereaved;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mDead) return;
        bereaved.reserve(mProxies.size());
        mDead = true;
        mEndedLinks.swap(mLinks);
        idle.swap(mIdle);
        for (const auto& [token, proxy] : mProxies) {
            sp<BpBinder> binder = proxy.binder.promote();
            if (binder != nullptr) bereaved.push_back(std::move(binder));
        }
    }
    for (const auto& link : mEndedLinks)
        mNode.reactor.forget(link->watch, link->fd.get());
    patiently([this] { mNode.departures.add(shared_from_this()); });
    patiently([this] { mNode.peers.noteDeath(mId); });
    patiently([this] { removeSocket(); });
    for (sp<BpBinder>& binder : bereaved)
        tellOfDeath(std::move(binder));
    dropOneway();
}

void Peer::hearLastWords() {
    for (const auto& link : mEndedLinks)
        hear(link.get());
    mEndedLinks.clear();
}

bool Peer::mayStandAtTheDoor() {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (!mHasComeIn) return true;
    }
    return mNode.exports.isHolder(mHomecoming);
}

/// The references in front of the name: who has the same identity afterwards is counted anew.
void Peer::depart() {
    mNode.letGo(mNode.exports.dropHolder(mId));
    mNode.peers.forget(*this);
}

/// The notice empties what it shares with this function: the proxy's end is foreign code, too.
void Peer::tellOfDeath(sp<BpBinder> binder) {
    const pid_t process = credentials().pid;
    const auto kept = patiently([&] { return std::make_shared<sp<BpBinder>>(std::move(binder)); });
    patiently([&] {
        mNode.notices.post("telling of the death of process " + std::to_string(process), [kept] {
            (*kept)->sendObituary();
            *kept = nullptr;
        });
    });
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
