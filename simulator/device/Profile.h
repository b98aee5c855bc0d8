// DeviceProfile: what a simulated device is and has when the scenario begins.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "simulator/Values.h"
#include "simulator/model/MediaLibrary.h"
#include "simulator/model/Route.h"

namespace accessory::simulator {

struct Application {
    std::string id;  ///< bundle identifier
    std::string name;
    uint16_t category = 0;
    bool playsMedia = false;
    int32_t protocol = 0;            ///< External Accessory protocol that it speaks; 0: none
    uint32_t iconColour = 0x3478f6;  ///< 0xRRGGBB
};

struct PowerState {
    int32_t currentMilliamps = 500;  ///< drawn from the accessory
    bool willCharge = true;
    int32_t mode = 0;
    bool externalCharger = false;
    int32_t chargeState = 1;   ///< 0 disabled, 1 charging, 2 charged
    int32_t chargeLevel = 80;  ///< percent
};

/// What the device says of its telephony besides its calls.
struct Network {
    int32_t signalStrength = 4;      ///< 0 to 5
    int32_t registrationStatus = 2;  ///< 0 unknown, 1 searching, 2 home, 3 roaming, 4 denied
    bool airplaneMode = false;
    std::string carrier = "Carrier";
    bool cellular = true;
    bool telephony = true;
    bool videoCalls = true;
    int32_t newVoicemails = 0;
};

struct WiFiNetwork {
    std::string ssid;  ///< empty: the device tells none
    std::string passphrase;
};

struct ClockReading {
    uint64_t seconds = 1'767'225'600;  ///< since 1970
    int16_t zoneMinutes = 0;           ///< east of Greenwich
    int8_t daylightMinutes = 0;
};

struct USBAudioProfile {
    uint32_t id = 0;  ///< 0: no device-mode audio
    std::vector<uint32_t> sampleRates = {44100, 48000};
};

struct CarPlayProfile {
    bool wired = false;
    std::string wiredIdentifier;
    bool wireless = false;
    std::string wirelessIdentifier;
};

using MacAddress = std::array<uint8_t, 6>;

struct DeviceProfile {
    uint32_t id = 1;
    std::string name = "Phone";
    AppleiAP2TransportMode transport = kTransportUSBHost;
    bool present = true;  ///< plugged in, or in reach, when the scenario begins
    int32_t feature = 1;
    std::string path;
    std::string uuid = "00000000-0000-0000-0000-000000000001";
    std::string language = "en";
    ClockReading clock;
    std::string usbIdentifier;        ///< empty: not told
    std::string bluetoothIdentifier;  ///< empty: not told
    MacAddress bluetoothAddress{};
    std::map<std::string, std::string> supports;  ///< answers of getSupportFeature()
    std::vector<Application> applications;
    MediaLibrary library;
    PowerState power;
    Network network;
    WiFiNetwork wifi;
    USBAudioProfile usbAudio;
    CarPlayProfile carPlay;
    std::vector<std::string> digitalKeys;
    std::vector<RoutePlan> routes;
    bool assistiveTouch = false;
    uint32_t answerAfterMs = 3000;  ///< until somebody answers who is called
};

}  // namespace accessory::simulator
