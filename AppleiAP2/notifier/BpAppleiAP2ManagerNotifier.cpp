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
    __android_log_print(ANDROID_LOG_DEBUG, kUnit.tag, "BpAppleiAP2ManagerNotifier %s enter", operation);
}

int logOut(const char* operation, int result) {
    __android_log_print(ANDROID_LOG_DEBUG, kUnit.tag, "%s out", operation);
    return result;
}

}  // namespace

BpAppleiAP2ManagerNotifier::BpAppleiAP2ManagerNotifier(const android::sp<android::IBinder>& impl)
    : android::BpInterface<IAppleiAP2ManagerNotifier>(impl) {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "BpAppleiAP2ManagerNotifier");
}

BpAppleiAP2ManagerNotifier::~BpAppleiAP2ManagerNotifier() {
    const DestructorTrace trace(kUnit, "~BpAppleiAP2ManagerNotifier");
}

template <typename Row, typename... Arguments>
int BpAppleiAP2ManagerNotifier::call(const Row& row, const Arguments&... arguments) {
    return wire::call(rows::kManners, row, getInterfaceDescriptor(), remote(), arguments...);
}

int BpAppleiAP2ManagerNotifier::notify(unsigned int accId, unsigned int event) {
    logEnter("notify");
    const auto logStep = [](int line) {
        __android_log_print(ANDROID_LOG_DEBUG, kUnit.tag, "BpAppleiAP2ManagerNotifier %s %d", "notify", line);
    };
    logStep(__LINE__);
    const int result = call(rows::kNotify, accId, event);
    logStep(__LINE__);
    return result;
}

int BpAppleiAP2ManagerNotifier::attach(unsigned int accId) {
    logEnter("attach");
    return call(rows::kAttach, accId);
}

int BpAppleiAP2ManagerNotifier::detach(unsigned int accId) {
    logEnter("detach");
    return call(rows::kDetach, accId);
}

int BpAppleiAP2ManagerNotifier::deviceInfoUpdate(unsigned int accId, const char* info) {
    return call(rows::kDeviceInfoUpdate, accId, info);
}

int BpAppleiAP2ManagerNotifier::deviceLanguageUpdate(unsigned int accId, const char* language) {
    return call(rows::kDeviceLanguageUpdate, accId, language);
}

int BpAppleiAP2ManagerNotifier::deviceTimeUpdate(unsigned int accId, unsigned long long time, short value16,
                                                 signed char value8) {
    return call(rows::kDeviceTimeUpdate, accId, time, value16, value8);
}

int BpAppleiAP2ManagerNotifier::deviceUUIDUpdate(unsigned int accId, const char* uuid) {
    return call(rows::kDeviceUUIDUpdate, accId, uuid);
}

int BpAppleiAP2ManagerNotifier::wirelessCPStateUpdate(unsigned int accId, int state) {
    return call(rows::kWirelessCPStateUpdate, accId, state);
}

int BpAppleiAP2ManagerNotifier::DeviceTransportIdentifierNotification(unsigned int accId, const char* first,
                                                                      const char* second) {
    return call(rows::kDeviceTransportIdentifierNotification, accId, first, second);
}

int BpAppleiAP2ManagerNotifier::deviceHIDReport(unsigned int accId, int component, void* report, int length) {
    return call(rows::kDeviceHIDReport, accId, component, report, length);
}

int BpAppleiAP2ManagerNotifier::hidComponentUpdate(unsigned int accId, unsigned short componentId,
                                                   bool enabled) {
    return call(rows::kHidComponentUpdate, accId, componentId, enabled);
}

int BpAppleiAP2ManagerNotifier::startLocation(unsigned int accId, unsigned int value1, int value2) {
    return call(rows::kStartLocation, accId, value1, value2);
}

int BpAppleiAP2ManagerNotifier::stopLocation(unsigned int accId) { return call(rows::kStopLocation, accId); }

int BpAppleiAP2ManagerNotifier::mediaLibInfoUpdate(unsigned int accId, const char* name, const char* uid,
                                                   MediaLibType type) {
    return call(rows::kMediaLibInfoUpdate, accId, name, uid, type);
}

int BpAppleiAP2ManagerNotifier::mediaLibUpdateDataReady(unsigned int accId,
                                                        android::sp<iAP2MediaLibData> data) {
    return call(rows::kMediaLibUpdateDataReady, accId, data);
}

int BpAppleiAP2ManagerNotifier::nowPlayingUpdate(unsigned int accId,
                                                 const android::sp<iAP2ItemAttribute>& attribute,
                                                 const android::sp<iAP2MediaPlayback>& playback) {
    return call(rows::kNowPlayingUpdate, accId, attribute, playback);
}

int BpAppleiAP2ManagerNotifier::powerUpdate(unsigned int accId, const android::sp<iAP2PowerUpdate>& power) {
    return call(rows::kPowerUpdate, accId, power);
}

int BpAppleiAP2ManagerNotifier::USBDeviceModeAudioInfo(unsigned int accId, unsigned int value) {
    return call(rows::kUSBDeviceModeAudioInfo, accId, value);
}

int BpAppleiAP2ManagerNotifier::WiFiInformation(unsigned int accId, requestWiFiStatues status,
                                                const char* first, const char* second) {
    return call(rows::kWiFiInformation, accId, status, first, second);
}

int BpAppleiAP2ManagerNotifier::requestAccWiFiConfigInfo(unsigned int accId) {
    return call(rows::kRequestAccWiFiConfigInfo, accId);
}

int BpAppleiAP2ManagerNotifier::EASessionStart(unsigned int accId, int protocolId, int sessionId) {
    return call(rows::kEASessionStart, accId, protocolId, sessionId);
}

int BpAppleiAP2ManagerNotifier::EASessionStop(unsigned int accId, int sessionId) {
    return call(rows::kEASessionStop, accId, sessionId);
}

int BpAppleiAP2ManagerNotifier::EASessionRecvDataReady(unsigned int accId, int sessionId, int length) {
    return call(rows::kEASessionRecvDataReady, accId, sessionId, length);
}

int BpAppleiAP2ManagerNotifier::fileTransferSetup(unsigned int accId, FileTransferSetup* setup) {
    return call(rows::kFileTransferSetup, accId, setup);
}

int BpAppleiAP2ManagerNotifier::fileTransferStart(unsigned int accId, unsigned int transferId) {
    return call(rows::kFileTransferStart, accId, transferId);
}

int BpAppleiAP2ManagerNotifier::fileTransferPause(unsigned int accId, unsigned int transferId) {
    return call(rows::kFileTransferPause, accId, transferId);
}

int BpAppleiAP2ManagerNotifier::fileTransferCancel(unsigned int accId, unsigned int transferId) {
    return call(rows::kFileTransferCancel, accId, transferId);
}

int BpAppleiAP2ManagerNotifier::fileTransferRecvFinish(unsigned int accId, unsigned int transferId) {
    return call(rows::kFileTransferRecvFinish, accId, transferId);
}

int BpAppleiAP2ManagerNotifier::startOOBBTP(unsigned int accId) { return call(rows::kStartOOBBTP, accId); }

int BpAppleiAP2ManagerNotifier::OOBBTPLinkKeyInfo(unsigned int accId, unsigned char* key,
                                                  unsigned int keyLength, unsigned char* mac,
                                                  unsigned int macLength) {
    return call(rows::kOOBBTPLinkKeyInfo, accId, key, keyLength, mac, macLength);
}

int BpAppleiAP2ManagerNotifier::stopOOBBTP(unsigned int accId) { return call(rows::kStopOOBBTP, accId); }

int BpAppleiAP2ManagerNotifier::BTConnectionUpdate(unsigned int accId, unsigned int a, unsigned int b) {
    return call(rows::kBTConnectionUpdate, accId, a, b);
}

int BpAppleiAP2ManagerNotifier::RouteGuidanceUpdates(unsigned int accId,
                                                     const android::sp<RouteGuidaceUpdateInfo>& info) {
    return logOut("RouteGuidanceUpdates", call(rows::kRouteGuidanceUpdates, accId, info));
}

int BpAppleiAP2ManagerNotifier::RouteGuidanceManeuverUpdates(
    unsigned int accId, const android::sp<RuoteGuidanceManeuverUpdateInfo>& info) {
    return logOut("RouteGuidanceManeuverUpdates", call(rows::kRouteGuidanceManeuverUpdates, accId, info));
}

int BpAppleiAP2ManagerNotifier::LaneGuidanceInformation(unsigned int accId,
                                                        const android::sp<LaneGuidanceInfo>& info) {
    return logOut("LaneGuidanceInformation", call(rows::kLaneGuidanceInformation, accId, info));
}

int BpAppleiAP2ManagerNotifier::AppDiscoveryUpdate(unsigned int accId, unsigned int first,
                                                   AppleAppList* list1, unsigned short count1,
                                                   unsigned int second, AppleAppList* list2,
                                                   unsigned short count2) {
    return logOut("AppDiscoveryUpdate",
                  call(rows::kAppDiscoveryUpdate, accId, first, list1, count1, second, list2, count2));
}

int BpAppleiAP2ManagerNotifier::AppDiscoveryAppIcon(unsigned int accId, const char* appId, bool flag,
                                                    unsigned char kind, char* icon, unsigned int iconLength) {
    return logOut("AppDiscoveryAppIcon",
                  call(rows::kAppDiscoveryAppIcon, accId, appId, flag, kind, icon, iconLength));
}

int BpAppleiAP2ManagerNotifier::CallStateUpdate(unsigned int accId, CallStateUpdateParam& param) {
    return call(rows::kCallStateUpdate, accId, param);
}

int BpAppleiAP2ManagerNotifier::CommunicationsUpdate(unsigned int accId, CommunicationsUpdateParam* param) {
    return call(rows::kCommunicationsUpdate, accId, param);
}

int BpAppleiAP2ManagerNotifier::CarPlayAvailability(unsigned int accId, CPAvailabilityWiredAttributes* wired,
                                                    CPAvailabilityWirelessAttributes* wireless) {
    return call(rows::kCarPlayAvailability, accId, wired, wireless);
}

int BpAppleiAP2ManagerNotifier::StartBluetoothPairing(unsigned int accId, unsigned short id,
                                                      unsigned char* mac) {
    return call(rows::kStartBluetoothPairing, accId, id, mac);
}

int BpAppleiAP2ManagerNotifier::StopBluetoothPairing(unsigned int accId, unsigned short id,
                                                     unsigned int result) {
    return call(rows::kStopBluetoothPairing, accId, id, result);
}

int BpAppleiAP2ManagerNotifier::DestinationInformation(unsigned int accId, const DestinationInfo* info) {
    if (!ACCESSORY_CHECK(kUnit, info)) return -1;
    return logOut("DestinationInformation", call(rows::kDestinationInformation, accId, info));
}

int BpAppleiAP2ManagerNotifier::AssistiveTouchInformation(unsigned int accId, bool enabled) {
    return call(rows::kAssistiveTouchInformation, accId, enabled);
}

int BpAppleiAP2ManagerNotifier::CarPlayMatchedDigitalCarKeys(unsigned int accId,
                                                             std::vector<std::string>& keys) {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "CarPlayMatchedDigitalCarKeys");
    return call(rows::kCarPlayMatchedDigitalCarKeys, accId, keys);
}

}  // namespace accessory
