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
/// The bytes that wait are bounded: a connection that brings more is left alone, so that its sender feels the
/// full socket, until half of them have run. mLock is a leaf; calls run without it.
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

  private:
    std::unique_ptr<OnewayCall> next(const BBinder* object);
    void resumeIfRoom();

    const Resume mResume;
    std::mutex mLock;
    std::unordered_map<const BBinder*, std::deque<std::unique_ptr<OnewayCall>>> mBusy;
    size_t mBytes = 0;
    std::vector<Connection*> mLeftAlone;
};

}  // namespace android::runtime
