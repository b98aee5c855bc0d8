// EventLoop: a queue of timed actions and the one thread that runs them.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

#include "simulator/engine/Clock.h"

namespace accessory::simulator {

/// Actions run one after the other, in the order of their times, those of one time in the order in which they
/// came. Any thread may add one, an action too. Nothing is locked while an action runs.
class EventLoop {
  public:
    using Action = std::function<void()>;

    /// @param speed simulated per real second; 0: time stands still until the first jump, or until something
    /// is due later; between jumps it passes as in life.
    explicit EventLoop(double speed);
    /// Waits for the action that runs; drops the others.
    ~EventLoop();

    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    milliseconds now() const;
    void post(milliseconds due, Action action);

    /// With speed 0: jumps from action to action until one is due after @p end; then time passes as in life.
    /// With any other speed: nothing.
    void jumpUntil(milliseconds end);

    /// Begins to run actions. Called once.
    void start();

    /// No action begins any more. Actions may call it.
    void finish();
    /// As finish(); returns when the action that runs has ended. Not to be called by an action.
    void stop();

  private:
    using Place = std::pair<milliseconds, uint64_t>;

    void run();
    /// The next action when it is due, waiting for it; an empty one when the loop ends.
    Action next(std::unique_lock<std::mutex>& lock);
    bool isDue(milliseconds due);
    /// How fast time passes while nothing is jumped over.
    double livingSpeed() const { return mSpeed == 0 ? 1 : mSpeed; }

    const double mSpeed;
    mutable std::mutex mLock;
    std::condition_variable mChanged;
    Clock mClock{0};  ///< stands still until start()
    milliseconds mJumpEnd{0};
    std::map<Place, Action> mQueue;
    uint64_t mCount = 0;
    bool mJumping;  ///< in the beginning: to 0, where time stands still
    bool mStopping = false;
    std::thread mThread;
};

}  // namespace accessory::simulator
