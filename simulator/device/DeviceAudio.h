// DeviceAudio: USB device-mode audio, as the iAP2 manager and as the USB audio manager know it.
#pragma once

#include <string>

#include "simulator/device/Feature.h"
#include "simulator/device/Profile.h"

namespace accessory::simulator {

class DeviceAudio : public Feature {
  public:
    static constexpr uint32_t kHighestVolume = 100;

    /// @param managerRuns whether the USB audio manager was started up; read at every change.
    DeviceAudio(Stage& stage, unsigned int id, const DeviceProfile& profile, const bool& managerRuns);

    void reset();

    /// The iAP2 side: the endpoint comes and goes.
    int startMode();
    int stopMode();
    /// The USB audio manager starts up while the endpoint is there, or shuts down.
    void managerStarted();
    void managerStopped();

    bool present() const { return mPresent; }
    uint32_t endpoint() const { return mProfile.usbAudio.id; }

    /// The USB audio side; the endpoint is present.
    int start();
    int stop();
    int play();
    int pause();
    int setSampleRate(uint32_t rate);
    int setVolume(uint32_t volume);

    void describe(std::string* out) const;

  private:
    enum class Stream { kStopped, kStarted, kPlaying };

    void tellPresence(bool present);

    const DeviceProfile& mProfile;
    const bool& mManagerRuns;
    bool mPresent = false;
    Stream mStream = Stream::kStopped;
    uint32_t mSampleRate = 0;
    uint32_t mVolume = kHighestVolume;
};

}  // namespace accessory::simulator
