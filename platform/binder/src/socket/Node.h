// This process among the others: everything that the socket transport consists of.
#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <mutex>
#include <string>

#include "../OutOfMemory.h"
#include "Acceptor.h"
#include "Access.h"
#include "Departures.h"
#include "Exports.h"
#include "Identity.h"
#include "Limits.h"
#include "NoticeThread.h"
#include "Peer.h"
#include "Quota.h"
#include "Reactor.h"
#include "RefusalLog.h"
#include "Socket.h"
#include "WorkerPool.h"

namespace android::runtime {

/// One per process, made on first use, never destroyed: threads of the runtime may use it until the process
/// ends.
///
/// Locks are taken in this order and no other: mPreparing; Acceptor::mLock; Peer::mOnewayLock; Peer::mLock;
/// Departures::mLock; then the leaves (Exports, PeerTable, Reactor, WorkerPool, OnewayQueue, NoticeThread,
/// Quota, RefusalLog, the list of descriptors).
class Node {
  public:
    static Node& instance();

    /// Sees to it that other processes can be met: makes what was missing, or has been taken away, since the
    /// last time. @return false, which is logged, when they cannot.
    bool prepare();

    const PeerId id{Secret::random()};
    const pid_t process{getpid()};
    const Access access;
    const SocketFolder folder;
    RefusalLog refusals;
    Quota links{kMostLinks};
    Quota unreached{kMostUnreached};  // all of them this process's own
    Exports exports;
    PeerTable peers;
    Departures departures;
    Reactor reactor;
    NoticeThread notices{reactor};
    WorkerPool workers{refusals};

    /// An object of this process, by its token, that @p sender has sent back.
    sp<IBinder> comeHome(const Token& token, Peer& sender);

    /// Adds @p change to the references of @p beneficiary, to whom @p passer passes an object of this
    /// process.
    /// @return the object when nobody holds it any more, to be released by the caller.
    sp<BBinder> credit(const Token& token, const PeerId& beneficiary, int64_t change, Peer& passer);

    /// As Acceptor::timesDeserted().
    uint64_t timesDeserted() { return mAcceptor.timesDeserted(); }

    /// Releases objects on the notice thread: their destructors are foreign code. Null is allowed.
    void letGo(Exports::Objects objects);
    void letGo(sp<BBinder> object);

    /// Starts the thread pool, if not now then as soon as the system has a thread for it.
    void startWorkers();

  private:
    Node();

    std::mutex mPreparing;
    Acceptor mAcceptor;
};

}  // namespace android::runtime
