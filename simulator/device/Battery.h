// Battery: the device's power, and the events about it.
#pragma once

#include <optional>

#include "simulator/device/Feature.h"
#include "simulator/device/Profile.h"
#include "simulator/engine/Timer.h"

namespace accessory::simulator {

class Battery : public Feature {
  public:
    Battery(Stage& stage, unsigned int id, const DeviceProfile& profile);

    void reset();
    /// The battery's level moves from here on, up while it charges, else down.
    void attach() { tick(); }

    /// Begins events: first with all fields of @p mask, then with those that changed.
    int start(uint32_t mask);
    int stop();

    /// The accessory tells how much it gives, and whether the device may charge from it.
    int source(uint32_t milliamps, bool charge);
    void set(const PowerState& state);
    const PowerState& state() const { return mState; }

    void describe(std::string* out) const;

  private:
    void tick();
    bool charging() const;

    const DeviceProfile& mProfile;
    PowerState mState;
    std::optional<uint32_t> mAsked;
    Timer mTick;
};

}  // namespace accessory::simulator
