#include "WorkerPool.h"

#include <sys/epoll.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <new>
#include <string>
#include <thread>
#include <utility>

#include "../Contained.h"
#include "../Log.h"
#include "../OutOfMemory.h"
#include "Limits.h"
#include "LongWait.h"
#include "RuntimeThread.h"

namespace android::runtime {

namespace {

/// How long a thread waits on a connection for its next call before it looks after the others again.
constexpr std::chrono::milliseconds kPatience{5};
/// How many calls in a row one connection gets while there are more connections than threads.
constexpr int kTurn = 32;

/// How long a thread leaves the kernel alone that has no descriptor for it.
constexpr std::chrono::milliseconds kPause{50};

/// What to wait for. While an answer waits for room, nothing that the other end says is of interest.
uint32_t eventsOf(const Connection& connection) {
    return EPOLLONESHOT | (connection.hasUnsent() ? EPOLLOUT : EPOLLIN | EPOLLRDHUP);
}

/// Counts the thread as one of the pool until it ends.
class ThreadOfPool {
  public:
    explicit ThreadOfPool(std::atomic<size_t>& count) : mCount(count) { ++mCount; }
    ~ThreadOfPool() { --mCount; }
    ThreadOfPool(const ThreadOfPool&) = delete;
    ThreadOfPool& operator=(const ThreadOfPool&) = delete;

  private:
    std::atomic<size_t>& mCount;
};

}  // namespace

WorkerPool::WorkerPool(RefusalLog& refusals)
    : mRefusals(refusals), mOneway([this](Connection& connection) { putBack(connection); }) {}

bool WorkerPool::open() {
    const std::lock_guard<std::mutex> guard(mLock);
    if (!mEpoll.isOpen()) mEpoll = RuntimeFd::made([] { return epoll_create1(EPOLL_CLOEXEC); });
    if (!mEpoll.isOpen()) BINDER_LOGE("no descriptor left to serve calls with: %s", strerror(errno));
    return mEpoll.isOpen();
}

/// A thread may take it out of the set at once, but not let it go before it is entered here.
bool WorkerPool::add(std::unique_ptr<Connection>* connection) {
    Connection& added = **connection;
    if (added.kind() == ConnectionKind::kCall) added.setTimeLimits(kPatience, LongWait::firstSpan());
    const std::lock_guard<std::mutex> guard(mLock);
    size_t& connections = mByProcess[added.credentials().pid].connections;
    if (connections >= kMostConnections) return false;
    const auto place = mConnections.try_emplace(&added).first;
    if (!watch(added, EPOLL_CTL_ADD)) {
        mConnections.erase(place);
        throw std::bad_alloc();
    }
    place->second = std::move(*connection);
    ++connections;
    mConnectionCount = mConnections.size();
    return true;
}

/// From the system call on it may be another thread's. The kernel refuses for want of memory only.
bool WorkerPool::watch(Connection& connection, int operation) const {
    epoll_event event{eventsOf(connection), {}};
    event.data.ptr = &connection;
    connection.handOver();
    return epoll_ctl(mEpoll.get(), operation, connection.fd(), &event) == 0;
}

bool WorkerPool::start() {
    const std::lock_guard<std::mutex> guard(mLock);
    mStarted = true;
    if (mPoolThreads == 0) spawn();
    return mPoolThreads > 0;
}

void WorkerPool::setMaxThreads(size_t count) {
    const std::lock_guard<std::mutex> guard(mLock);
    mMaxThreads = count;
}

void WorkerPool::join() {
    const ThreadOfPool joined(mThreads);
    work();
}

/// With mLock held.
void WorkerPool::spawn() {
    if (mPoolThreads >= std::max<size_t>(mMaxThreads, 1)) return;
    const std::string name = "binder:" + std::to_string(mPoolThreads + 1);
    if (startRuntimeThread(name.c_str(), [this] { workInPool(); })) ++mPoolThreads;
}

void WorkerPool::spawnIfNobodyWaits() {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mStarted && mWaiting == 0) spawn();
}

void WorkerPool::workInPool() {
    const ThreadOfPool spawned(mThreads);
    unlessThreadEnds([this] { work(); }, [this] { makeUpForEnded(); });
}

void WorkerPool::makeUpForEnded() {
    const std::lock_guard<std::mutex> guard(mLock);
    --mPoolThreads;
    if (mWaiting == 0) spawn();
}

void WorkerPool::work() {
    while (!open())
        std::this_thread::sleep_for(kPause);
    for (;;)
        serve(*nextReady());
}

Connection* WorkerPool::nextReady() {
    epoll_event event{};
    ++mWaiting;
    const auto wait = [&] {
        while (epoll_wait(mEpoll.get(), &event, 1, -1) != 1) {
        }
    };
    unlessThreadEnds(wait, [this] { waitNoLonger(); });
    waitNoLonger();
    auto* const connection = static_cast<Connection*>(event.data.ptr);
    connection->takeOver();
    return connection;
}

void WorkerPool::waitNoLonger() {
    if (--mWaiting == 0) spawnIfNobodyWaits();
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
        if (!answer(connection, &frame)) return drop(connection, connection.offence());
        if (!mayStay(served)) return putBack(connection);
        wait = Wait::kBriefly;
    }
}

/// A stub that ends the thread leaves a caller who waits: the end of the connection tells him.
bool WorkerPool::answer(Connection& connection, Frame* frame) {
    return unlessThreadEnds([&] { return serveCall(connection, frame); }, [&] { drop(connection, nullptr); });
}

/// One frame, so that the next can be received by another thread while this one runs the call.
void WorkerPool::serveOneway(Connection& connection) {
    if (!mOneway.hasRoom(connection)) return;
    Frame frame;
    const Received received = connection.receive(&frame, Wait::kNo);
    if (received == Received::kNothing) return putBack(connection);
    if (received != Received::kFrame || !connection.expects(frame, FrameKind::kOneway))
        return drop(connection, connection.offence());
    if (frame.body.bytes() == nullptr) {
        BINDER_LOGE("a one-way call is lost: no memory");
        return putBack(connection);
    }
    auto call = patiently([] { return std::make_unique<OnewayCall>(); });
    call->take(connection, &frame);
    const sp<BBinder> object = call->object;
    const bool mustDrain = object != nullptr && patiently([&] { return mOneway.push(&call); });
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
    watch(connection, EPOLL_CTL_MOD);
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
