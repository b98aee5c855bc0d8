#include <accessory/IAPAutoTrace.h>
#include <accessory/IAppleiAP2Manager.h>

#include "AppleiAP2/manager/ManagerRows.h"
#include "common/DestructorTrace.h"

namespace accessory {

namespace rows = wire::iap2_manager;

namespace {

constexpr const Unit& kUnit = kiAP2ManagerUnit;

}  // namespace

BpAppleiAP2Manager::BpAppleiAP2Manager(const android::sp<android::IBinder>& impl)
    : android::BpInterface<IAppleiAP2Manager>(impl) {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "BpAppleiAP2Manager");
}

BpAppleiAP2Manager::~BpAppleiAP2Manager() { const DestructorTrace trace(kUnit, "~BpAppleiAP2Manager"); }

template <typename Row, typename... Arguments>
typename Row::Result BpAppleiAP2Manager::call(const Row& row, const Arguments&... arguments) {
    return wire::call(rows::kManners, row, getInterfaceDescriptor(), remote(), arguments...);
}

int BpAppleiAP2Manager::setName(const char* name) { return call(rows::kSetName, name); }

int BpAppleiAP2Manager::setSerialNumber(const char* serialNumber) {
    return call(rows::kSetSerialNumber, serialNumber);
}

int BpAppleiAP2Manager::setDisplayName(const char* displayName) {
    return call(rows::kSetDisplayName, displayName);
}

int BpAppleiAP2Manager::setBluetoothAddr(unsigned char* addr, unsigned int len) {
    return call(rows::kSetBluetoothAddr, addr, len);
}

int BpAppleiAP2Manager::startup(AppleiAP2TransportMode mode) { return call(rows::kStartup, mode); }

int BpAppleiAP2Manager::shutdown(AppleiAP2TransportMode mode) { return call(rows::kShutdown, mode); }

int BpAppleiAP2Manager::setConfigPath(AppleiAP2TransportMode mode, const char* path) {
    return call(rows::kSetConfigPath, mode, path);
}

int BpAppleiAP2Manager::setNotifier(const android::sp<IAppleiAP2ManagerNotifier>& notifier) {
    return call(rows::kSetNotifier, notifier);
}

int BpAppleiAP2Manager::clearNotifier() { return call(rows::kClearNotifier); }

int BpAppleiAP2Manager::getAccessoryIds(unsigned int* ids, unsigned int* count) {
    return call(rows::kGetAccessoryIds, ids, count);
}

const char* BpAppleiAP2Manager::getSupportFeature(unsigned int accId, const char* feature) {
    return call(rows::kGetSupportFeature, accId, feature);
}

int BpAppleiAP2Manager::start(unsigned int accId) { return call(rows::kStart, accId); }

int BpAppleiAP2Manager::stop(unsigned int accId) { return call(rows::kStop, accId); }

int BpAppleiAP2Manager::getAPPIds(unsigned int accId, const char** appIds, unsigned int* count) {
    return call(rows::kGetAPPIds, accId, appIds, count);
}

int BpAppleiAP2Manager::launchAPP(unsigned int accId, const char* appId, AppLaunchMethod method) {
    return call(rows::kLaunchAPP, accId, appId, method);
}

int BpAppleiAP2Manager::startHID(unsigned int accId) { return call(rows::kStartHID, accId); }

int BpAppleiAP2Manager::dispatchMediaPlaybackRemoteEvent(unsigned int accId, unsigned int value1,
                                                         unsigned int value2) {
    return call(rows::kDispatchMediaPlaybackRemoteEvent, accId, value1, value2);
}

int BpAppleiAP2Manager::stopHID(unsigned int accId) { return call(rows::kStopHID, accId); }

int BpAppleiAP2Manager::startHID(unsigned int accId, HIDReportAttributes* attributes) {
    return call(rows::kStartHIDWithAttributes, accId, attributes);
}

int BpAppleiAP2Manager::accHIDReport(unsigned int accId, unsigned char* report, int len) {
    return call(rows::kAccHIDReport, accId, report, len);
}

int BpAppleiAP2Manager::updateLocation(unsigned int accId, const unsigned char* data, int len) {
    return call(rows::kUpdateLocation, accId, data, len);
}

int BpAppleiAP2Manager::OOBBTPAccInfo(unsigned int accId, int value) {
    return call(rows::kOOBBTPAccInfo, accId, value);
}

int BpAppleiAP2Manager::OOBBTPCompletionInfo(unsigned int accId, int value) {
    return call(rows::kOOBBTPCompletionInfo, accId, value);
}

int BpAppleiAP2Manager::startMediaLibInformation(unsigned int accId) {
    return call(rows::kStartMediaLibInformation, accId);
}

int BpAppleiAP2Manager::stopMediaLibInformation(unsigned int accId) {
    return call(rows::kStopMediaLibInformation, accId);
}

int BpAppleiAP2Manager::startMediaLibUpdates(unsigned int accId, const char* first,
                                             android::sp<MediaLibDataMask>& dataMask,
                                             android::sp<MediaItemMask>& itemMask,
                                             android::sp<MediaPlaylistMask>& playlistMask, const char* last) {
    return call(rows::kStartMediaLibUpdatesByMasks, accId, first, dataMask, itemMask, playlistMask, last);
}

int BpAppleiAP2Manager::startMediaLibUpdates(unsigned int accId, android::sp<MediaLibUpdateInfo>& info) {
    return call(rows::kStartMediaLibUpdates, accId, info);
}

int BpAppleiAP2Manager::stopMediaLibUpdates(unsigned int accId, const char* libraryId) {
    return call(rows::kStopMediaLibUpdates, accId, libraryId);
}

int BpAppleiAP2Manager::playMediaLibCurrentSelection(unsigned int accId, const char* libraryId) {
    return call(rows::kPlayMediaLibCurrentSelection, accId, libraryId);
}

int BpAppleiAP2Manager::playMediaLibItems(unsigned int accId, const char* libraryId,
                                          unsigned long long* itemIds, int count, int value) {
    return call(rows::kPlayMediaLibItems, accId, libraryId, itemIds, count, value);
}

int BpAppleiAP2Manager::playMediaLibCollection(unsigned int accId, const char* libraryId,
                                               unsigned long long collectionId, MediaLibCollectionType type,
                                               int value) {
    return call(rows::kPlayMediaLibCollection, accId, libraryId, collectionId, type, value);
}

int BpAppleiAP2Manager::playMediaLibSpecial(unsigned int accId, const char* libraryId, int value) {
    return call(rows::kPlayMediaLibSpecial, accId, libraryId, value);
}

int BpAppleiAP2Manager::startNowPlayingUpdate(unsigned int accId,
                                              android::sp<iAP2ItemAttributeMask>& attributeMask,
                                              android::sp<iAP2MediaPlaybackMask>& playbackMask) {
    return call(rows::kStartNowPlayingUpdate, accId, attributeMask, playbackMask);
}

int BpAppleiAP2Manager::stopNowPlayingUpdate(unsigned int accId) {
    return call(rows::kStopNowPlayingUpdate, accId);
}

int BpAppleiAP2Manager::setNowPlayingInfo(unsigned int accId, unsigned int value1, unsigned int value2) {
    return call(rows::kSetNowPlayingInfo, accId, value1, value2);
}

int BpAppleiAP2Manager::startPowerUpdate(unsigned int accId, android::sp<iAP2PowerUpdateMask>& powerMask) {
    return call(rows::kStartPowerUpdate, accId, powerMask);
}

int BpAppleiAP2Manager::stopPowerUpdate(unsigned int accId) { return call(rows::kStopPowerUpdate, accId); }

int BpAppleiAP2Manager::powerSourceUpdate(unsigned int accId, unsigned int value, bool flag) {
    return call(rows::kPowerSourceUpdate, accId, value, flag);
}

int BpAppleiAP2Manager::startUSBDeviceModeAudio(unsigned int accId) {
    return call(rows::kStartUSBDeviceModeAudio, accId);
}

int BpAppleiAP2Manager::stopUSBDeviceModeAudio(unsigned int accId) {
    return call(rows::kStopUSBDeviceModeAudio, accId);
}

int BpAppleiAP2Manager::requestWiFiInformation(unsigned int accId) {
    return call(rows::kRequestWiFiInformation, accId);
}

int BpAppleiAP2Manager::accessoryWiFiConfigInforamtion(unsigned int accId, const char* ssid,
                                                       const char* passphrase, WiFiSecurityType securityType,
                                                       unsigned char channel) {
    return call(rows::kAccessoryWiFiConfigInforamtion, accId, ssid, passphrase, securityType, channel);
}

int BpAppleiAP2Manager::getEASessionCount(unsigned int accId) {
    return call(rows::kGetEASessionCount, accId);
}

int BpAppleiAP2Manager::getEASessionId(unsigned int accId, int index, int* first, int* second) {
    return call(rows::kGetEASessionId, accId, index, first, second);
}

int BpAppleiAP2Manager::registerEASessionChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                                 unsigned int value3) {
    return call(rows::kRegisterEASessionChannel, accId, value1, value2, value3);
}

int BpAppleiAP2Manager::unregisterEASessionChannel(unsigned int accId, unsigned int value1,
                                                   unsigned int value2, unsigned int value3) {
    return call(rows::kUnregisterEASessionChannel, accId, value1, value2, value3);
}

int BpAppleiAP2Manager::EASessionSendDataReady(unsigned int accId, unsigned int value1, unsigned int value2) {
    return call(rows::kEASessionSendDataReady, accId, value1, value2);
}

int BpAppleiAP2Manager::updateEAPStatus(unsigned int accId, unsigned int value1, unsigned int value2) {
    return call(rows::kUpdateEAPStatus, accId, value1, value2);
}

int BpAppleiAP2Manager::fileTransferRecvInit(unsigned int accId, unsigned int transferId,
                                             unsigned long long value) {
    return call(rows::kFileTransferRecvInit, accId, transferId, value);
}

int BpAppleiAP2Manager::fileTransferRecvStart(unsigned int accId, unsigned int transferId) {
    return call(rows::kFileTransferRecvStart, accId, transferId);
}

int BpAppleiAP2Manager::fileTransferRecvPause(unsigned int accId, unsigned int transferId) {
    return call(rows::kFileTransferRecvPause, accId, transferId);
}

int BpAppleiAP2Manager::fileTransferRecvCancel(unsigned int accId, unsigned int transferId) {
    return call(rows::kFileTransferRecvCancel, accId, transferId);
}

int BpAppleiAP2Manager::registerFileTransferChannel(unsigned int accId, unsigned int value1,
                                                    unsigned int value2, unsigned int value3) {
    return call(rows::kRegisterFileTransferChannel, accId, value1, value2, value3);
}

int BpAppleiAP2Manager::unregisterFileTransferChannel(unsigned int accId, unsigned int value1,
                                                      unsigned int value2, unsigned int value3) {
    return call(rows::kUnregisterFileTransferChannel, accId, value1, value2, value3);
}

int BpAppleiAP2Manager::BTComponentInformation(unsigned int accId, BTComInfo_s* infos, unsigned int count) {
    return call(rows::kBTComponentInformation, accId, infos, count);
}

int BpAppleiAP2Manager::StartBTConnectionUpdate(unsigned int accId, unsigned int* ids, unsigned int count) {
    return call(rows::kStartBTConnectionUpdate, accId, ids, count);
}

int BpAppleiAP2Manager::StopBTConnectionUpdate(unsigned int accId) {
    return call(rows::kStopBTConnectionUpdate, accId);
}

int BpAppleiAP2Manager::StartRouteGuidanceUpdate(unsigned int accId, int* ids, int count,
                                                 unsigned int value) {
    return call(rows::kStartRouteGuidanceUpdate, accId, ids, count, value);
}

int BpAppleiAP2Manager::StopRouteGuidanceUpdate(unsigned int accId, int* ids, int count) {
    return call(rows::kStopRouteGuidanceUpdate, accId, ids, count);
}

int BpAppleiAP2Manager::StartAppDiscoveryUpdates(unsigned int accId, unsigned int value1,
                                                 unsigned short value2, unsigned short value3,
                                                 unsigned int value4, unsigned short value5) {
    return call(rows::kStartAppDiscoveryUpdates, accId, value1, value2, value3, value4, value5);
}

int BpAppleiAP2Manager::StopAppDiscoveryUpdates(unsigned int accId) {
    return call(rows::kStopAppDiscoveryUpdates, accId);
}

int BpAppleiAP2Manager::RequestAppDiscoveryAppIcons(unsigned int accId, const char* bundleId) {
    return call(rows::kRequestAppDiscoveryAppIcons, accId, bundleId);
}

int BpAppleiAP2Manager::StartCallStateUpdates(unsigned int accId, const StartCallStateUpdateParam& param) {
    return call(rows::kStartCallStateUpdates, accId, param);
}

int BpAppleiAP2Manager::StopCallStateUpdates(unsigned int accId) {
    return call(rows::kStopCallStateUpdates, accId);
}

int BpAppleiAP2Manager::StartCommunicationsUpdates(unsigned int accId,
                                                   const StartCommunicationsUpdatesParam* param) {
    return call(rows::kStartCommunicationsUpdates, accId, param);
}

int BpAppleiAP2Manager::StopCommunicationsUpdates(unsigned int accId) {
    return call(rows::kStopCommunicationsUpdates, accId);
}

int BpAppleiAP2Manager::AcceptCall(unsigned int accId, int action, const char* callUuid) {
    return call(rows::kAcceptCall, accId, action, callUuid);
}

int BpAppleiAP2Manager::EndCall(unsigned int accId, int action, const char* callUuid) {
    return call(rows::kEndCall, accId, action, callUuid);
}

int BpAppleiAP2Manager::InitiateCall(unsigned int accId, InitiateCallParam* param) {
    return call(rows::kInitiateCall, accId, param);
}

int BpAppleiAP2Manager::SwapCalls(unsigned int accId) { return call(rows::kSwapCalls, accId); }

int BpAppleiAP2Manager::MergeCalls(unsigned int accId) { return call(rows::kMergeCalls, accId); }

int BpAppleiAP2Manager::HoldStatusUpdate(unsigned int accId, bool held, const char* callUuid) {
    return call(rows::kHoldStatusUpdate, accId, held, callUuid);
}

int BpAppleiAP2Manager::MuteStatusUpdate(unsigned int accId, bool muted) {
    return call(rows::kMuteStatusUpdate, accId, muted);
}

int BpAppleiAP2Manager::SendDTMF(unsigned int accId, int tone, const char* callUuid) {
    return call(rows::kSendDTMF, accId, tone, callUuid);
}

int BpAppleiAP2Manager::CarPlayStartSession(unsigned int accId, CPStartSessionWiredAttributes* wired,
                                            CPStartSessionWirelessAttributes* wireless, unsigned int value,
                                            const char* string1, const char* string2, const char* string3) {
    return call(rows::kCarPlayStartSession, accId, wired, wireless, value, string1, string2, string3);
}

int BpAppleiAP2Manager::BluetoothPairingAccessoryInformation(unsigned int accId, unsigned short value,
                                                             unsigned char (*block1)[16],
                                                             unsigned char (*block2)[16]) {
    return call(rows::kBluetoothPairingAccessoryInformation, accId, value, block1, block2);
}

int BpAppleiAP2Manager::BluetoothPairingStatus(unsigned int accId, unsigned short value1, unsigned int value2,
                                               const char* text) {
    return call(rows::kBluetoothPairingStatus, accId, value1, value2, text);
}

int BpAppleiAP2Manager::StartDestinationInformation(unsigned int accId, unsigned int value) {
    return call(rows::kStartDestinationInformation, accId, value);
}

int BpAppleiAP2Manager::StopDestinationInformation(unsigned int accId) {
    return call(rows::kStopDestinationInformation, accId);
}

int BpAppleiAP2Manager::DestinationInformationStatus(unsigned int accId, const char* text,
                                                     unsigned int value) {
    return call(rows::kDestinationInformationStatus, accId, text, value);
}

int BpAppleiAP2Manager::StartAssistiveTouch(unsigned int accId) {
    return call(rows::kStartAssistiveTouch, accId);
}

int BpAppleiAP2Manager::StopAssistiveTouch(unsigned int accId) {
    return call(rows::kStopAssistiveTouch, accId);
}

int BpAppleiAP2Manager::StartAssistiveTouchInformation(unsigned int accId) {
    return call(rows::kStartAssistiveTouchInformation, accId);
}

int BpAppleiAP2Manager::StopAssistiveTouchInformation(unsigned int accId) {
    return call(rows::kStopAssistiveTouchInformation, accId);
}

int BpAppleiAP2Manager::setProperty(AppleiAP2TransportMode mode, const std::string& key,
                                    const std::string& value) {
    return call(rows::kSetProperty, mode, key, value);
}

const char* BpAppleiAP2Manager::getVersion() { return call(rows::kGetVersion); }

int BpAppleiAP2Manager::CarPlayAvailableDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) {
    return call(rows::kCarPlayAvailableDigitalCarKeys, accId, keys);
}

}  // namespace accessory
