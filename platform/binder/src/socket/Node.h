// This process among the others: everything that the socket transport consists of.
#pragma once

#include <mutex>
#include <string>

#include "../OutOfMemory.h"
#include "Acceptor.h"
#include "Access.h"
#include "Exports.h"
#include "Identity.h"
#include "NoticeThread.h"
#include "Peer.h"
#include "Reactor.h"
#include "Socket.h"
#include "WorkerPool.h"

namespace android::runtime {

/// One per process, made on first use, never destroyed: threads of the runtime may use it until the process
/// ends.
///
/// Locks are taken in this order and no other: mPreparing; Acceptor::mLock; Peer::mOnewayLock; Peer::mLock;
/// then the leaves (Exports, PeerTable, Reactor, WorkerPool, OnewayQueue, NoticeThread, the list of
/// descriptors).
class Node {
  public:
    static Node& instance();

    /// Sees to it that other processes can be met: makes what was missing, or has been taken away, since the
    /// last time. @return false, which is logged, when they cannot.
    bool prepare();

    const PeerId id{Secret::random()};
    const Access access;
    const SocketFolder folder;
    Exports exports;
    PeerTable peers;
    NoticeThread notices;
    Reactor reactor;
    WorkerPool workers;

    /// An object of this process, by its token, for whoever was handed it.
    sp<IBinder> comeHome(const Token& token);

    /// Adds @p change to the references of @p beneficiary, to whom somebody passes an object of this process.
    /// @return the object when nobody holds it any more, to be released by the caller.
    sp<BBinder> credit(const Token& token, const PeerId& beneficiary, int64_t change);

    /// Runs @p notice on the notice thread, as soon as there is memory to say so.
    template <typename Notice>
    void notify(const Notice& notice) {
        patiently([&] { notices.post(notice); });
    }

    /// Releases objects on the notice thread: their destructors are foreign code. Null is allowed.
    void letGo(Exports::Objects objects);
    void letGo(sp<BBinder> object);

    /// Starts the thread pool, if not now then as soon as the system has a thread for it.
    void startWorkers();

  private:
    Node();

    /// Sees to it that the death of @p holder will be noticed.
    void watchOver(const PeerId& holder);

    std::mutex mPreparing;
    Acceptor mAcceptor;
};

}  // namespace android::runtime
