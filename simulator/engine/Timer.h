// Timer: at most one action that is yet to run.
#pragma once

#include <utility>

#include "simulator/engine/Stage.h"

namespace accessory::simulator {

/// Used with the world locked; must live as long as the stage lets actions run.
class Timer {
  public:
    explicit Timer(Stage& stage) : mStage(stage) {}
    ~Timer() { stop(); }

    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    /// Replaces what was to run.
    void start(milliseconds delay, Stage::Action action) {
        stop();
        mPending = mStage.after(delay, [this, run = std::move(action)] {
            mPending = 0;
            run();
        });
    }

    void stop() {
        if (mPending != 0) mStage.cancel(mPending);
        mPending = 0;
    }

    bool running() const { return mPending != 0; }

  private:
    Stage& mStage;
    uint64_t mPending = 0;
};

}  // namespace accessory::simulator
