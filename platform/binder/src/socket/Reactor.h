// The thread that watches what is not a call: the listener, greetings, links, timers.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "RuntimeFd.h"

namespace android::runtime {

/// Its handlers never run foreign code and wait for nothing but memory, so that peers and deaths are noticed
/// promptly even when every stub is busy. mLock guards the tables; handlers run without it and may change
/// them.
class Reactor {
  public:
    using Handler = std::function<void(uint32_t events)>;
    using Clock = std::chrono::steady_clock;

    /// How long to leave alone what cannot be had or done just now.
    static constexpr std::chrono::milliseconds kPause{50};

    /// Starts the thread unless it runs. @return false, which is logged, when something is missing for it;
    /// what is asked of it waits until the next attempt.
    bool start();

    /// Calls @p handler with the epoll events of @p fd until forget(). Any thread. Throws std::bad_alloc when
    /// there is no memory, the kernel's included, and has changed nothing then.
    /// @return the watch's number; 0 when the kernel refuses.
    uint64_t watch(int fd, uint32_t events, Handler handler);
    void change(uint64_t number, int fd, uint32_t events);
    /// Before @p fd is closed. A handler that is running on the reactor's thread may still finish.
    void forget(uint64_t number, int fd);

    /// Calls @p action once, after @p delay.
    void after(std::chrono::milliseconds delay, std::function<void()> action);

  private:
    bool open();
    void run();
    void handle(uint64_t number, uint32_t events);
    int untilNextTimer();
    void runTimers();
    std::shared_ptr<Handler> handlerOf(uint64_t number);

    std::mutex mStarting;  // taken before mLock; guards mRuns, and the two descriptors until it runs
    bool mRuns = false;
    RuntimeFd mEpoll;
    RuntimeFd mWakeUp;
    std::mutex mLock;
    uint64_t mLastNumber = 0;
    std::unordered_map<uint64_t, std::shared_ptr<Handler>> mHandlers;
    std::multimap<Clock::time_point, std::function<void()>> mTimers;
};

}  // namespace android::runtime
