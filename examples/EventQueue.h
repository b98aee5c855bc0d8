// One thread that raises a service's events, one after the other as they were put in. A thread that serves a
// request must raise none: the client may be inside an event, and both would wait for each other.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <queue>
#include <thread>

namespace examples {

class EventQueue {
  public:
    using Event = std::function<void()>;

    EventQueue() : mThread([this] { raise(); }) {}

    /// Raises what was put in, and ends.
    ~EventQueue() {
        put(nullptr);
        mThread.join();
    }

    /// From any thread; returns at once. Nothing bounds the queue: a service whose clients are slow bounds it
    /// by what it puts in.
    void put(Event event) {
        const std::lock_guard<std::mutex> guard(mLock);
        mEvents.push(std::move(event));
        mFilled.notify_one();
    }

  private:
    void raise() {
        while (const Event event = next())
            event();
    }

    Event next() {
        std::unique_lock<std::mutex> guard(mLock);
        mFilled.wait(guard, [this] { return !mEvents.empty(); });
        Event event = std::move(mEvents.front());
        mEvents.pop();
        return event;
    }

    std::mutex mLock;
    std::condition_variable mFilled;
    std::queue<Event> mEvents;
    std::thread mThread;  // the last: it uses the others from the start
};

}  // namespace examples
