// One-way calls in the order of their arrival, object by object.
#pragma once

#include <binder/Binder.h>

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Call.h"

namespace android::runtime {

/// Two calls of one object never run at the same time, nor out of order; those of different objects may.
///
/// The bytes that wait are bounded for each sending process: its connections are left alone then, so that it
/// feels the full socket and nobody else does, until half of them have run. mLock is a leaf; calls run
/// without it.
class OnewayQueue {
  public:
    using Resume = std::function<void(Connection&)>;

    /// @param resume called, on the thread that drains, for a connection that was left alone.
    explicit OnewayQueue(Resume resume) : mResume(std::move(resume)) {}

    /// Takes the call over; leaves it with the caller when there is no memory, which std::bad_alloc tells.
    /// @return true when nobody is running calls of this object: the caller must drain() it then.
    bool push(std::unique_ptr<OnewayCall>* call);

    /// Whether more may be taken off @p connection now; if not, it is resumed later.
    bool hasRoom(Connection& connection);

    /// Runs the object's calls until none is left.
    void drain(const BBinder* object);

    /// For a process that has no connection any more.
    void forget(pid_t process);

  private:
    struct Sender {
        size_t bytes = 0;
        bool isGone = false;
        std::vector<Connection*> leftAlone;
    };

    void drainElsewhere(const BBinder* object);
    std::unique_ptr<OnewayCall> next(const BBinder* object, std::vector<Connection*>* resumed);
    void discountLocked(const OnewayCall& call, std::vector<Connection*>* resumed);

    const Resume mResume;
    std::mutex mLock;
    std::unordered_map<const BBinder*, std::deque<std::unique_ptr<OnewayCall>>> mBusy;
    std::unordered_map<pid_t, Sender> mSenders;
};

}  // namespace android::runtime
