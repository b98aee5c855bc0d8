// The transactions of IAppleiAP2ManagerNotifier, in the order of their codes. Code 28 is not assigned.
#pragma once

#include <accessory/IAppleiAP2ManagerNotifier.h>

#include <tuple>

#include "AppleiAP2/notifier/AppListKind.h"
#include "AppleiAP2/notifier/BufferKinds.h"
#include "AppleiAP2/notifier/CarPlayKinds.h"
#include "AppleiAP2/notifier/DestinationKind.h"
#include "AppleiAP2/notifier/OptionalFieldsKind.h"
#include "AppleiAP2/notifier/RecordKinds.h"
#include "common/Rows.h"

namespace accessory::wire::iap2_notifier {

inline constexpr Manners kManners{kiAP2NotifierUnit, Reports::kEveryStep, false};

inline constexpr auto kNotify =
    request(1, "notify", &IAppleiAP2ManagerNotifier::notify, u32("accId"), u32("event"));
inline constexpr auto kAttach = request(2, "attach", &IAppleiAP2ManagerNotifier::attach, u32("accId"));
inline constexpr auto kDetach = request(3, "detach", &IAppleiAP2ManagerNotifier::detach, u32("accId"));
inline constexpr auto kDeviceInfoUpdate =
    request(4, "deviceInfoUpdate", &IAppleiAP2ManagerNotifier::deviceInfoUpdate, u32("accId"), cstr("info"));
inline constexpr auto kWirelessCPStateUpdate =
    request(5, "wirelessCPStateUpdate", &IAppleiAP2ManagerNotifier::wirelessCPStateUpdate, u32("accId"),
            i32("state"));
inline constexpr auto kDeviceTransportIdentifierNotification =
    request(6, "DeviceTransportIdentifierNotification",
            &IAppleiAP2ManagerNotifier::DeviceTransportIdentifierNotification, u32("accId"),
            optionalCstr("first"), optionalCstr("second"));
inline constexpr auto kDeviceLanguageUpdate =
    request(7, "deviceLanguageUpdate", &IAppleiAP2ManagerNotifier::deviceLanguageUpdate, u32("accId"),
            cstr("language"));
inline constexpr auto kDeviceTimeUpdate =
    request(8, "deviceTimeUpdate", &IAppleiAP2ManagerNotifier::deviceTimeUpdate, u32("accId"), u64("time"),
            i16AsI32("value16"), i8AsI32("value8"));
inline constexpr auto kDeviceUUIDUpdate =
    request(9, "deviceUUIDUpdate", &IAppleiAP2ManagerNotifier::deviceUUIDUpdate, u32("accId"), cstr("uuid"));
inline constexpr auto kDeviceHIDReport =
    request(10, "deviceHIDReport", &IAppleiAP2ManagerNotifier::deviceHIDReport, u32("accId"),
            hidReport("component", "report", "length"));
inline constexpr auto kStartLocation = request(11, "startLocation", &IAppleiAP2ManagerNotifier::startLocation,
                                               u32("accId"), u32("value1"), i32("value2"));
inline constexpr auto kStopLocation =
    request(12, "stopLocation", &IAppleiAP2ManagerNotifier::stopLocation, u32("accId"));
inline constexpr auto kMediaLibInfoUpdate =
    request(13, "mediaLibInfoUpdate", &IAppleiAP2ManagerNotifier::mediaLibInfoUpdate, u32("accId"),
            cstr("name"), cstr("uid"), enumAsI32<MediaLibType>("type"));
inline constexpr auto kMediaLibUpdateDataReady =
    request(14, "mediaLibUpdateDataReady", &IAppleiAP2ManagerNotifier::mediaLibUpdateDataReady, u32("accId"),
            mediaLibData("data"));
inline constexpr auto kNowPlayingUpdate =
    request(15, "nowPlayingUpdate", &IAppleiAP2ManagerNotifier::nowPlayingUpdate, u32("accId"),
            itemAttribute("attribute"), mediaPlayback("playback"));
inline constexpr auto kPowerUpdate =
    request(16, "powerUpdate", &IAppleiAP2ManagerNotifier::powerUpdate, u32("accId"), power("power"));
inline constexpr auto kUSBDeviceModeAudioInfo =
    request(17, "USBDeviceModeAudioInfo", &IAppleiAP2ManagerNotifier::USBDeviceModeAudioInfo, u32("accId"),
            u32("value"));
inline constexpr auto kWiFiInformation =
    request(18, "WiFiInformation", &IAppleiAP2ManagerNotifier::WiFiInformation, u32("accId"),
            enumAsI32<requestWiFiStatues>("status"), cstr("first"), cstr("second"));
inline constexpr auto kRequestAccWiFiConfigInfo = request(
    19, "requestAccWiFiConfigInfo", &IAppleiAP2ManagerNotifier::requestAccWiFiConfigInfo, u32("accId"));
inline constexpr auto kEASessionStart =
    request(20, "EASessionStart", &IAppleiAP2ManagerNotifier::EASessionStart, u32("accId"), i32("protocolId"),
            i32("sessionId"));
inline constexpr auto kEASessionStop =
    request(21, "EASessionStop", &IAppleiAP2ManagerNotifier::EASessionStop, u32("accId"), i32("sessionId"));
inline constexpr auto kEASessionRecvDataReady =
    request(22, "EASessionRecvDataReady", &IAppleiAP2ManagerNotifier::EASessionRecvDataReady, u32("accId"),
            i32("sessionId"), i32("length"));
inline constexpr auto kFileTransferSetup =
    request(23, "fileTransferSetup", &IAppleiAP2ManagerNotifier::fileTransferSetup, u32("accId"),
            transferSetup("setup"));
inline constexpr auto kFileTransferStart = request(
    24, "fileTransferStart", &IAppleiAP2ManagerNotifier::fileTransferStart, u32("accId"), u32("transferId"));
inline constexpr auto kFileTransferPause = request(
    25, "fileTransferPause", &IAppleiAP2ManagerNotifier::fileTransferPause, u32("accId"), u32("transferId"));
inline constexpr auto kFileTransferCancel =
    request(26, "fileTransferCancel", &IAppleiAP2ManagerNotifier::fileTransferCancel, u32("accId"),
            u32("transferId"));
inline constexpr auto kFileTransferRecvFinish =
    request(27, "fileTransferRecvFinish", &IAppleiAP2ManagerNotifier::fileTransferRecvFinish, u32("accId"),
            u32("transferId"));
inline constexpr auto kStartOOBBTP =
    request(29, "startOOBBTP", &IAppleiAP2ManagerNotifier::startOOBBTP, u32("accId"));
inline constexpr auto kOOBBTPLinkKeyInfo =
    request(30, "OOBBTPLinkKeyInfo", &IAppleiAP2ManagerNotifier::OOBBTPLinkKeyInfo, u32("accId"),
            linkKeyBytes("key", "keyLength"), linkKeyBytes("mac", "macLength"));
inline constexpr auto kStopOOBBTP =
    request(31, "stopOOBBTP", &IAppleiAP2ManagerNotifier::stopOOBBTP, u32("accId"));
inline constexpr auto kBTConnectionUpdate =
    request(32, "BTConnectionUpdate", &IAppleiAP2ManagerNotifier::BTConnectionUpdate, u32("accId"), u32("a"),
            u32("b"));
inline constexpr auto kRouteGuidanceUpdates =
    request(33, "RouteGuidanceUpdates", &IAppleiAP2ManagerNotifier::RouteGuidanceUpdates, u32("accId"),
            routeGuidance("info"));
inline constexpr auto kRouteGuidanceManeuverUpdates =
    request(34, "RouteGuidanceManeuverUpdates", &IAppleiAP2ManagerNotifier::RouteGuidanceManeuverUpdates,
            u32("accId"), maneuver("info"));
inline constexpr auto kLaneGuidanceInformation =
    request(35, "LaneGuidanceInformation", &IAppleiAP2ManagerNotifier::LaneGuidanceInformation, u32("accId"),
            laneGuidance("info"));
inline constexpr auto kAppDiscoveryUpdate =
    request(36, "AppDiscoveryUpdate", &IAppleiAP2ManagerNotifier::AppDiscoveryUpdate, u32("accId"),
            u32("first"), appList("list1", "count1"), u32("second"), appList("list2", "count2"));
inline constexpr auto kAppDiscoveryAppIcon =
    request(37, "AppDiscoveryAppIcon", &IAppleiAP2ManagerNotifier::AppDiscoveryAppIcon, u32("accId"),
            cstr("appId"), boolAsI32("flag"), u8AsI32("kind"), appIcon("icon", "iconLength"));
inline constexpr auto kCallStateUpdate = request(
    38, "CallStateUpdate", &IAppleiAP2ManagerNotifier::CallStateUpdate, u32("accId"), callState("param"));
inline constexpr auto kCommunicationsUpdate =
    request(39, "CommunicationsUpdate", &IAppleiAP2ManagerNotifier::CommunicationsUpdate, u32("accId"),
            communications("param"));
inline constexpr auto kCarPlayAvailability =
    request(40, "CarPlayAvailability", &IAppleiAP2ManagerNotifier::CarPlayAvailability, u32("accId"),
            wiredAvailability("wired"), wirelessAvailability("wireless"));
inline constexpr auto kStartBluetoothPairing =
    request(41, "StartBluetoothPairing", &IAppleiAP2ManagerNotifier::StartBluetoothPairing, u32("accId"),
            u16AsI32("id"), optionalMac("mac"));
inline constexpr auto kStopBluetoothPairing =
    request(42, "StopBluetoothPairing", &IAppleiAP2ManagerNotifier::StopBluetoothPairing, u32("accId"),
            u16AsI32("id"), u32("result"));
inline constexpr auto kDestinationInformation =
    request(43, "DestinationInformation", &IAppleiAP2ManagerNotifier::DestinationInformation, u32("accId"),
            destination("info"));
inline constexpr auto kAssistiveTouchInformation =
    request(44, "AssistiveTouchInformation", &IAppleiAP2ManagerNotifier::AssistiveTouchInformation,
            u32("accId"), boolAsI32("enabled"));
inline constexpr auto kHidComponentUpdate =
    request(45, "hidComponentUpdate", &IAppleiAP2ManagerNotifier::hidComponentUpdate, u32("accId"),
            u16AsI32("componentId"), boolAsI32("enabled"));
inline constexpr auto kCarPlayMatchedDigitalCarKeys =
    request(46, "CarPlayMatchedDigitalCarKeys", &IAppleiAP2ManagerNotifier::CarPlayMatchedDigitalCarKeys,
            u32("accId"), carKeys("keys"));

inline constexpr auto kRows = std::tuple(
    kNotify, kAttach, kDetach, kDeviceInfoUpdate, kWirelessCPStateUpdate,
    kDeviceTransportIdentifierNotification, kDeviceLanguageUpdate, kDeviceTimeUpdate, kDeviceUUIDUpdate,
    kDeviceHIDReport, kStartLocation, kStopLocation, kMediaLibInfoUpdate, kMediaLibUpdateDataReady,
    kNowPlayingUpdate, kPowerUpdate, kUSBDeviceModeAudioInfo, kWiFiInformation, kRequestAccWiFiConfigInfo,
    kEASessionStart, kEASessionStop, kEASessionRecvDataReady, kFileTransferSetup, kFileTransferStart,
    kFileTransferPause, kFileTransferCancel, kFileTransferRecvFinish, kStartOOBBTP, kOOBBTPLinkKeyInfo,
    kStopOOBBTP, kBTConnectionUpdate, kRouteGuidanceUpdates, kRouteGuidanceManeuverUpdates,
    kLaneGuidanceInformation, kAppDiscoveryUpdate, kAppDiscoveryAppIcon, kCallStateUpdate,
    kCommunicationsUpdate, kCarPlayAvailability, kStartBluetoothPairing, kStopBluetoothPairing,
    kDestinationInformation, kAssistiveTouchInformation, kHidComponentUpdate, kCarPlayMatchedDigitalCarKeys);

}  // namespace accessory::wire::iap2_notifier
