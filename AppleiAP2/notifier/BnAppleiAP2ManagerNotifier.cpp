#include <accessory/IAPAutoTrace.h>
#include <accessory/IAppleiAP2ManagerNotifier.h>
#include <android/log.h>

#include "AppleiAP2/notifier/NotifierRows.h"
#include "common/DestructorTrace.h"

namespace accessory {

namespace rows = wire::iap2_notifier;

namespace {

constexpr const Unit& kUnit = kiAP2NotifierUnit;

void logEnter(const char* operation) {
    __android_log_print(ANDROID_LOG_DEBUG, kUnit.tag, "%s enter", operation);
}

}  // namespace

BnAppleiAP2ManagerNotifier::BnAppleiAP2ManagerNotifier(
    const android::sp<AppleiAP2ManagerNotifierImplItf>& impl)
    : mImpl(impl) {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "BnAppleiAP2ManagerNotifier");
    ACCESSORY_ASSERT(kUnit, impl.get());
}

BnAppleiAP2ManagerNotifier::~BnAppleiAP2ManagerNotifier() {
    const DestructorTrace trace(kUnit, "~BnAppleiAP2ManagerNotifier");
}

android::status_t BnAppleiAP2ManagerNotifier::onTransact(uint32_t code, const android::Parcel& data,
                                                         android::Parcel* reply, uint32_t flags) {
    const auto status = wire::dispatch<rows::kRows>(rows::kManners, *this, code, data, reply);
    return status.has_value() ? *status : android::BBinder::onTransact(code, data, reply, flags);
}

int BnAppleiAP2ManagerNotifier::notify(unsigned int accId, unsigned int event) {
    logEnter("notify");
    return mImpl->notify(accId, event);
}

int BnAppleiAP2ManagerNotifier::attach(unsigned int accId) {
    logEnter("attach");
    return mImpl->attach(accId);
}

int BnAppleiAP2ManagerNotifier::detach(unsigned int accId) {
    logEnter("detach");
    return mImpl->detach(accId);
}

int BnAppleiAP2ManagerNotifier::deviceInfoUpdate(unsigned int accId, const char* info) {
    logEnter("deviceInfoUpdate");
    return mImpl->deviceInfoUpdate(accId, info);
}

int BnAppleiAP2ManagerNotifier::deviceLanguageUpdate(unsigned int accId, const char* language) {
    logEnter("deviceLanguageUpdate");
    return mImpl->deviceLanguageUpdate(accId, language);
}

int BnAppleiAP2ManagerNotifier::deviceTimeUpdate(unsigned int accId, unsigned long long time, short value16,
                                                 signed char value8) {
    logEnter("deviceTimeUpdate");
    return mImpl->deviceTimeUpdate(accId, time, value16, value8);
}

int BnAppleiAP2ManagerNotifier::deviceUUIDUpdate(unsigned int accId, const char* uuid) {
    logEnter("deviceUUIDUpdate");
    return mImpl->deviceUUIDUpdate(accId, uuid);
}

int BnAppleiAP2ManagerNotifier::wirelessCPStateUpdate(unsigned int accId, int state) {
    logEnter("wirelessCPStateUpdate");
    return mImpl->wirelessCPStateUpdate(accId, state);
}

int BnAppleiAP2ManagerNotifier::DeviceTransportIdentifierNotification(unsigned int accId, const char* first,
                                                                      const char* second) {
    logEnter("DeviceTransportIdentifierNotification");
    return mImpl->DeviceTransportIdentifierNotification(accId, first, second);
}

int BnAppleiAP2ManagerNotifier::deviceHIDReport(unsigned int accId, int component, void* report, int length) {
    logEnter("deviceHIDReport");
    return mImpl->deviceHIDReport(accId, component, report, length);
}

int BnAppleiAP2ManagerNotifier::hidComponentUpdate(unsigned int accId, unsigned short componentId,
                                                   bool enabled) {
    logEnter("hidComponentUpdate");
    return mImpl->hidComponentUpdate(accId, componentId, enabled);
}

int BnAppleiAP2ManagerNotifier::startLocation(unsigned int accId, unsigned int value1, int value2) {
    logEnter("startLocation");
    return mImpl->startLocation(accId, value1, value2);
}

int BnAppleiAP2ManagerNotifier::stopLocation(unsigned int accId) {
    logEnter("stopLocation");
    return mImpl->stopLocation(accId);
}

int BnAppleiAP2ManagerNotifier::mediaLibInfoUpdate(unsigned int accId, const char* name, const char* uid,
                                                   MediaLibType type) {
    logEnter("mediaLibInfoUpdate");
    return mImpl->mediaLibInfoUpdate(accId, name, uid, type);
}

// Neither logged nor handed on as it came: the implementation gets a strong reference of its own.
int BnAppleiAP2ManagerNotifier::mediaLibUpdateDataReady(unsigned int accId,
                                                        android::sp<iAP2MediaLibData> data) {
    return mImpl->mediaLibUpdateDataReady(accId, android::sp<iAP2MediaLibData>(data));
}

int BnAppleiAP2ManagerNotifier::nowPlayingUpdate(unsigned int accId,
                                                 const android::sp<iAP2ItemAttribute>& attribute,
                                                 const android::sp<iAP2MediaPlayback>& playback) {
    logEnter("nowPlayingUpdate");
    return mImpl->nowPlayingUpdate(accId, attribute, playback);
}

int BnAppleiAP2ManagerNotifier::powerUpdate(unsigned int accId, const android::sp<iAP2PowerUpdate>& power) {
    logEnter("powerUpdate");
    return mImpl->powerUpdate(accId, power);
}

int BnAppleiAP2ManagerNotifier::USBDeviceModeAudioInfo(unsigned int accId, unsigned int value) {
    logEnter("USBDeviceModeAudioInfo");
    return mImpl->USBDeviceModeAudioInfo(accId, value);
}

int BnAppleiAP2ManagerNotifier::WiFiInformation(unsigned int accId, requestWiFiStatues status,
                                                const char* first, const char* second) {
    logEnter("WiFiInformation");
    return mImpl->WiFiInformation(accId, status, first, second);
}

int BnAppleiAP2ManagerNotifier::requestAccWiFiConfigInfo(unsigned int accId) {
    logEnter("requestAccWiFiConfigInfo");
    return mImpl->requestAccWiFiConfigInfo(accId);
}

int BnAppleiAP2ManagerNotifier::EASessionStart(unsigned int accId, int protocolId, int sessionId) {
    logEnter("EASessionStart");
    return mImpl->EASessionStart(accId, protocolId, sessionId);
}

int BnAppleiAP2ManagerNotifier::EASessionStop(unsigned int accId, int sessionId) {
    logEnter("EASessionStop");
    return mImpl->EASessionStop(accId, sessionId);
}

int BnAppleiAP2ManagerNotifier::EASessionRecvDataReady(unsigned int accId, int sessionId, int length) {
    logEnter("EASessionRecvDataReady");
    return mImpl->EASessionRecvDataReady(accId, sessionId, length);
}

int BnAppleiAP2ManagerNotifier::fileTransferSetup(unsigned int accId, FileTransferSetup* setup) {
    logEnter("fileTransferSetup");
    return mImpl->fileTransferSetup(accId, setup);
}

int BnAppleiAP2ManagerNotifier::fileTransferStart(unsigned int accId, unsigned int transferId) {
    logEnter("fileTransferStart");
    return mImpl->fileTransferStart(accId, transferId);
}

int BnAppleiAP2ManagerNotifier::fileTransferPause(unsigned int accId, unsigned int transferId) {
    logEnter("fileTransferPause");
    return mImpl->fileTransferPause(accId, transferId);
}

int BnAppleiAP2ManagerNotifier::fileTransferCancel(unsigned int accId, unsigned int transferId) {
    logEnter("fileTransferCancel");
    return mImpl->fileTransferCancel(accId, transferId);
}

int BnAppleiAP2ManagerNotifier::fileTransferRecvFinish(unsigned int accId, unsigned int transferId) {
    logEnter("fileTransferRecvFinish");
    return mImpl->fileTransferRecvFinish(accId, transferId);
}

int BnAppleiAP2ManagerNotifier::startOOBBTP(unsigned int accId) {
    logEnter("startOOBBTP");
    return mImpl->startOOBBTP(accId);
}

int BnAppleiAP2ManagerNotifier::OOBBTPLinkKeyInfo(unsigned int accId, unsigned char* key,
                                                  unsigned int keyLength, unsigned char* mac,
                                                  unsigned int macLength) {
    logEnter("OOBBTPLinkKeyInfo");
    return mImpl->OOBBTPLinkKeyInfo(accId, key, keyLength, mac, macLength);
}

int BnAppleiAP2ManagerNotifier::stopOOBBTP(unsigned int accId) {
    logEnter("stopOOBBTP");
    return mImpl->stopOOBBTP(accId);
}

int BnAppleiAP2ManagerNotifier::BTConnectionUpdate(unsigned int accId, unsigned int a, unsigned int b) {
    logEnter("BTConnectionUpdate");
    return mImpl->BTConnectionUpdate(accId, a, b);
}

int BnAppleiAP2ManagerNotifier::RouteGuidanceUpdates(unsigned int accId,
                                                     const android::sp<RouteGuidaceUpdateInfo>& info) {
    logEnter("RouteGuidanceUpdates");
    return mImpl->RouteGuidanceUpdates(accId, info);
}

int BnAppleiAP2ManagerNotifier::RouteGuidanceManeuverUpdates(
    unsigned int accId, const android::sp<RuoteGuidanceManeuverUpdateInfo>& info) {
    logEnter("RouteGuidanceManeuverUpdates");
    return mImpl->RouteGuidanceManeuverUpdates(accId, info);
}

int BnAppleiAP2ManagerNotifier::LaneGuidanceInformation(unsigned int accId,
                                                        const android::sp<LaneGuidanceInfo>& info) {
    logEnter("LaneGuidanceInformation");
    return mImpl->LaneGuidanceInformation(accId, info);
}

int BnAppleiAP2ManagerNotifier::AppDiscoveryUpdate(unsigned int accId, unsigned int first,
                                                   AppleAppList* list1, unsigned short count1,
                                                   unsigned int second, AppleAppList* list2,
                                                   unsigned short count2) {
    logEnter("AppDiscoveryUpdate");
    return mImpl->AppDiscoveryUpdate(accId, first, list1, count1, second, list2, count2);
}

int BnAppleiAP2ManagerNotifier::AppDiscoveryAppIcon(unsigned int accId, const char* appId, bool flag,
                                                    unsigned char kind, char* icon, unsigned int iconLength) {
    logEnter("AppDiscoveryAppIcon");
    return mImpl->AppDiscoveryAppIcon(accId, appId, flag, kind, icon, iconLength);
}

int BnAppleiAP2ManagerNotifier::CallStateUpdate(unsigned int accId, CallStateUpdateParam& param) {
    logEnter("CallStateUpdate");
    return mImpl->CallStateUpdate(accId, param);
}

int BnAppleiAP2ManagerNotifier::CommunicationsUpdate(unsigned int accId, CommunicationsUpdateParam* param) {
    logEnter("CommunicationsUpdate");
    return mImpl->CommunicationsUpdate(accId, param);
}

int BnAppleiAP2ManagerNotifier::CarPlayAvailability(unsigned int accId, CPAvailabilityWiredAttributes* wired,
                                                    CPAvailabilityWirelessAttributes* wireless) {
    logEnter("CarPlayAvailability");
    return mImpl->CarPlayAvailability(accId, wired, wireless);
}

int BnAppleiAP2ManagerNotifier::StartBluetoothPairing(unsigned int accId, unsigned short id,
                                                      unsigned char* mac) {
    logEnter("StartBluetoothPairing");
    return mImpl->StartBluetoothPairing(accId, id, mac);
}

int BnAppleiAP2ManagerNotifier::StopBluetoothPairing(unsigned int accId, unsigned short id,
                                                     unsigned int result) {
    logEnter("StopBluetoothPairing");
    return mImpl->StopBluetoothPairing(accId, id, result);
}

int BnAppleiAP2ManagerNotifier::DestinationInformation(unsigned int accId, const DestinationInfo* info) {
    logEnter("DestinationInformation");
    return mImpl->DestinationInformation(accId, info);
}

int BnAppleiAP2ManagerNotifier::AssistiveTouchInformation(unsigned int accId, bool enabled) {
    logEnter("AssistiveTouchInformation");
    return mImpl->AssistiveTouchInformation(accId, enabled);
}

int BnAppleiAP2ManagerNotifier::CarPlayMatchedDigitalCarKeys(unsigned int accId,
                                                             std::vector<std::string>& keys) {
    logEnter("CarPlayMatchedDigitalCarKeys");
    return mImpl->CarPlayMatchedDigitalCarKeys(accId, keys);
}

}  // namespace accessory
