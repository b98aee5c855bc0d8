// The transactions of IAppleiAP2Manager, in the order of their codes. 16 and 43 to 46 are not assigned.
#pragma once

#include <accessory/IAppleiAP2Manager.h>

#include <tuple>

#include "AppleiAP2/manager/AnswerKinds.h"
#include "AppleiAP2/manager/ArrayKinds.h"
#include "AppleiAP2/manager/MaskKinds.h"
#include "AppleiAP2/manager/SessionKinds.h"
#include "AppleiAP2/manager/StringKinds.h"
#include "common/Rows.h"

namespace accessory::wire::iap2_manager {

inline constexpr Manners kManners{kiAP2ManagerUnit, Reports::kEveryStep, true};

/// Picks one of several operations of the same name.
template <typename Signature>
constexpr auto overload(Signature IAppleiAP2Manager::*operation) {
    return operation;
}

inline constexpr auto kSetNotifier =
    request(1, "setNotifier", &IAppleiAP2Manager::setNotifier, notifierBinder("notifier"));
inline constexpr auto kClearNotifier = request(2, "clearNotifier", &IAppleiAP2Manager::clearNotifier);
inline constexpr auto kSetName = request(3, "setName", &IAppleiAP2Manager::setName, cstr("name"));
inline constexpr auto kSetSerialNumber =
    request(4, "setSerialNumber", &IAppleiAP2Manager::setSerialNumber, cstr("serialNumber"));
inline constexpr auto kSetDisplayName =
    request(5, "setDisplayName", &IAppleiAP2Manager::setDisplayName, cstr("displayName"));
inline constexpr auto kSetBluetoothAddr =
    request(6, "setBluetoothAddr", &IAppleiAP2Manager::setBluetoothAddr, bluetoothAddress("addr", "len"));
inline constexpr auto kStartup =
    request(7, "startup", &IAppleiAP2Manager::startup, enumAsI32<AppleiAP2TransportMode>("mode"));
inline constexpr auto kShutdown =
    request(8, "shutdown", &IAppleiAP2Manager::shutdown, enumAsI32<AppleiAP2TransportMode>("mode"));
inline constexpr auto kSetConfigPath = request(9, "setConfigPath", &IAppleiAP2Manager::setConfigPath,
                                               enumAsI32<AppleiAP2TransportMode>("mode"), cstr("path"));
inline constexpr auto kGetAccessoryIds =
    request(10, "getAccessoryIds", &IAppleiAP2Manager::getAccessoryIds, accessoryIds("ids", "count"));
inline constexpr auto kGetSupportFeature = requestWith<FeatureAnswer>(
    11, "getSupportFeature", &IAppleiAP2Manager::getSupportFeature, u32("accId"), cstr("feature"));
inline constexpr auto kGetAPPIds =
    request(12, "getAPPIds", &IAppleiAP2Manager::getAPPIds, u32("accId"), appIds("appIds", "count"));
inline constexpr auto kLaunchAPP = request(13, "launchAPP", &IAppleiAP2Manager::launchAPP, u32("accId"),
                                           cstr("appId"), enumAsI32<AppLaunchMethod>("method"));
inline constexpr auto kStartHID =
    request(14, "startHID", overload<int(unsigned int)>(&IAppleiAP2Manager::startHID), u32("accId"));
inline constexpr auto kDispatchMediaPlaybackRemoteEvent =
    request(15, "dispatchMediaPlaybackRemoteEvent", &IAppleiAP2Manager::dispatchMediaPlaybackRemoteEvent,
            u32("accId"), u32("value1"), u32("value2"));
inline constexpr auto kStopHID = request(17, "stopHID", &IAppleiAP2Manager::stopHID, u32("accId"));
inline constexpr auto kUpdateLocation =
    request(18, "updateLocation", &IAppleiAP2Manager::updateLocation, u32("accId"),
            checkedArray<const unsigned char*, int, kBuf>("data", "len"));
inline constexpr auto kStartMediaLibInformation =
    request(19, "startMediaLibInformation", &IAppleiAP2Manager::startMediaLibInformation, u32("accId"));
inline constexpr auto kStopMediaLibInformation =
    request(20, "stopMediaLibInformation", &IAppleiAP2Manager::stopMediaLibInformation, u32("accId"));
/// Only sent. Its code is the other form's, by which every receiver takes it apart.
inline constexpr auto kStartMediaLibUpdatesByMasks = request(
    21, "startMediaLibUpdates",
    overload<int(unsigned int, const char*, android::sp<MediaLibDataMask>&, android::sp<MediaItemMask>&,
                 android::sp<MediaPlaylistMask>&, const char*)>(&IAppleiAP2Manager::startMediaLibUpdates),
    u32("accId"), cstr("first"), mask<MediaLibDataMask>("dataMask"), mask<MediaItemMask>("itemMask"),
    mask<MediaPlaylistMask>("playlistMask"), cstr("last"));
inline constexpr auto kStartMediaLibUpdates = request(
    21, "startMediaLibUpdates",
    overload<int(unsigned int, android::sp<MediaLibUpdateInfo>&)>(&IAppleiAP2Manager::startMediaLibUpdates),
    u32("accId"), mediaLibUpdateInfo("info"));
inline constexpr auto kStopMediaLibUpdates = request(
    22, "stopMediaLibUpdates", &IAppleiAP2Manager::stopMediaLibUpdates, u32("accId"), cstr("libraryId"));
inline constexpr auto kPlayMediaLibCurrentSelection =
    request(23, "playMediaLibCurrentSelection", &IAppleiAP2Manager::playMediaLibCurrentSelection,
            u32("accId"), libraryId("libraryId"));
inline constexpr auto kPlayMediaLibItems =
    request(24, "playMediaLibItems", &IAppleiAP2Manager::playMediaLibItems, u32("accId"), cstr("libraryId"),
            mediaItemIds("itemIds", "count"), i32("value"));
inline constexpr auto kPlayMediaLibCollection =
    request(25, "playMediaLibCollection", &IAppleiAP2Manager::playMediaLibCollection, u32("accId"),
            cstr("libraryId"), u64("collectionId"), enumAsI32<MediaLibCollectionType>("type"), i32("value"));
inline constexpr auto kPlayMediaLibSpecial =
    request(26, "playMediaLibSpecial", &IAppleiAP2Manager::playMediaLibSpecial, u32("accId"),
            libraryId("libraryId"), i32("value"));
inline constexpr auto kStartNowPlayingUpdate =
    request(27, "startNowPlayingUpdate", &IAppleiAP2Manager::startNowPlayingUpdate, u32("accId"),
            mask<iAP2ItemAttributeMask>("attributeMask"), mask<iAP2MediaPlaybackMask>("playbackMask"));
inline constexpr auto kStopNowPlayingUpdate =
    request(28, "stopNowPlayingUpdate", &IAppleiAP2Manager::stopNowPlayingUpdate, u32("accId"));
inline constexpr auto kSetNowPlayingInfo =
    request(29, "setNowPlayingInfo", &IAppleiAP2Manager::setNowPlayingInfo, u32("accId"), u32("value1"),
            u32("value2"));
inline constexpr auto kStartPowerUpdate =
    request(30, "startPowerUpdate", &IAppleiAP2Manager::startPowerUpdate, u32("accId"),
            mask<iAP2PowerUpdateMask>("powerMask"));
inline constexpr auto kStopPowerUpdate =
    request(31, "stopPowerUpdate", &IAppleiAP2Manager::stopPowerUpdate, u32("accId"));
inline constexpr auto kPowerSourceUpdate =
    request(32, "powerSourceUpdate", &IAppleiAP2Manager::powerSourceUpdate, u32("accId"), u32("value"),
            boolAsI32("flag"));
inline constexpr auto kStartUSBDeviceModeAudio =
    request(33, "startUSBDeviceModeAudio", &IAppleiAP2Manager::startUSBDeviceModeAudio, u32("accId"));
inline constexpr auto kStopUSBDeviceModeAudio =
    request(34, "stopUSBDeviceModeAudio", &IAppleiAP2Manager::stopUSBDeviceModeAudio, u32("accId"));
inline constexpr auto kRequestWiFiInformation =
    request(35, "requestWiFiInformation", &IAppleiAP2Manager::requestWiFiInformation, u32("accId"));
inline constexpr auto kAccessoryWiFiConfigInforamtion = request(
    36, "accessoryWiFiConfigInforamtion", &IAppleiAP2Manager::accessoryWiFiConfigInforamtion, u32("accId"),
    cstr("ssid"), cstr("passphrase"), enumAsI32<WiFiSecurityType>("securityType"), u8AsI32("channel"));
inline constexpr auto kGetEASessionCount =
    request(37, "getEASessionCount", &IAppleiAP2Manager::getEASessionCount, u32("accId"));
inline constexpr auto kGetEASessionId =
    request(38, "getEASessionId", &IAppleiAP2Manager::getEASessionId, u32("accId"), i32("index"),
            outI32("first"), outI32("second"));
inline constexpr auto kRegisterEASessionChannel =
    request(39, "registerEASessionChannel", &IAppleiAP2Manager::registerEASessionChannel, u32("accId"),
            u32("value1"), u32("value2"), u32("value3"));
inline constexpr auto kUnregisterEASessionChannel =
    request(40, "unregisterEASessionChannel", &IAppleiAP2Manager::unregisterEASessionChannel, u32("accId"),
            u32("value1"), u32("value2"), u32("value3"));
inline constexpr auto kEASessionSendDataReady =
    request(41, "EASessionSendDataReady", &IAppleiAP2Manager::EASessionSendDataReady, u32("accId"),
            u32("value1"), u32("value2"));
inline constexpr auto kUpdateEAPStatus = request(42, "updateEAPStatus", &IAppleiAP2Manager::updateEAPStatus,
                                                 u32("accId"), u32("value1"), u32("value2"));
inline constexpr auto kFileTransferRecvInit =
    request(47, "fileTransferRecvInit", &IAppleiAP2Manager::fileTransferRecvInit, u32("accId"),
            u32("transferId"), u64("value"));
inline constexpr auto kFileTransferRecvStart = request(
    48, "fileTransferRecvStart", &IAppleiAP2Manager::fileTransferRecvStart, u32("accId"), u32("transferId"));
inline constexpr auto kFileTransferRecvPause = request(
    49, "fileTransferRecvPause", &IAppleiAP2Manager::fileTransferRecvPause, u32("accId"), u32("transferId"));
inline constexpr auto kFileTransferRecvCancel =
    request(50, "fileTransferRecvCancel", &IAppleiAP2Manager::fileTransferRecvCancel, u32("accId"),
            u32("transferId"));
inline constexpr auto kRegisterFileTransferChannel =
    request(51, "registerFileTransferChannel", &IAppleiAP2Manager::registerFileTransferChannel, u32("accId"),
            u32("value1"), u32("value2"), u32("value3"));
inline constexpr auto kUnregisterFileTransferChannel =
    request(52, "unregisterFileTransferChannel", &IAppleiAP2Manager::unregisterFileTransferChannel,
            u32("accId"), u32("value1"), u32("value2"), u32("value3"));
inline constexpr auto kOOBBTPAccInfo =
    request(53, "OOBBTPAccInfo", &IAppleiAP2Manager::OOBBTPAccInfo, u32("accId"), i32("value"));
inline constexpr auto kOOBBTPCompletionInfo =
    request(54, "OOBBTPCompletionInfo", &IAppleiAP2Manager::OOBBTPCompletionInfo, u32("accId"), i32("value"));
inline constexpr auto kBTComponentInformation =
    request(55, "BTComponentInformation", &IAppleiAP2Manager::BTComponentInformation, u32("accId"),
            checkedArray<BTComInfo_s*, unsigned int, kInfo>("infos", "count"));
inline constexpr auto kStartBTConnectionUpdate =
    request(56, "StartBTConnectionUpdate", &IAppleiAP2Manager::StartBTConnectionUpdate, u32("accId"),
            checkedArray<unsigned int*, unsigned int, kBuf>("ids", "count"));
inline constexpr auto kStopBTConnectionUpdate =
    request(57, "StopBTConnectionUpdate", &IAppleiAP2Manager::StopBTConnectionUpdate, u32("accId"));
inline constexpr auto kStartRouteGuidanceUpdate =
    request(58, "StartRouteGuidanceUpdate", &IAppleiAP2Manager::StartRouteGuidanceUpdate, u32("accId"),
            displayIds("ids", "count"), u32("value"));
inline constexpr auto kStopRouteGuidanceUpdate =
    request(59, "StopRouteGuidanceUpdate", &IAppleiAP2Manager::StopRouteGuidanceUpdate, u32("accId"),
            displayIds("ids", "count"));
inline constexpr auto kStartAppDiscoveryUpdates =
    request(60, "StartAppDiscoveryUpdates", &IAppleiAP2Manager::StartAppDiscoveryUpdates, u32("accId"),
            u32("value1"), u16AsI32("value2"), u16AsI32("value3"), u32("value4"), u16AsI32("value5"));
inline constexpr auto kStopAppDiscoveryUpdates =
    request(61, "StopAppDiscoveryUpdates", &IAppleiAP2Manager::StopAppDiscoveryUpdates, u32("accId"));
inline constexpr auto kRequestAppDiscoveryAppIcons =
    request(62, "RequestAppDiscoveryAppIcons", &IAppleiAP2Manager::RequestAppDiscoveryAppIcons, u32("accId"),
            bundleId("bundleId"));
inline constexpr auto kStartCallStateUpdates =
    request(63, "StartCallStateUpdates", &IAppleiAP2Manager::StartCallStateUpdates, u32("accId"),
            rawRecord<const StartCallStateUpdateParam&>("param"));
inline constexpr auto kStopCallStateUpdates =
    request(64, "StopCallStateUpdates", &IAppleiAP2Manager::StopCallStateUpdates, u32("accId"));
inline constexpr auto kStartCommunicationsUpdates =
    request(65, "StartCommunicationsUpdates", &IAppleiAP2Manager::StartCommunicationsUpdates, u32("accId"),
            rawRecord<const StartCommunicationsUpdatesParam*>("param"));
inline constexpr auto kStopCommunicationsUpdates =
    request(66, "StopCommunicationsUpdates", &IAppleiAP2Manager::StopCommunicationsUpdates, u32("accId"));
inline constexpr auto kAcceptCall = request(67, "AcceptCall", &IAppleiAP2Manager::AcceptCall, u32("accId"),
                                            i32("action"), optionalCstr("callUuid"));
inline constexpr auto kEndCall = request(68, "EndCall", &IAppleiAP2Manager::EndCall, u32("accId"),
                                         i32("action"), optionalCstr("callUuid"));
inline constexpr auto kInitiateCall =
    request(69, "InitiateCall", &IAppleiAP2Manager::InitiateCall, u32("accId"), initiateCallParam("param"));
inline constexpr auto kSwapCalls = request(70, "SwapCalls", &IAppleiAP2Manager::SwapCalls, u32("accId"));
inline constexpr auto kMergeCalls = request(71, "MergeCalls", &IAppleiAP2Manager::MergeCalls, u32("accId"));
inline constexpr auto kHoldStatusUpdate =
    request(72, "HoldStatusUpdate", &IAppleiAP2Manager::HoldStatusUpdate, u32("accId"), boolAsI32("held"),
            optionalCstr("callUuid"));
inline constexpr auto kMuteStatusUpdate =
    request(73, "MuteStatusUpdate", &IAppleiAP2Manager::MuteStatusUpdate, u32("accId"), boolAsI32("muted"));
inline constexpr auto kSendDTMF = request(74, "SendDTMF", &IAppleiAP2Manager::SendDTMF, u32("accId"),
                                          i32("tone"), optionalCstr("callUuid"));
inline constexpr auto kGetVersion =
    requestWith<VersionAnswer>(75, "getVersion", &IAppleiAP2Manager::getVersion);
inline constexpr auto kCarPlayStartSession = request(
    76, "CarPlayStartSession", &IAppleiAP2Manager::CarPlayStartSession, u32("accId"), wiredSession("wired"),
    wirelessSession("wireless"), u32("value"), cstr("string1"), cstr("string2"), cstr("string3"));
inline constexpr auto kSetProperty =
    request(77, "setProperty", &IAppleiAP2Manager::setProperty, enumAsI32<AppleiAP2TransportMode>("mode"),
            stdString("key"), stdString("value"));
inline constexpr auto kBluetoothPairingAccessoryInformation = request(
    78, "BluetoothPairingAccessoryInformation", &IAppleiAP2Manager::BluetoothPairingAccessoryInformation,
    u32("accId"), u16AsI32("value"), pairingBlock("block1"), pairingBlock("block2"));
inline constexpr auto kBluetoothPairingStatus =
    request(79, "BluetoothPairingStatus", &IAppleiAP2Manager::BluetoothPairingStatus, u32("accId"),
            u16AsI32("value1"), u32("value2"), optionalCstr("text"));
inline constexpr auto kStartDestinationInformation =
    request(80, "StartDestinationInformation", &IAppleiAP2Manager::StartDestinationInformation, u32("accId"),
            u32("value"));
inline constexpr auto kStopDestinationInformation =
    request(81, "StopDestinationInformation", &IAppleiAP2Manager::StopDestinationInformation, u32("accId"));
inline constexpr auto kDestinationInformationStatus =
    request(82, "DestinationInformationStatus", &IAppleiAP2Manager::DestinationInformationStatus,
            u32("accId"), cstr("text"), u32("value"));
inline constexpr auto kStart = request(83, "start", &IAppleiAP2Manager::start, u32("accId"));
inline constexpr auto kStop = request(84, "stop", &IAppleiAP2Manager::stop, u32("accId"));
inline constexpr auto kStartAssistiveTouch =
    request(85, "StartAssistiveTouch", &IAppleiAP2Manager::StartAssistiveTouch, u32("accId"));
inline constexpr auto kStopAssistiveTouch =
    request(86, "StopAssistiveTouch", &IAppleiAP2Manager::StopAssistiveTouch, u32("accId"));
inline constexpr auto kStartAssistiveTouchInformation = request(
    87, "StartAssistiveTouchInformation", &IAppleiAP2Manager::StartAssistiveTouchInformation, u32("accId"));
inline constexpr auto kStopAssistiveTouchInformation = request(
    88, "StopAssistiveTouchInformation", &IAppleiAP2Manager::StopAssistiveTouchInformation, u32("accId"));
inline constexpr auto kStartHIDWithAttributes =
    request(89, "startHID", overload<int(unsigned int, HIDReportAttributes*)>(&IAppleiAP2Manager::startHID),
            u32("accId"), hidAttributes("attributes"));
inline constexpr auto kAccHIDReport =
    request(90, "accHIDReport", &IAppleiAP2Manager::accHIDReport, u32("accId"),
            checkedArray<unsigned char*, int, kReportData>("report", "len"));
inline constexpr auto kCarPlayAvailableDigitalCarKeys =
    request(91, "CarPlayAvailableDigitalCarKeys", &IAppleiAP2Manager::CarPlayAvailableDigitalCarKeys,
            u32("accId"), carKeyIds("keys"));

/// What a stub serves.
inline constexpr auto kRows = std::tuple(
    kSetNotifier, kClearNotifier, kSetName, kSetSerialNumber, kSetDisplayName, kSetBluetoothAddr, kStartup,
    kShutdown, kSetConfigPath, kGetAccessoryIds, kGetSupportFeature, kGetAPPIds, kLaunchAPP, kStartHID,
    kDispatchMediaPlaybackRemoteEvent, kStopHID, kUpdateLocation, kStartMediaLibInformation,
    kStopMediaLibInformation, kStartMediaLibUpdates, kStopMediaLibUpdates, kPlayMediaLibCurrentSelection,
    kPlayMediaLibItems, kPlayMediaLibCollection, kPlayMediaLibSpecial, kStartNowPlayingUpdate,
    kStopNowPlayingUpdate, kSetNowPlayingInfo, kStartPowerUpdate, kStopPowerUpdate, kPowerSourceUpdate,
    kStartUSBDeviceModeAudio, kStopUSBDeviceModeAudio, kRequestWiFiInformation,
    kAccessoryWiFiConfigInforamtion, kGetEASessionCount, kGetEASessionId, kRegisterEASessionChannel,
    kUnregisterEASessionChannel, kEASessionSendDataReady, kUpdateEAPStatus, kFileTransferRecvInit,
    kFileTransferRecvStart, kFileTransferRecvPause, kFileTransferRecvCancel, kRegisterFileTransferChannel,
    kUnregisterFileTransferChannel, kOOBBTPAccInfo, kOOBBTPCompletionInfo, kBTComponentInformation,
    kStartBTConnectionUpdate, kStopBTConnectionUpdate, kStartRouteGuidanceUpdate, kStopRouteGuidanceUpdate,
    kStartAppDiscoveryUpdates, kStopAppDiscoveryUpdates, kRequestAppDiscoveryAppIcons, kStartCallStateUpdates,
    kStopCallStateUpdates, kStartCommunicationsUpdates, kStopCommunicationsUpdates, kAcceptCall, kEndCall,
    kInitiateCall, kSwapCalls, kMergeCalls, kHoldStatusUpdate, kMuteStatusUpdate, kSendDTMF, kGetVersion,
    kCarPlayStartSession, kSetProperty, kBluetoothPairingAccessoryInformation, kBluetoothPairingStatus,
    kStartDestinationInformation, kStopDestinationInformation, kDestinationInformationStatus, kStart, kStop,
    kStartAssistiveTouch, kStopAssistiveTouch, kStartAssistiveTouchInformation,
    kStopAssistiveTouchInformation, kStartHIDWithAttributes, kAccHIDReport, kCarPlayAvailableDigitalCarKeys);

}  // namespace accessory::wire::iap2_manager
