// Applications: what is installed on the device, what runs, and the events about it.
#pragma once

#include <optional>

#include "simulator/device/Feature.h"
#include "simulator/device/NowPlaying.h"
#include "simulator/device/Profile.h"
#include "simulator/device/Sessions.h"

namespace accessory::simulator {

class Applications : public Feature {
  public:
    Applications(Stage& stage, unsigned int id, const DeviceProfile& profile, NowPlaying& nowPlaying,
                 Sessions& sessions);

    void reset();

    /// The identifiers stay valid as long as the device.
    int identify(const char** ids, unsigned int* count) const;
    /// Brings an application to the front; one that plays media becomes the player's, one that speaks a
    /// protocol opens a session.
    int launch(const char* id);

    /// Begins discovery. @param most applications to tell of; 0: all.
    int startDiscovery(uint16_t most);
    int stopDiscovery();
    /// Answers with a picture of 16 by 16 pixels.
    int requestIcon(const char* id);

    void describe(std::string* out) const;

  private:
    const Application* find(const char* id) const;

    const DeviceProfile& mProfile;
    NowPlaying& mNowPlaying;
    Sessions& mSessions;
    std::string mInFront;
    bool mDiscovering = false;
};

}  // namespace accessory::simulator
