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

#include "../Log.h"
#include "../OutOfMemory.h"
#include "RuntimeThread.h"

namespace android::runtime {

namespace {

/// How long a thread waits on a connection for its next call before it looks after the others again.
constexpr int kPatienceMs = 5;
/// How many calls in a row one connection gets while there are more connections than threads.
constexpr int kTurn = 32;

/// A process has one connection per call that it has under way, and a few at rest.
constexpr size_t kMostOfAProcess = 512;

/// How long a thread leaves the kernel alone that has no descriptor for it.
constexpr std::chrono::milliseconds kPause{50};

constexpr uint32_t kOnce = EPOLLIN | EPOLLRDHUP | EPOLLONESHOT;

}  // namespace

WorkerPool::WorkerPool() : mOneway([this](Connection& connection) { putBack(connection); }) {}

bool WorkerPool::open() {
    const std::lock_guard<std::mutex> guard(mLock);
    if (!mEpoll.isOpen()) mEpoll = RuntimeFd(epoll_create1(EPOLL_CLOEXEC));
    if (!mEpoll.isOpen()) BINDER_LOGE("no descriptor left to serve calls with: %s", strerror(errno));
    return mEpoll.isOpen();
}

/// A thread may take it out of the set at once, but not let it go before it is entered here.
bool WorkerPool::add(std::unique_ptr<Connection>* connection) {
    Connection& added = **connection;
    if (added.kind() == ConnectionKind::kCall) added.setPatience(kPatienceMs);
    const std::lock_guard<std::mutex> guard(mLock);
    size_t& count = mByProcess[added.credentials().pid];
    if (count >= kMostOfAProcess) return false;
    const auto place = mConnections.try_emplace(&added).first;
    if (!watch(added)) {
        mConnections.erase(place);
        throw std::bad_alloc();
    }
    place->second = std::move(*connection);
    ++count;
    mConnectionCount = mConnections.size();
    return true;
}

/// The kernel refuses for want of memory only.
bool WorkerPool::watch(Connection& connection) const {
    epoll_event event{kOnce, {}};
    event.data.ptr = &connection;
    return epoll_ctl(mEpoll.get(), EPOLL_CTL_ADD, connection.fd(), &event) == 0;
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
    while (!open())
        std::this_thread::sleep_for(kPause);
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
        Frame frame;
        const Received received = connection.receive(&frame, wait);
        if (received == Received::kNothing) return putBack(connection);
        if (received != Received::kFrame || frame.header.kind != FrameKind::kCall) return drop(connection);
        if (!serveCall(connection, &frame)) return drop(connection);
        if (!mayStay(served)) return putBack(connection);
        wait = Wait::kBriefly;
    }
}

/// One frame, so that the next can be received by another thread while this one runs the call.
void WorkerPool::serveOneway(Connection& connection) {
    Frame frame;
    const Received received = connection.receive(&frame, Wait::kNo);
    if (received == Received::kNothing) return putBack(connection);
    if (received != Received::kFrame || frame.header.kind != FrameKind::kOneway) return drop(connection);
    if (frame.body.bytes() == nullptr) {
        BINDER_LOGE("a one-way call is lost: no memory");
        return putBack(connection);
    }
    auto call = patiently([] { return std::make_unique<OnewayCall>(); });
    call->take(connection, &frame);
    const sp<BBinder> object = call->object;
    const bool mustDrain = object != nullptr && patiently([&] { return mOneway.push(&call); });
    if (patiently([&] { return mOneway.hasRoom(connection); })) putBack(connection);
    if (mustDrain) mOneway.drain(object.get());
}

bool WorkerPool::mayStay(int servedHere) {
    if (mWaiting == 0) return false;
    return servedHere % kTurn != kTurn - 1 || mConnectionCount <= mThreads;
}

void WorkerPool::putBack(Connection& connection) {
    connection.handOver();
    epoll_event event{kOnce, {}};
    event.data.ptr = &connection;
    epoll_ctl(mEpoll.get(), EPOLL_CTL_MOD, connection.fd(), &event);
}

void WorkerPool::drop(Connection& connection) {
    std::unique_ptr<Connection> dropped;
    const std::lock_guard<std::mutex> guard(mLock);
    const auto found = mConnections.find(&connection);
    dropped = std::move(found->second);
    mConnections.erase(found);
    const auto process = mByProcess.find(dropped->credentials().pid);
    if (--process->second == 0) mByProcess.erase(process);
    mConnectionCount = mConnections.size();
}

}  // namespace android::runtime
