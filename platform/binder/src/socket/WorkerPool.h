// The threads that serve calls.
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "Connection.h"
#include "OnewayQueue.h"
#include "RefusalLog.h"
#include "RuntimeFd.h"

namespace android::runtime {

/// Connections rest in one epoll set. A thread takes a ready one out, serves its call, and then waits for the
/// next call right on the connection for a moment, as long as another thread looks after the set: so a busy
/// caller is served with one receive and one send a call. When the moment passes, the connection goes back to
/// the set and the thread with it; nothing wakes up while nothing happens.
///
/// A connection belongs to the thread that took it, else to the set, so it needs no lock. mLock guards the
/// list of connections and the thread counts.
class WorkerPool {
  public:
    explicit WorkerPool(RefusalLog& refusals);

    /// What it needs to take connections in. @return false, which is logged, when there is no descriptor
    /// left; to be called until it is true, before add().
    bool open();

    /// Any thread. Calls wait in their sockets until there is a thread to serve them. Takes the connection
    /// over, or throws std::bad_alloc and has changed nothing.
    /// @return false when its process has as many as one is allowed.
    bool add(std::unique_ptr<Connection>* connection);

    /// @return false when there is no thread to be had for the moment; to be called again then.
    bool start();
    void setMaxThreads(size_t count);
    /// Serves calls on the calling thread for ever.
    [[noreturn]] void join();

  private:
    /// What the connections of one process come to.
    struct Process {
        size_t connections = 0;
        size_t heldBytes = 0;
    };

    bool watch(Connection& connection, int operation) const;
    void spawn();
    void spawnIfNobodyWaits();
    void workInPool();
    void makeUpForEnded();
    [[noreturn]] void work();
    Connection* nextReady();
    void waitNoLonger();
    void serve(Connection& connection);
    void serveCalls(Connection& connection);
    bool answer(Connection& connection, Frame* frame);
    void serveOneway(Connection& connection);
    bool mayStay(int servedHere);
    void putBack(Connection& connection);
    bool count(Connection& connection);
    void drop(Connection& connection, const char* offence);
    bool discard(Connection& connection);

    RefusalLog& mRefusals;
    RuntimeFd mEpoll;
    OnewayQueue mOneway;
    std::atomic<int> mWaiting{0};  // threads that look after the set

    std::mutex mLock;
    std::unordered_map<const Connection*, std::unique_ptr<Connection>> mConnections;
    std::unordered_map<pid_t, Process> mByProcess;
    bool mStarted = false;
    size_t mMaxThreads = 15;
    size_t mPoolThreads = 0;
    std::atomic<size_t> mThreads{0};  // pool threads and those that joined
    std::atomic<size_t> mConnectionCount{0};
};

}  // namespace android::runtime
