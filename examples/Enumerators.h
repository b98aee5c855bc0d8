// What the service of this head unit means by the numbers that the interfaces leave to it: completes the six
// enumerations that the library only declares. Service and applications include the same file; these are the
// values of the simulator.
#pragma once

#include <accessory/AppleiAP2Types.h>

#include <cstdint>

namespace accessory {

enum AppleiAP2TransportMode : int32_t {
    kTransportUSBHost = 0,
    kTransportUSBDevice = 1,
    kTransportBluetooth = 2,
    kTransportWiFi = 3,
};

enum AppLaunchMethod : int32_t { kLaunchWithAlert = 0, kLaunchSilently = 1 };

enum MediaLibCollectionType : int32_t {
    kCollectionPlaylist = 0,
    kCollectionAlbum = 1,
    kCollectionArtist = 2,
    kCollectionGenre = 3,
    kCollectionComposer = 4,
};

enum MediaLibType : int32_t { kLibraryOnDevice = 0, kLibraryRadio = 1 };

enum requestWiFiStatues : int32_t { kWiFiKnown = 0, kWiFiUnavailable = 1 };

enum WiFiSecurityType : int32_t { kWiFiOpen = 0, kWiFiWEP = 1, kWiFiWPA = 2 };

}  // namespace accessory
