// When a wait has become so long that the log tells of it: after a first span, then at doubling distances.
#pragma once

#include <chrono>

namespace android::runtime {

/// Costs nothing before it is begun. Not thread-safe.
class LongWait {
  public:
    using Clock = std::chrono::steady_clock;

    /// How long a wait has to be to be told of, in milliseconds: BINDER_SLOW_CALL_MS, else 5 s; 0 for never.
    static std::chrono::milliseconds firstSpan();

    /// Counts from @p since on, and as one that has not been told of.
    void begin(Clock::time_point since);
    bool hasBegun() const { return mNext.count() != 0; }

    /// The time left until it is to be told of again, rounded up; 0 when that is now.
    std::chrono::milliseconds untilTelling() const;
    void told();
    bool wasTold() const { return mTold; }

    double seconds() const;

  private:
    Clock::time_point mSince;
    std::chrono::milliseconds mNext{0};
    bool mTold = false;
};

}  // namespace android::runtime
