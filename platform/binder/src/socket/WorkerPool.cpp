#include "WorkerPool.h"

#include <sys/epoll.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <utility>

#include "../Log.h"
#include "Limits.h"
#include "LongWait.h"
#include "RuntimeThread.h"

namespace android::runtime {

namespace {

/// How long a thread waits on a connection for its next call before it looks after the others again.
constexpr std::chrono::milliseconds kPatience{5};
/// How many calls in a row one connection gets while there are more connections than threads.
constexpr int kTurn = 32;

/// What to wait for. While an answer waits for room, nothing that the other end says is of interest.
uint32_t eventsOf(const Connection& connection) {
    return EPOLLONESHOT | (connection.hasUnsent() ? EPOLLOUT : EPOLLIN | EPOLLRDHUP);
}

}  // namespace

WorkerPool::WorkerPool(RefusalLog& refusals)
    : mRefusals(refusals),
      mEpoll(epoll_create1(EPOLL_CLOEXEC)),
      mOneway([this](Connection& connection) { putBack(connection); }) {}

bool WorkerPool::add(std::unique_ptr<Connection> connection) {
    Connection& added = *connection;
    if (added.kind() == ConnectionKind::kCall) added.setTimeLimits(kPatience, LongWait::firstSpan());
    {
        const std::lock_guard<std::mutex> guard(mLock);
        size_t& connections = mByProcess[added.credentials().pid].connections;
        if (connections >= kMostConnections) return false;
        ++connections;
        mConnections.emplace(&added, std::move(connection));
        mConnectionCount = mConnections.size();
    }
    epoll_event event{eventsOf(added), {}};
    event.data.ptr = &added;
    if (epoll_ctl(mEpoll.get(), EPOLL_CTL_ADD, added.fd(), &event) == 0) return true;
    BINDER_LOGE("a connection cannot be watched: %s", strerror(errno));
    drop(added, nullptr);
    return true;
}

void WorkerPool::start() {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mStarted) return;
    mStarted = true;
    spawn();
}

void WorkerPool::setMaxThreads(size_t count) {
    const std::lock_guard<std::mutex> guard(mLock);
    mMaxThreads = count;
}

void WorkerPool::join() {
    ++mThreads;
    work();
}

/// With mLock held.
void WorkerPool::spawn() {
    if (mPoolThreads >= std::max<size_t>(mMaxThreads, 1)) return;
    const std::string name = "binder:" + std::to_string(mPoolThreads + 1);
    if (!startRuntimeThread(name.c_str(), [this] { work(); })) return;
    ++mPoolThreads;
    ++mThreads;
}

void WorkerPool::spawnIfNobodyWaits() {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mStarted && mWaiting == 0) spawn();
}

void WorkerPool::work() {
    for (;;)
        serve(*nextReady());
}

Connection* WorkerPool::nextReady() {
    epoll_event event{};
    ++mWaiting;
    while (epoll_wait(mEpoll.get(), &event, 1, -1) != 1) {
    }
    if (--mWaiting == 0) spawnIfNobodyWaits();
    auto* const connection = static_cast<Connection*>(event.data.ptr);
    connection->takeOver();
    return connection;
}

void WorkerPool::serve(Connection& connection) {
    connection.kind() == ConnectionKind::kOneway ? serveOneway(connection) : serveCalls(connection);
}

void WorkerPool::serveCalls(Connection& connection) {
    Wait wait = Wait::kNo;
    for (int served = 0;; ++served) {
        if (connection.hasUnsent() && !connection.flush()) return putBack(connection);
        Frame frame;
        const Received received = connection.receive(&frame, wait);
        if (received == Received::kNothing) return putBack(connection);
        if (received != Received::kFrame || !connection.expects(frame, FrameKind::kCall))
            return drop(connection, connection.offence());
        if (!serveCall(connection, &frame)) return drop(connection, connection.offence());
        if (!mayStay(served)) return putBack(connection);
        wait = Wait::kBriefly;
    }
}

/// One frame, so that the next can be received by another thread while this one runs the call.
void WorkerPool::serveOneway(Connection& connection) {
    if (!mOneway.hasRoom(connection)) return;
    Frame frame;
    const Received received = connection.receive(&frame, Wait::kNo);
    if (received == Received::kNothing) return putBack(connection);
    if (received != Received::kFrame || !connection.expects(frame, FrameKind::kOneway))
        return drop(connection, connection.offence());
    auto call = std::make_unique<OnewayCall>(connection, &frame);
    const sp<BBinder> object = call->object;
    const bool mustDrain = object != nullptr && mOneway.push(std::move(call));
    if (mOneway.hasRoom(connection)) putBack(connection);
    if (mustDrain) mOneway.drain(object.get());
}

bool WorkerPool::mayStay(int servedHere) {
    if (mWaiting == 0) return false;
    return servedHere % kTurn != kTurn - 1 || mConnectionCount <= mThreads;
}

void WorkerPool::putBack(Connection& connection) {
    if (connection.held() != connection.counted && !count(connection))
        return drop(connection, "it leaves too much half sent or half read");
    connection.handOver();
    epoll_event event{eventsOf(connection), {}};
    event.data.ptr = &connection;
    epoll_ctl(mEpoll.get(), EPOLL_CTL_MOD, connection.fd(), &event);
}

/// @return false when the connections of its process hold too much with what this one holds now.
bool WorkerPool::count(Connection& connection) {
    const std::lock_guard<std::mutex> guard(mLock);
    size_t& bytes = mByProcess[connection.credentials().pid].heldBytes;
    const size_t others = bytes - connection.counted;
    const bool grows = connection.held() > connection.counted;
    if (grows && others + connection.held() > kMostHeldBytes) return false;
    connection.counted = connection.held();
    bytes = others + connection.counted;
    return true;
}

void WorkerPool::drop(Connection& connection, const char* offence) {
    const Credentials who = connection.credentials();
    if (offence != nullptr) mRefusals.tell(who, offence);
    if (discard(connection)) mOneway.forget(who.pid);
}

/// @return whether it was the last one of its process.
bool WorkerPool::discard(Connection& connection) {
    std::unique_ptr<Connection> discarded;
    const std::lock_guard<std::mutex> guard(mLock);
    const auto found = mConnections.find(&connection);
    discarded = std::move(found->second);
    mConnections.erase(found);
    mConnectionCount = mConnections.size();
    const auto process = mByProcess.find(discarded->credentials().pid);
    process->second.heldBytes -= discarded->counted;
    if (--process->second.connections > 0) return false;
    mByProcess.erase(process);
    return true;
}

}  // namespace android::runtime
