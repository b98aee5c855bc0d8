// HumanInterface: the head unit's controls at the device (HID), and assistive touch.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

#include "simulator/device/Feature.h"
#include "simulator/device/NowPlaying.h"
#include "simulator/device/Profile.h"

namespace accessory::simulator {

class HumanInterface : public Feature {
  public:
    /// Bits of the first byte of a HID report.
    enum Key : uint8_t {
        kPlayKey = 0x01,
        kPauseKey = 0x02,
        kToggleKey = 0x04,
        kNextKey = 0x08,
        kPreviousKey = 0x10
    };

    HumanInterface(Stage& stage, unsigned int id, const DeviceProfile& profile, NowPlaying& nowPlaying);

    void reset();

    int start(uint16_t component);
    int stop();
    /// Presses the keys of the first byte, the lowest bit first.
    int report(const unsigned char* bytes, int length);

    /// The device sends a report; see IAppleiAP2ManagerNotifier::deviceHIDReport() for what arrives.
    void sendReport(int component, const std::vector<uint8_t>& bytes);
    void enableComponent(uint16_t component, bool enabled);

    int startTouch() { return setTouch(true) ? kDone : kWrongState; }
    int stopTouch() { return setTouch(false) ? kDone : kWrongState; }
    int startTouchInformation();
    int stopTouchInformation();
    /// @return false when it is so already.
    bool setTouch(bool enabled);

    void describe(std::string* out) const;

  private:
    const DeviceProfile& mProfile;
    NowPlaying& mNowPlaying;
    std::set<uint16_t> mComponents;  ///< that the head unit started
    uint32_t mReports = 0;
    bool mTouch;
    bool mTouchAsked = false;
};

}  // namespace accessory::simulator
