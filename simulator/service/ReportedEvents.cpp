#include "simulator/service/ReportedEvents.h"

namespace accessory::simulator {

namespace {

std::vector<std::string> listOf(const AppleAppList* list, unsigned short count) {
    std::vector<std::string> shown;
    for (unsigned short i = 0; i < count; ++i)
        shown.push_back(show(list[i]));
    return shown;
}

}  // namespace

int ReportedEvents::notify(unsigned int accId, unsigned int event) {
    say("notify", accId, event);
    return mClients->notify(accId, event);
}

int ReportedEvents::attach(unsigned int accId) {
    say("attach", accId);
    return mClients->attach(accId);
}

int ReportedEvents::detach(unsigned int accId) {
    say("detach", accId);
    return mClients->detach(accId);
}

int ReportedEvents::deviceInfoUpdate(unsigned int accId, const char* info) {
    say("deviceInfoUpdate", accId, info);
    return mClients->deviceInfoUpdate(accId, info);
}

int ReportedEvents::deviceLanguageUpdate(unsigned int accId, const char* language) {
    say("deviceLanguageUpdate", accId, language);
    return mClients->deviceLanguageUpdate(accId, language);
}

int ReportedEvents::deviceTimeUpdate(unsigned int accId, unsigned long long time, short value16,
                                     signed char value8) {
    say("deviceTimeUpdate", accId, time, value16, value8);
    return mClients->deviceTimeUpdate(accId, time, value16, value8);
}

int ReportedEvents::deviceUUIDUpdate(unsigned int accId, const char* uuid) {
    say("deviceUUIDUpdate", accId, uuid);
    return mClients->deviceUUIDUpdate(accId, uuid);
}

int ReportedEvents::wirelessCPStateUpdate(unsigned int accId, int state) {
    say("wirelessCPStateUpdate", accId, state);
    return mClients->wirelessCPStateUpdate(accId, state);
}

int ReportedEvents::DeviceTransportIdentifierNotification(unsigned int accId, const char* first,
                                                          const char* second) {
    say("DeviceTransportIdentifierNotification", accId, first, second);
    return mClients->DeviceTransportIdentifierNotification(accId, first, second);
}

int ReportedEvents::deviceHIDReport(unsigned int accId, int component, void* report, int length) {
    say("deviceHIDReport", accId, component, Bytes{report, static_cast<size_t>(length)});
    return mClients->deviceHIDReport(accId, component, report, length);
}

int ReportedEvents::hidComponentUpdate(unsigned int accId, unsigned short componentId, bool enabled) {
    say("hidComponentUpdate", accId, componentId, enabled);
    return mClients->hidComponentUpdate(accId, componentId, enabled);
}

int ReportedEvents::startLocation(unsigned int accId, unsigned int value1, int value2) {
    say("startLocation", accId, value1, value2);
    return mClients->startLocation(accId, value1, value2);
}

int ReportedEvents::stopLocation(unsigned int accId) {
    say("stopLocation", accId);
    return mClients->stopLocation(accId);
}

int ReportedEvents::mediaLibInfoUpdate(unsigned int accId, const char* name, const char* uid,
                                       MediaLibType type) {
    say("mediaLibInfoUpdate", accId, name, uid, type);
    return mClients->mediaLibInfoUpdate(accId, name, uid, type);
}

int ReportedEvents::mediaLibUpdateDataReady(unsigned int accId, android::sp<iAP2MediaLibData> data) {
    say("mediaLibUpdateDataReady", accId, data);
    return mClients->mediaLibUpdateDataReady(accId, data);
}

int ReportedEvents::nowPlayingUpdate(unsigned int accId, const android::sp<iAP2ItemAttribute>& attribute,
                                     const android::sp<iAP2MediaPlayback>& playback) {
    say("nowPlayingUpdate", accId, attribute, playback);
    return mClients->nowPlayingUpdate(accId, attribute, playback);
}

int ReportedEvents::powerUpdate(unsigned int accId, const android::sp<iAP2PowerUpdate>& power) {
    say("powerUpdate", accId, power);
    return mClients->powerUpdate(accId, power);
}

int ReportedEvents::USBDeviceModeAudioInfo(unsigned int accId, unsigned int value) {
    say("USBDeviceModeAudioInfo", accId, value);
    return mClients->USBDeviceModeAudioInfo(accId, value);
}

int ReportedEvents::WiFiInformation(unsigned int accId, requestWiFiStatues status, const char* first,
                                    const char* second) {
    say("WiFiInformation", accId, status, first, second);
    return mClients->WiFiInformation(accId, status, first, second);
}

int ReportedEvents::requestAccWiFiConfigInfo(unsigned int accId) {
    say("requestAccWiFiConfigInfo", accId);
    return mClients->requestAccWiFiConfigInfo(accId);
}

int ReportedEvents::EASessionStart(unsigned int accId, int protocolId, int sessionId) {
    say("EASessionStart", accId, protocolId, sessionId);
    return mClients->EASessionStart(accId, protocolId, sessionId);
}

int ReportedEvents::EASessionStop(unsigned int accId, int sessionId) {
    say("EASessionStop", accId, sessionId);
    return mClients->EASessionStop(accId, sessionId);
}

int ReportedEvents::EASessionRecvDataReady(unsigned int accId, int sessionId, int length) {
    say("EASessionRecvDataReady", accId, sessionId, length);
    return mClients->EASessionRecvDataReady(accId, sessionId, length);
}

int ReportedEvents::fileTransferSetup(unsigned int accId, FileTransferSetup* setup) {
    say("fileTransferSetup", accId, *setup);
    return mClients->fileTransferSetup(accId, setup);
}

int ReportedEvents::fileTransferStart(unsigned int accId, unsigned int transferId) {
    say("fileTransferStart", accId, transferId);
    return mClients->fileTransferStart(accId, transferId);
}

int ReportedEvents::fileTransferPause(unsigned int accId, unsigned int transferId) {
    say("fileTransferPause", accId, transferId);
    return mClients->fileTransferPause(accId, transferId);
}

int ReportedEvents::fileTransferCancel(unsigned int accId, unsigned int transferId) {
    say("fileTransferCancel", accId, transferId);
    return mClients->fileTransferCancel(accId, transferId);
}

int ReportedEvents::fileTransferRecvFinish(unsigned int accId, unsigned int transferId) {
    say("fileTransferRecvFinish", accId, transferId);
    return mClients->fileTransferRecvFinish(accId, transferId);
}

int ReportedEvents::startOOBBTP(unsigned int accId) {
    say("startOOBBTP", accId);
    return mClients->startOOBBTP(accId);
}

int ReportedEvents::OOBBTPLinkKeyInfo(unsigned int accId, unsigned char* key, unsigned int keyLength,
                                      unsigned char* mac, unsigned int macLength) {
    say("OOBBTPLinkKeyInfo", accId, Bytes{key, keyLength}, Bytes{mac, macLength});
    return mClients->OOBBTPLinkKeyInfo(accId, key, keyLength, mac, macLength);
}

int ReportedEvents::stopOOBBTP(unsigned int accId) {
    say("stopOOBBTP", accId);
    return mClients->stopOOBBTP(accId);
}

int ReportedEvents::BTConnectionUpdate(unsigned int accId, unsigned int a, unsigned int b) {
    say("BTConnectionUpdate", accId, a, b);
    return mClients->BTConnectionUpdate(accId, a, b);
}

int ReportedEvents::RouteGuidanceUpdates(unsigned int accId,
                                         const android::sp<RouteGuidaceUpdateInfo>& info) {
    say("RouteGuidanceUpdates", accId, info);
    return mClients->RouteGuidanceUpdates(accId, info);
}

int ReportedEvents::RouteGuidanceManeuverUpdates(unsigned int accId,
                                                 const android::sp<RuoteGuidanceManeuverUpdateInfo>& info) {
    say("RouteGuidanceManeuverUpdates", accId, info);
    return mClients->RouteGuidanceManeuverUpdates(accId, info);
}

int ReportedEvents::LaneGuidanceInformation(unsigned int accId, const android::sp<LaneGuidanceInfo>& info) {
    say("LaneGuidanceInformation", accId, info);
    return mClients->LaneGuidanceInformation(accId, info);
}

int ReportedEvents::AppDiscoveryUpdate(unsigned int accId, unsigned int first, AppleAppList* list1,
                                       unsigned short count1, unsigned int second, AppleAppList* list2,
                                       unsigned short count2) {
    say("AppDiscoveryUpdate", accId, first, listOf(list1, count1), second, listOf(list2, count2));
    return mClients->AppDiscoveryUpdate(accId, first, list1, count1, second, list2, count2);
}

int ReportedEvents::AppDiscoveryAppIcon(unsigned int accId, const char* appId, bool flag, unsigned char kind,
                                        char* icon, unsigned int iconLength) {
    say("AppDiscoveryAppIcon", accId, appId, flag, kind, Bytes{icon, iconLength});
    return mClients->AppDiscoveryAppIcon(accId, appId, flag, kind, icon, iconLength);
}

int ReportedEvents::CallStateUpdate(unsigned int accId, CallStateUpdateParam& param) {
    say("CallStateUpdate", accId, param);
    return mClients->CallStateUpdate(accId, param);
}

int ReportedEvents::CommunicationsUpdate(unsigned int accId, CommunicationsUpdateParam* param) {
    say("CommunicationsUpdate", accId, *param);
    return mClients->CommunicationsUpdate(accId, param);
}

int ReportedEvents::CarPlayAvailability(unsigned int accId, CPAvailabilityWiredAttributes* wired,
                                        CPAvailabilityWirelessAttributes* wireless) {
    say("CarPlayAvailability", accId, *wired, *wireless);
    return mClients->CarPlayAvailability(accId, wired, wireless);
}

int ReportedEvents::StartBluetoothPairing(unsigned int accId, unsigned short id, unsigned char* mac) {
    say("StartBluetoothPairing", accId, id, Bytes{mac, 6});
    return mClients->StartBluetoothPairing(accId, id, mac);
}

int ReportedEvents::StopBluetoothPairing(unsigned int accId, unsigned short id, unsigned int result) {
    say("StopBluetoothPairing", accId, id, result);
    return mClients->StopBluetoothPairing(accId, id, result);
}

int ReportedEvents::DestinationInformation(unsigned int accId, const DestinationInfo* info) {
    say("DestinationInformation", accId, *info);
    return mClients->DestinationInformation(accId, info);
}

int ReportedEvents::AssistiveTouchInformation(unsigned int accId, bool enabled) {
    say("AssistiveTouchInformation", accId, enabled);
    return mClients->AssistiveTouchInformation(accId, enabled);
}

int ReportedEvents::CarPlayMatchedDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) {
    say("CarPlayMatchedDigitalCarKeys", accId, keys);
    return mClients->CarPlayMatchedDigitalCarKeys(accId, keys);
}

}  // namespace accessory::simulator
