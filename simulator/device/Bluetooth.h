// Bluetooth: pairing out of band and in band, and the connections of the head unit's components.
#pragma once

#include <map>
#include <vector>

#include "simulator/device/Feature.h"
#include "simulator/device/Profile.h"

namespace accessory::simulator {

class Bluetooth : public Feature {
  public:
    Bluetooth(Stage& stage, unsigned int id, const DeviceProfile& profile);

    void reset();

    /// The device begins pairing out of band: startOOBBTP(), accessoryInfo(), OOBBTPLinkKeyInfo(),
    /// completionInfo(), stopOOBBTP().
    void beginOutOfBand();
    int accessoryInfo();
    int completionInfo();

    /// The device begins pairing in band: StartBluetoothPairing(), pairingInformation(), pairingStatus(),
    /// StopBluetoothPairing().
    void beginPairing(uint16_t pairing);
    int pairingInformation(uint16_t pairing, bool hasBlocks);
    /// @param result 0: paired.
    int pairingStatus(uint16_t pairing, uint32_t result);

    int components(uint32_t count);
    /// Begins events about the connections of those components: first what is so now.
    int startConnections(std::vector<uint32_t> components);
    int stopConnections();
    /// @param state 0: not connected.
    void setConnection(uint32_t component, uint32_t state);

    void describe(std::string* out) const;

  private:
    enum class OutOfBand { kIdle, kStarted, kKeySent };

    const DeviceProfile& mProfile;
    OutOfBand mOutOfBand = OutOfBand::kIdle;
    uint16_t mPairing = 0;  ///< 0: not under way
    uint32_t mComponents = 0;
    std::vector<uint32_t> mAsked;
    std::map<uint32_t, uint32_t> mConnections;
};

}  // namespace accessory::simulator
