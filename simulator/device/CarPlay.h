// CarPlay: how it can be started, whether it runs, and the digital car keys.
#pragma once

#include <string>
#include <vector>

#include "simulator/device/Feature.h"
#include "simulator/device/Profile.h"

namespace accessory::simulator {

class CarPlay : public Feature {
  public:
    CarPlay(Stage& stage, unsigned int id, const DeviceProfile& profile);

    void reset();
    /// Tells what is available, if anything is.
    void attach();

    void setAvailability(const CarPlayProfile& availability);
    const CarPlayProfile& availability() const { return mAvailability; }
    void setWirelessState(int state) { tell(&Clients::wirelessCPStateUpdate, state); }

    /// @param wired, @param wireless which ways the head unit offers.
    int start(bool wired, bool wireless);
    /// Answers with those of @p keys that the device has.
    int availableKeys(const std::vector<std::string>& keys);

    void describe(std::string* out) const;

  private:
    enum class Session { kNone, kWired, kWireless };

    void tellAvailability();

    const DeviceProfile& mProfile;
    CarPlayProfile mAvailability;
    Session mSession = Session::kNone;
};

}  // namespace accessory::simulator
