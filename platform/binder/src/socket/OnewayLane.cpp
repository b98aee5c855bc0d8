#include "OnewayLane.h"

#include <sys/epoll.h>

#include <chrono>
#include <utility>

#include "../Log.h"
#include "Reactor.h"

namespace android::runtime {

namespace {

/// How long a call waits for room when the receiver has fallen behind; after that, calls are refused at once
/// until there is room again.
constexpr int kPatienceMs = 1000;

constexpr uint32_t kOnce = EPOLLOUT | EPOLLONESHOT;

}  // namespace

status_t OnewayLane::send(const FrameHeader& header, const void* data,
                          const std::vector<ObjectRecord>& records, const std::vector<int>& fds) {
    const std::lock_guard<std::mutex> order(mOrder);
    status_t status = NO_ERROR;
    if (mConnection == nullptr) use(mOpen(&status));
    if (mConnection == nullptr) return status;
    const int patience = mIsFull ? 0 : kPatienceMs;
    if (!flushWithin(patience) || !mConnection->hasRoom(patience)) {
        noteFull();
        return FAILED_TRANSACTION;
    }
    mIsFull = false;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        status = mConnection->send(header, data, records, fds);
    }
    if (status == DEAD_OBJECT) use(nullptr);
    if (status == NO_ERROR && !flushWithin(kPatienceMs)) flushLater();
    return status;
}

void OnewayLane::drop() {
    const std::lock_guard<std::mutex> order(mOrder);
    use(nullptr);
}

void OnewayLane::use(std::unique_ptr<Connection> connection) {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mWatch != 0) mReactor.forget(mWatch, mConnection->fd());
    mWatch = 0;
    mConnection = std::move(connection);
}

/// @return whether nothing is left of the last call.
bool OnewayLane::flush() {
    const std::lock_guard<std::mutex> guard(mLock);
    return mConnection->flush();
}

bool OnewayLane::flushWithin(int milliseconds) {
    using Clock = std::chrono::steady_clock;
    if (flush()) return true;
    const auto deadline = Clock::now() + std::chrono::milliseconds(milliseconds);
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0 || !mConnection->hasRoom(static_cast<int>(left.count()))) return false;
        if (flush()) return true;
    }
}

void OnewayLane::flushLater() {
    noteFull();
    const std::lock_guard<std::mutex> guard(mLock);
    if (mWatch != 0) return mReactor.change(mWatch, mConnection->fd(), kOnce);
    mWatch = mReactor.watch(mConnection->fd(), kOnce, [lane = weak_from_this()](uint32_t) {
        if (const auto self = lane.lock()) self->goOn();
    });
}

/// On the reactor's thread.
void OnewayLane::goOn() {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mConnection != nullptr && !mConnection->flush()) mReactor.change(mWatch, mConnection->fd(), kOnce);
}

void OnewayLane::noteFull() {
    if (!mIsFull) {
        BINDER_LOGE("process %d takes in no one-way calls; more are refused", mConnection->credentials().pid);
    }
    mIsFull = true;
}

}  // namespace android::runtime
