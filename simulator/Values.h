// What the simulated service lays down for the numbers that the interfaces leave to a service: the
// enumerators of the opaque enumerations, and the statuses that it answers.
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

enum AppLaunchMethod : int32_t {
    kLaunchWithAlert = 0,
    kLaunchSilently = 1,
};

enum MediaLibCollectionType : int32_t {
    kCollectionPlaylist = 0,
    kCollectionAlbum = 1,
    kCollectionArtist = 2,
    kCollectionGenre = 3,
    kCollectionComposer = 4,
};

enum MediaLibType : int32_t {
    kLibraryOnDevice = 0,
    kLibraryRadio = 1,
};

enum requestWiFiStatues : int32_t {
    kWiFiKnown = 0,
    kWiFiUnavailable = 1,
};

enum WiFiSecurityType : int32_t {
    kWiFiOpen = 0,
    kWiFiWEP = 1,
    kWiFiWPA = 2,
};

namespace simulator {

/// What a request is answered with. The numbers are the platform's for the same mishaps.
enum Status : int {
    kDone = 0,
    kNotFound = -2,          ///< no such application, call, session, track, transfer ...
    kNoSuchAccessory = -19,  ///< no device of that identifier is attached
    kBadArgument = -22,      ///< null where something is needed, or a value outside its range
    kWrongState = -38,       ///< not now: not started, started already, nothing that could be done
};

/// The second argument of notify().
enum Notification : unsigned int {
    kSessionOpened = 1,
    kSessionClosed = 2,
    kAppLaunched = 3,
    kCarPlayStarted = 10,
};

}  // namespace simulator
}  // namespace accessory
