// The operations of BnAppleiAP2Manager that go straight to the implementation.
#include <accessory/IAppleiAP2Manager.h>
#include <android/log.h>

#include "common/Unit.h"

namespace accessory {

int BnAppleiAP2Manager::setName(const char* name) { return mImpl->setName(name); }

int BnAppleiAP2Manager::setSerialNumber(const char* serialNumber) {
    return mImpl->setSerialNumber(serialNumber);
}

int BnAppleiAP2Manager::setDisplayName(const char* displayName) { return mImpl->setDisplayName(displayName); }

int BnAppleiAP2Manager::setBluetoothAddr(unsigned char* addr, unsigned int len) {
    return mImpl->setBluetoothAddr(addr, len);
}

int BnAppleiAP2Manager::startup(AppleiAP2TransportMode mode) { return mImpl->startup(mode); }

int BnAppleiAP2Manager::shutdown(AppleiAP2TransportMode mode) { return mImpl->shutdown(mode); }

int BnAppleiAP2Manager::setConfigPath(AppleiAP2TransportMode mode, const char* path) {
    return mImpl->setConfigPath(mode, path);
}

int BnAppleiAP2Manager::getAccessoryIds(unsigned int* ids, unsigned int* count) {
    return mImpl->getAccessoryIds(ids, count);
}

const char* BnAppleiAP2Manager::getSupportFeature(unsigned int accId, const char* feature) {
    const char* const answer = mImpl->getSupportFeature(accId, feature);
    __android_log_print(ANDROID_LOG_INFO, kiAP2ManagerUnit.tag,
                        "getSupportFeature --> %s :", answer != nullptr ? answer : "(null)");
    return answer;
}

int BnAppleiAP2Manager::start(unsigned int accId) { return mImpl->start(accId); }

int BnAppleiAP2Manager::stop(unsigned int accId) { return mImpl->stop(accId); }

int BnAppleiAP2Manager::getAPPIds(unsigned int accId, const char** appIds, unsigned int* count) {
    return mImpl->getAPPIds(accId, appIds, count);
}

int BnAppleiAP2Manager::launchAPP(unsigned int accId, const char* appId, AppLaunchMethod method) {
    return mImpl->launchAPP(accId, appId, method);
}

int BnAppleiAP2Manager::startHID(unsigned int accId) { return mImpl->startHID(accId); }

int BnAppleiAP2Manager::dispatchMediaPlaybackRemoteEvent(unsigned int accId, unsigned int value1,
                                                         unsigned int value2) {
    return mImpl->dispatchMediaPlaybackRemoteEvent(accId, value1, value2);
}

int BnAppleiAP2Manager::stopHID(unsigned int accId) { return mImpl->stopHID(accId); }

int BnAppleiAP2Manager::startHID(unsigned int accId, HIDReportAttributes* attributes) {
    return mImpl->startHID(accId, attributes);
}

int BnAppleiAP2Manager::accHIDReport(unsigned int accId, unsigned char* report, int len) {
    return mImpl->accHIDReport(accId, report, len);
}

int BnAppleiAP2Manager::updateLocation(unsigned int accId, const unsigned char* data, int len) {
    return mImpl->updateLocation(accId, data, len);
}

int BnAppleiAP2Manager::OOBBTPAccInfo(unsigned int accId, int value) {
    return mImpl->OOBBTPAccInfo(accId, value);
}

int BnAppleiAP2Manager::OOBBTPCompletionInfo(unsigned int accId, int value) {
    return mImpl->OOBBTPCompletionInfo(accId, value);
}

int BnAppleiAP2Manager::startMediaLibInformation(unsigned int accId) {
    return mImpl->startMediaLibInformation(accId);
}

int BnAppleiAP2Manager::stopMediaLibInformation(unsigned int accId) {
    return mImpl->stopMediaLibInformation(accId);
}

int BnAppleiAP2Manager::startMediaLibUpdates(unsigned int accId, const char* first,
                                             android::sp<MediaLibDataMask>& dataMask,
                                             android::sp<MediaItemMask>& itemMask,
                                             android::sp<MediaPlaylistMask>& playlistMask, const char* last) {
    return mImpl->startMediaLibUpdates(accId, first, dataMask, itemMask, playlistMask, last);
}

int BnAppleiAP2Manager::startMediaLibUpdates(unsigned int accId, android::sp<MediaLibUpdateInfo>& info) {
    return mImpl->startMediaLibUpdates(accId, info);
}

int BnAppleiAP2Manager::stopMediaLibUpdates(unsigned int accId, const char* libraryId) {
    return mImpl->stopMediaLibUpdates(accId, libraryId);
}

int BnAppleiAP2Manager::playMediaLibCurrentSelection(unsigned int accId, const char* libraryId) {
    return mImpl->playMediaLibCurrentSelection(accId, libraryId);
}

int BnAppleiAP2Manager::playMediaLibItems(unsigned int accId, const char* libraryId,
                                          unsigned long long* itemIds, int count, int value) {
    return mImpl->playMediaLibItems(accId, libraryId, itemIds, count, value);
}

int BnAppleiAP2Manager::playMediaLibCollection(unsigned int accId, const char* libraryId,
                                               unsigned long long collectionId, MediaLibCollectionType type,
                                               int value) {
    return mImpl->playMediaLibCollection(accId, libraryId, collectionId, type, value);
}

int BnAppleiAP2Manager::playMediaLibSpecial(unsigned int accId, const char* libraryId, int value) {
    return mImpl->playMediaLibSpecial(accId, libraryId, value);
}

int BnAppleiAP2Manager::startNowPlayingUpdate(unsigned int accId,
                                              android::sp<iAP2ItemAttributeMask>& attributeMask,
                                              android::sp<iAP2MediaPlaybackMask>& playbackMask) {
    return mImpl->startNowPlayingUpdate(accId, attributeMask, playbackMask);
}

int BnAppleiAP2Manager::stopNowPlayingUpdate(unsigned int accId) {
    return mImpl->stopNowPlayingUpdate(accId);
}

int BnAppleiAP2Manager::setNowPlayingInfo(unsigned int accId, unsigned int value1, unsigned int value2) {
    return mImpl->setNowPlayingInfo(accId, value1, value2);
}

int BnAppleiAP2Manager::startPowerUpdate(unsigned int accId, android::sp<iAP2PowerUpdateMask>& powerMask) {
    return mImpl->startPowerUpdate(accId, powerMask);
}

int BnAppleiAP2Manager::stopPowerUpdate(unsigned int accId) { return mImpl->stopPowerUpdate(accId); }

int BnAppleiAP2Manager::powerSourceUpdate(unsigned int accId, unsigned int value, bool flag) {
    return mImpl->powerSourceUpdate(accId, value, flag);
}

int BnAppleiAP2Manager::startUSBDeviceModeAudio(unsigned int accId) {
    return mImpl->startUSBDeviceModeAudio(accId);
}

int BnAppleiAP2Manager::stopUSBDeviceModeAudio(unsigned int accId) {
    return mImpl->stopUSBDeviceModeAudio(accId);
}

int BnAppleiAP2Manager::requestWiFiInformation(unsigned int accId) {
    return mImpl->requestWiFiInformation(accId);
}

int BnAppleiAP2Manager::accessoryWiFiConfigInforamtion(unsigned int accId, const char* ssid,
                                                       const char* passphrase, WiFiSecurityType securityType,
                                                       unsigned char channel) {
    return mImpl->accessoryWiFiConfigInforamtion(accId, ssid, passphrase, securityType, channel);
}

int BnAppleiAP2Manager::getEASessionCount(unsigned int accId) { return mImpl->getEASessionCount(accId); }

int BnAppleiAP2Manager::getEASessionId(unsigned int accId, int index, int* first, int* second) {
    return mImpl->getEASessionId(accId, index, first, second);
}

int BnAppleiAP2Manager::registerEASessionChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                                 unsigned int value3) {
    return mImpl->registerEASessionChannel(accId, value1, value2, value3);
}

int BnAppleiAP2Manager::unregisterEASessionChannel(unsigned int accId, unsigned int value1,
                                                   unsigned int value2, unsigned int value3) {
    return mImpl->unregisterEASessionChannel(accId, value1, value2, value3);
}

int BnAppleiAP2Manager::EASessionSendDataReady(unsigned int accId, unsigned int value1, unsigned int value2) {
    return mImpl->EASessionSendDataReady(accId, value1, value2);
}

int BnAppleiAP2Manager::updateEAPStatus(unsigned int accId, unsigned int value1, unsigned int value2) {
    return mImpl->updateEAPStatus(accId, value1, value2);
}

int BnAppleiAP2Manager::fileTransferRecvInit(unsigned int accId, unsigned int transferId,
                                             unsigned long long value) {
    return mImpl->fileTransferRecvInit(accId, transferId, value);
}

int BnAppleiAP2Manager::fileTransferRecvStart(unsigned int accId, unsigned int transferId) {
    return mImpl->fileTransferRecvStart(accId, transferId);
}

int BnAppleiAP2Manager::fileTransferRecvPause(unsigned int accId, unsigned int transferId) {
    return mImpl->fileTransferRecvPause(accId, transferId);
}

int BnAppleiAP2Manager::fileTransferRecvCancel(unsigned int accId, unsigned int transferId) {
    return mImpl->fileTransferRecvCancel(accId, transferId);
}

int BnAppleiAP2Manager::registerFileTransferChannel(unsigned int accId, unsigned int value1,
                                                    unsigned int value2, unsigned int value3) {
    return mImpl->registerFileTransferChannel(accId, value1, value2, value3);
}

int BnAppleiAP2Manager::unregisterFileTransferChannel(unsigned int accId, unsigned int value1,
                                                      unsigned int value2, unsigned int value3) {
    return mImpl->unregisterFileTransferChannel(accId, value1, value2, value3);
}

int BnAppleiAP2Manager::BTComponentInformation(unsigned int accId, BTComInfo_s* infos, unsigned int count) {
    return mImpl->BTComponentInformation(accId, infos, count);
}

int BnAppleiAP2Manager::StartBTConnectionUpdate(unsigned int accId, unsigned int* ids, unsigned int count) {
    return mImpl->StartBTConnectionUpdate(accId, ids, count);
}

int BnAppleiAP2Manager::StopBTConnectionUpdate(unsigned int accId) {
    return mImpl->StopBTConnectionUpdate(accId);
}

int BnAppleiAP2Manager::StartRouteGuidanceUpdate(unsigned int accId, int* ids, int count,
                                                 unsigned int value) {
    return mImpl->StartRouteGuidanceUpdate(accId, ids, count, value);
}

int BnAppleiAP2Manager::StopRouteGuidanceUpdate(unsigned int accId, int* ids, int count) {
    return mImpl->StopRouteGuidanceUpdate(accId, ids, count);
}

int BnAppleiAP2Manager::StartAppDiscoveryUpdates(unsigned int accId, unsigned int value1,
                                                 unsigned short value2, unsigned short value3,
                                                 unsigned int value4, unsigned short value5) {
    return mImpl->StartAppDiscoveryUpdates(accId, value1, value2, value3, value4, value5);
}

int BnAppleiAP2Manager::StopAppDiscoveryUpdates(unsigned int accId) {
    return mImpl->StopAppDiscoveryUpdates(accId);
}

int BnAppleiAP2Manager::RequestAppDiscoveryAppIcons(unsigned int accId, const char* bundleId) {
    return mImpl->RequestAppDiscoveryAppIcons(accId, bundleId);
}

int BnAppleiAP2Manager::StartCallStateUpdates(unsigned int accId, const StartCallStateUpdateParam& param) {
    return mImpl->StartCallStateUpdates(accId, param);
}

int BnAppleiAP2Manager::StopCallStateUpdates(unsigned int accId) {
    return mImpl->StopCallStateUpdates(accId);
}

int BnAppleiAP2Manager::StartCommunicationsUpdates(unsigned int accId,
                                                   const StartCommunicationsUpdatesParam* param) {
    return mImpl->StartCommunicationsUpdates(accId, param);
}

int BnAppleiAP2Manager::StopCommunicationsUpdates(unsigned int accId) {
    return mImpl->StopCommunicationsUpdates(accId);
}

int BnAppleiAP2Manager::AcceptCall(unsigned int accId, int action, const char* callUuid) {
    return mImpl->AcceptCall(accId, action, callUuid);
}

int BnAppleiAP2Manager::EndCall(unsigned int accId, int action, const char* callUuid) {
    return mImpl->EndCall(accId, action, callUuid);
}

int BnAppleiAP2Manager::InitiateCall(unsigned int accId, InitiateCallParam* param) {
    return mImpl->InitiateCall(accId, param);
}

int BnAppleiAP2Manager::SwapCalls(unsigned int accId) { return mImpl->SwapCalls(accId); }

int BnAppleiAP2Manager::MergeCalls(unsigned int accId) { return mImpl->MergeCalls(accId); }

int BnAppleiAP2Manager::HoldStatusUpdate(unsigned int accId, bool held, const char* callUuid) {
    return mImpl->HoldStatusUpdate(accId, held, callUuid);
}

int BnAppleiAP2Manager::MuteStatusUpdate(unsigned int accId, bool muted) {
    return mImpl->MuteStatusUpdate(accId, muted);
}

int BnAppleiAP2Manager::SendDTMF(unsigned int accId, int tone, const char* callUuid) {
    return mImpl->SendDTMF(accId, tone, callUuid);
}

int BnAppleiAP2Manager::CarPlayStartSession(unsigned int accId, CPStartSessionWiredAttributes* wired,
                                            CPStartSessionWirelessAttributes* wireless, unsigned int value,
                                            const char* string1, const char* string2, const char* string3) {
    return mImpl->CarPlayStartSession(accId, wired, wireless, value, string1, string2, string3);
}

int BnAppleiAP2Manager::BluetoothPairingAccessoryInformation(unsigned int accId, unsigned short value,
                                                             unsigned char (*block1)[16],
                                                             unsigned char (*block2)[16]) {
    return mImpl->BluetoothPairingAccessoryInformation(accId, value, block1, block2);
}

int BnAppleiAP2Manager::BluetoothPairingStatus(unsigned int accId, unsigned short value1, unsigned int value2,
                                               const char* text) {
    return mImpl->BluetoothPairingStatus(accId, value1, value2, text);
}

int BnAppleiAP2Manager::StartDestinationInformation(unsigned int accId, unsigned int value) {
    return mImpl->StartDestinationInformation(accId, value);
}

int BnAppleiAP2Manager::StopDestinationInformation(unsigned int accId) {
    return mImpl->StopDestinationInformation(accId);
}

int BnAppleiAP2Manager::DestinationInformationStatus(unsigned int accId, const char* text,
                                                     unsigned int value) {
    return mImpl->DestinationInformationStatus(accId, text, value);
}

int BnAppleiAP2Manager::StartAssistiveTouch(unsigned int accId) { return mImpl->StartAssistiveTouch(accId); }

int BnAppleiAP2Manager::StopAssistiveTouch(unsigned int accId) { return mImpl->StopAssistiveTouch(accId); }

int BnAppleiAP2Manager::StartAssistiveTouchInformation(unsigned int accId) {
    return mImpl->StartAssistiveTouchInformation(accId);
}

int BnAppleiAP2Manager::StopAssistiveTouchInformation(unsigned int accId) {
    return mImpl->StopAssistiveTouchInformation(accId);
}

int BnAppleiAP2Manager::setProperty(AppleiAP2TransportMode mode, const std::string& key,
                                    const std::string& value) {
    return mImpl->setProperty(mode, key, value);
}

const char* BnAppleiAP2Manager::getVersion() { return mImpl->getVersion(); }

int BnAppleiAP2Manager::CarPlayAvailableDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) {
    return mImpl->CarPlayAvailableDigitalCarKeys(accId, keys);
}

}  // namespace accessory
