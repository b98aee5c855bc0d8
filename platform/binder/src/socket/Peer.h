// Another process, as far as this one deals with it.
#pragma once

#include <binder/BpBinder.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Connection.h"
#include "Identity.h"
#include "Quota.h"

namespace android::runtime {

class Node;
class SocketRemote;

/// What there is to a process's word that it is a certain peer.
enum class Claim {
    kTrue,     ///< it is, or nobody can be asked because nobody listens under that name
    kFalse,    ///< somebody else is
    kUnclear,  ///< whoever listens under that name cannot be asked just now
};

/// The links tell of its death, the connections carry calls to it, the proxies stand for its objects.
///
/// A link is a connection that stays open as long as both processes live; its end is the other's death. There
/// is at least one before an object goes either way. Both sides may open one at the same time; then both
/// stay, because closing one would look like a death.
///
/// A dead one is still the peer of its identity, and what it held is kept, until Departures takes leave of
/// it.
///
/// mLock guards everything below it; under it nothing waits but for memory, no foreign code runs, and only
/// Exports::mLock, Reactor::mLock and the leaves of quotas and refusals are taken.
class Peer : public std::enable_shared_from_this<Peer> {
  public:
    Peer(Node& node, const PeerId& id);
    ~Peer();
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    const PeerId& id() const { return mId; }

    /// Opens a link unless there is one. @return false when the process is dead or cannot be reached.
    /// @param wait whether to wait a few seconds at a door before which too many stand already.
    bool ensureLinked(bool wait);
    /// As ensureLinked() without waiting, and goes on trying until there is a link or the process is found
    /// dead. @return false when it would have to go on trying, as it does for too many others.
    bool seekLink();
    /// Takes over a link that the peer opened, or throws std::bad_alloc and leaves it.
    void adoptLink(RuntimeFd* fd, const Credentials& credentials);

    /// Whether the process at the other end of a connection may call itself this peer.
    Claim claimOf(const Credentials& credentials);
    /// All zero as long as they are not known.
    Credentials credentials();
    /// The holder, in Exports, of this process's own objects while the peer sends them back, so that the
    /// peer's own reference may end before they arrive.
    const PeerId& homecoming() const { return mHomecoming; }

    bool isDead();

    /// A connection for one call, to be given back when it is still good; null when there is none to be had.
    /// @param status why: DEAD_OBJECT or FAILED_TRANSACTION.
    std::unique_ptr<Connection> takeConnection(status_t* status);
    void giveBack(std::unique_ptr<Connection> connection);

    /// What a call ends with whose connection is gone: DEAD_OBJECT, or FAILED_TRANSACTION when the process
    /// lives on, which takes up to a second to find out.
    status_t lost();

    /// Sends a one-way call after all that were sent before. FAILED_TRANSACTION when the peer takes none in.
    status_t sendOneway(const FrameHeader& header, const void* data, const std::vector<ObjectRecord>& records,
                        const std::vector<int>& fds);

    /// The proxy of the peer's object, for a reference that was received just now; null when there are too
    /// many.
    sp<IBinder> receive(const Token& token);
    /// The proxy of an object whose token was found, not received: takes a reference first.
    sp<IBinder> acquire(const Token& token);

    /// The interface of the peer's object as far as its proxy knows it, else the number of the proxy; for the
    /// log.
    std::string nameOf(const Token& token);

    /// Counts a reference of the peer to an object of this process.
    /// @param token the object's; none when the peer is dead.
    /// @return NO_ERROR; FAILED_TRANSACTION when the peer has too many objects.
    status_t lend(const sp<BBinder>& object, Token* token);
    void takeBack(const Token& token);
    /// Adds @p change to the peer's references to an object of this process; one that is dead has none.
    /// @return the object when nobody holds it any more, to be released by the caller.
    sp<BBinder> count(const Token& token, int64_t change);

    /// Says that the peer's own object named by @p token is about to be given to @p beneficiary; said in
    /// front, so that the object outlives a giver who dies in the middle.
    void tellPassingOn(const Token& token, const PeerId& beneficiary);
    /// Takes that back.
    void tellNotPassedOn(const Token& token, const PeerId& beneficiary);

    /// For SocketRemote, at its end: gives its references back.
    void forget(const SocketRemote& remote);

    /// Obeys what the dead process had said on its links. For Departures, on the reactor's thread.
    void hearLastWords();
    /// Whether something that it said may still stand at the door: its only link, or a call with an object of
    /// this process.
    bool mayStandAtTheDoor();
    /// Ends its references; whoever has its identity afterwards is another peer.
    void depart();

  private:
    struct Link {
        RuntimeFd fd;
        uint64_t watch = 0;
        char incoming[64 * sizeof(LinkMessage)];  // between two calls, the beginning of a message
        size_t bytes = 0;
        Quota::Share share;  // of one that the peer opened
    };
    struct Proxy {
        wp<BpBinder> binder;
        SocketRemote* remote = nullptr;  // valid as long as the binder
    };

    Claim claimAtClosedDoor(const Credentials& credentials);
    status_t dial(bool wait, RuntimeFd* fd, Credentials* credentials);
    bool admits(const RuntimeFd& fd, Credentials* credentials);
    status_t introduce(int fd, ConnectionKind kind) const;
    std::unique_ptr<Connection> open(ConnectionKind kind, bool wait, status_t* status);
    bool livesOn();
    status_t addLink(RuntimeFd* fd, const Credentials& credentials, Quota::Share share);
    void watchLink(const std::shared_ptr<Link>& link, RuntimeFd* fd);
    void later(void (Peer::*step)());
    void seekAgain();
    void onLinkEvent(const std::shared_ptr<Link>& link, uint32_t events);
    bool readLink(Link* link);
    void hear(Link* link);
    bool obey(const LinkMessage& message);
    void removeSocket();
    void tell(const LinkMessage& message);
    void tellForSure(const LinkMessage& message);
    sp<BpBinder> knownProxy(const Token& token);
    sp<BpBinder> newProxy(const Token& token, bool* dead);
    void flushLocked();
    void giveUpLocked();
    int sendOutboxLocked(const Link& link);
    bool flushesLaterLocked();
    void flushAgain();
    bool hasOnewayRoom();
    void finishOnewayLater();
    void finishOneway();
    void dropOneway();
    bool hasTooManyProxies(const Token& token);
    bool isHungUp();
    void die();
    void tellOfDeath(sp<BpBinder> binder);

    Node& mNode;
    const PeerId mId;
    const PeerId mHomecoming;

    std::mutex mLock;
    bool mDead = false;
    bool mGivenUp = false;  // dead as soon as the reactor gets to it
    Credentials mCredentials;
    Quota::Share mSeeking;  // while a timer tries to open a link
    std::vector<std::shared_ptr<Link>> mLinks;
    bool mHasComeIn = false;  // with a link, of which a process opens one at most
    std::string mOutbox;      // link messages that the first link had no room for
    bool mFlushing = false;   // a timer sends them
    std::vector<std::unique_ptr<Connection>> mIdle;
    std::unordered_map<Token, Proxy, SecretHash> mProxies;

    std::vector<std::shared_ptr<Link>> mEndedLinks;  // of a dead process, for hearLastWords() alone

    // Orders one-way calls; held while sending, taken before mLock.
    std::mutex mOnewayLock;
    std::unique_ptr<Connection> mOneway;
    bool mOnewayIsFull = false;
    bool mFinishing = false;  // a timer sends the rest of a call
};

/// The peers that anything here still refers to. mLock is a leaf.
class PeerTable {
  public:
    explicit PeerTable(Node& node) : mNode(node) {}

    /// The peer with that identity, known or not.
    std::shared_ptr<Peer> get(const PeerId& id);
    /// For a peer that is dead or no longer referred to.
    void forget(const Peer& peer);

    /// Says that the end of a process has shown.
    void noteDeath(const PeerId& id);
    /// Whether that was a moment ago: the kernel takes a process apart bit by bit, and its socket may still
    /// let callers in when its links are gone.
    bool isDying(const PeerId& id);

  private:
    using Clock = std::chrono::steady_clock;

    Node& mNode;
    std::mutex mLock;
    std::unordered_map<PeerId, std::pair<const Peer*, std::weak_ptr<Peer>>, SecretHash> mPeers;
    std::deque<std::pair<Clock::time_point, PeerId>> mDeaths;  // the latest, oldest first
};

}  // namespace android::runtime
