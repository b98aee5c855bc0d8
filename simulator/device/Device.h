// Device: one simulated device with all its features.
#pragma once

#include "simulator/device/Applications.h"
#include "simulator/device/Battery.h"
#include "simulator/device/Bluetooth.h"
#include "simulator/device/CarPlay.h"
#include "simulator/device/DeviceAudio.h"
#include "simulator/device/HumanInterface.h"
#include "simulator/device/LibraryUpdates.h"
#include "simulator/device/Navigation.h"
#include "simulator/device/NowPlaying.h"
#include "simulator/device/Phone.h"
#include "simulator/device/Place.h"
#include "simulator/device/Profile.h"
#include "simulator/device/Sessions.h"
#include "simulator/device/Transfers.h"

namespace accessory::simulator {

/// Lives as long as the simulation. It is attached, and has anything to say, while it is present and its
/// transport runs.
class Device : public Feature {
  private:
    const DeviceProfile mProfile;
    MediaLibrary mLibrary;
    const bool& mTransportRuns;
    bool mPresent = false;
    bool mAttached = false;
    bool mSessionOpen = false;
    ClockReading mClock;

  public:
    /// @param transportRuns, @param usbAudioRuns whether those were started up; read at every change.
    Device(Stage& stage, const DeviceProfile& profile, const bool& transportRuns, const bool& usbAudioRuns);

    const DeviceProfile& profile() const { return mProfile; }
    bool attached() const { return mAttached; }

    /// Comes into reach, or goes.
    void setPresent(bool present);
    /// To be called when the transport was started up or shut down.
    void transportChanged();
    /// Back to the beginning of the scenario.
    void restart();

    /// Opens and closes the accessory's session; closing it ends all events that were asked for.
    int openSession();
    int closeSession();

    int requestWiFi();
    int playCollection(Grouping grouping, uint64_t id, int start);
    int playItems(const uint64_t* ids, int count, int start);
    /// @param kind 0: all songs, 1: all songs shuffled.
    int playSpecial(int kind);

    /// Null when the device knows no such feature. Valid as long as the device.
    const char* supports(const std::string& feature) const;

    void setLanguage(const std::string& language) { tell(&Clients::deviceLanguageUpdate, language); }
    void setClock(const ClockReading& clock);
    const ClockReading& clock() const { return mClock; }
    void requestWiFiConfiguration() { tell(&Clients::requestAccWiFiConfigInfo); }
    void announce(uint32_t event) { tell(&Clients::notify, event); }

    /// Asks for everything that a client can ask for.
    void askForEverything();

    void describe(std::string* out);

    NowPlaying nowPlaying;
    LibraryUpdates libraryUpdates;
    Battery battery;
    Phone phone;
    Navigation navigation;
    Sessions sessions;
    Transfers transfers;
    Applications applications;
    Bluetooth bluetooth;
    CarPlay carPlay;
    HumanInterface humanInterface;
    Place place;
    DeviceAudio audio;

  private:
    void attach();
    void detach();
    void forgetRequests();
    void resetFeatures();
    void introduce();
};

}  // namespace accessory::simulator
