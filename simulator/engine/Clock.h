// Clock: the time of the simulation, tied to the machine's steady clock by a speed, or moved by hand.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace accessory::simulator {

using std::chrono::milliseconds;

/// Not locked; its owner guards it.
class Clock {
  public:
    using Steady = std::chrono::steady_clock;

    /// @param speed simulated per real second; 0: time stands still but for advanceTo().
    explicit Clock(double speed) : mSpeed(speed) {}

    milliseconds now() const {
        const std::chrono::duration<double, std::milli> real = Steady::now() - mRealBase;
        return mBase + milliseconds(static_cast<int64_t>(real.count() * mSpeed));
    }

    /// When the machine's clock will show @p time of the simulation; only while time passes by itself.
    Steady::time_point realTimeOf(milliseconds time) const {
        const auto real = std::chrono::duration<double, std::milli>(time - mBase) / mSpeed;
        return mRealBase + std::chrono::ceil<Steady::duration>(real);
    }

    /// Lets time pass at another speed from here on.
    void setSpeed(double speed) {
        mBase = now();
        mRealBase = Steady::now();
        mSpeed = speed;
    }

    /// Moves a clock that stands still on; never back.
    void advanceTo(milliseconds time) { mBase = std::max(mBase, time); }

  private:
    double mSpeed;
    milliseconds mBase{0};
    Steady::time_point mRealBase = Steady::now();
};

}  // namespace accessory::simulator
