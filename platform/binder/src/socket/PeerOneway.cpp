// A peer's one-way calls: one after the other, without a wait for who does not read.
#include <memory>
#include <mutex>

#include "../Log.h"
#include "../OutOfMemory.h"
#include "../trace/Trace.h"
#include "Node.h"
#include "Peer.h"

namespace android::runtime {

namespace {

/// How long a one-way call waits for room when the receiver has fallen behind; after that, calls are refused
/// at once until there is room again.
constexpr int kOnewayPatienceMs = 1000;

}  // namespace

status_t Peer::sendOneway(const FrameHeader& header, const void* data,
                          const std::vector<ObjectRecord>& records, const std::vector<int>& fds) {
    const std::lock_guard<std::mutex> guard(mOnewayLock);
    if (isDead()) return DEAD_OBJECT;
    status_t status = NO_ERROR;
    if (mOneway == nullptr) mOneway = open(ConnectionKind::kOneway, false, &status);
    if (mOneway == nullptr) return status;
    if (!hasOnewayRoom()) return FAILED_TRANSACTION;
    trace::oneway(trace::Direction::kOut, mOneway->credentials(), header, {data, records});
    status = mOneway->send(header, data, records, fds);
    if (status == DEAD_OBJECT) {
        mOneway.reset();
        return lost();
    }
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
    patiently([this] {
        mNode.reactor.after(Reactor::kPause, [peer = weak_from_this()] {
            if (const std::shared_ptr<Peer> self = peer.lock()) self->finishOneway();
        });
    });
    mFinishing = true;
}

void Peer::finishOneway() {
    // The reactor waits for nobody; who has the lock now may be waiting for room.
    const std::unique_lock<std::mutex> guard(mOnewayLock, std::try_to_lock);
    if (guard.owns_lock()) {
        mFinishing = false;
        if (mOneway == nullptr || mOneway->flush()) return;
        finishOnewayLater();
    } else {
        later(&Peer::finishOneway);
    }
}

/// The lock may be held by a thread that sends, which must not hold up the reactor.
void Peer::dropOneway() {
    const std::unique_lock<std::mutex> guard(mOnewayLock, std::try_to_lock);
    if (guard.owns_lock()) return mOneway.reset();
    later(&Peer::dropOneway);
}

}  // namespace android::runtime
