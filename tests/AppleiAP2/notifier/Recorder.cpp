#include "tests/AppleiAP2/notifier/Recorder.h"

#include <algorithm>
#include <utility>

#include "tests/AppleiAP2/notifier/Show.h"

namespace accessory::test {
namespace {

/// How much of a report there is when its length may be anything.
size_t readable(int length) { return static_cast<size_t>(std::max(length, 0)); }

}  // namespace

using android::sp;
using test::show;

std::vector<std::string> Recorder::takeTold() {
    const std::lock_guard lock(mLock);
    return std::exchange(mTold, {});
}

template <typename... Arguments>
int Recorder::note(const char* operation, unsigned int accId, const Arguments&... arguments) {
    meanwhile();
    std::string call = operation + ("(" + show(accId) + ... + (", " + show(arguments))) + ")";
    const std::lock_guard lock(mLock);
    mTold.push_back(std::move(call));
    return answer;
}

int Recorder::notify(unsigned int accId, unsigned int event) { return note("notify", accId, event); }

int Recorder::attach(unsigned int accId) { return note("attach", accId); }

int Recorder::detach(unsigned int accId) { return note("detach", accId); }

int Recorder::deviceInfoUpdate(unsigned int accId, const char* info) {
    return note("deviceInfoUpdate", accId, info);
}

int Recorder::deviceLanguageUpdate(unsigned int accId, const char* language) {
    return note("deviceLanguageUpdate", accId, language);
}

int Recorder::deviceTimeUpdate(unsigned int accId, unsigned long long time, short value16,
                               signed char value8) {
    return note("deviceTimeUpdate", accId, time, value16, value8);
}

int Recorder::deviceUUIDUpdate(unsigned int accId, const char* uuid) {
    return note("deviceUUIDUpdate", accId, uuid);
}

int Recorder::wirelessCPStateUpdate(unsigned int accId, int state) {
    return note("wirelessCPStateUpdate", accId, state);
}

int Recorder::DeviceTransportIdentifierNotification(unsigned int accId, const char* first,
                                                    const char* second) {
    return note("DeviceTransportIdentifierNotification", accId, first, second);
}

int Recorder::deviceHIDReport(unsigned int accId, int component, void* report, int length) {
    return note("deviceHIDReport", accId, component, View{report, readable(length)}, length);
}

int Recorder::hidComponentUpdate(unsigned int accId, unsigned short componentId, bool enabled) {
    return note("hidComponentUpdate", accId, componentId, enabled);
}

int Recorder::startLocation(unsigned int accId, unsigned int value1, int value2) {
    return note("startLocation", accId, value1, value2);
}

int Recorder::stopLocation(unsigned int accId) { return note("stopLocation", accId); }

int Recorder::mediaLibInfoUpdate(unsigned int accId, const char* name, const char* uid, MediaLibType type) {
    return note("mediaLibInfoUpdate", accId, name, uid, type);
}

int Recorder::mediaLibUpdateDataReady(unsigned int accId, sp<iAP2MediaLibData> data) {
    return note("mediaLibUpdateDataReady", accId, data);
}

int Recorder::nowPlayingUpdate(unsigned int accId, const sp<iAP2ItemAttribute>& attribute,
                               const sp<iAP2MediaPlayback>& playback) {
    return note("nowPlayingUpdate", accId, attribute, playback);
}

int Recorder::powerUpdate(unsigned int accId, const sp<iAP2PowerUpdate>& power) {
    return note("powerUpdate", accId, power);
}

int Recorder::USBDeviceModeAudioInfo(unsigned int accId, unsigned int value) {
    return note("USBDeviceModeAudioInfo", accId, value);
}

int Recorder::WiFiInformation(unsigned int accId, requestWiFiStatues status, const char* first,
                              const char* second) {
    return note("WiFiInformation", accId, status, first, second);
}

int Recorder::requestAccWiFiConfigInfo(unsigned int accId) { return note("requestAccWiFiConfigInfo", accId); }

int Recorder::EASessionStart(unsigned int accId, int protocolId, int sessionId) {
    return note("EASessionStart", accId, protocolId, sessionId);
}

int Recorder::EASessionStop(unsigned int accId, int sessionId) {
    return note("EASessionStop", accId, sessionId);
}

int Recorder::EASessionRecvDataReady(unsigned int accId, int sessionId, int length) {
    return note("EASessionRecvDataReady", accId, sessionId, length);
}

int Recorder::fileTransferSetup(unsigned int accId, FileTransferSetup* setup) {
    return note("fileTransferSetup", accId, setup);
}

int Recorder::fileTransferStart(unsigned int accId, unsigned int transferId) {
    return note("fileTransferStart", accId, transferId);
}

int Recorder::fileTransferPause(unsigned int accId, unsigned int transferId) {
    return note("fileTransferPause", accId, transferId);
}

int Recorder::fileTransferCancel(unsigned int accId, unsigned int transferId) {
    return note("fileTransferCancel", accId, transferId);
}

int Recorder::fileTransferRecvFinish(unsigned int accId, unsigned int transferId) {
    return note("fileTransferRecvFinish", accId, transferId);
}

int Recorder::startOOBBTP(unsigned int accId) { return note("startOOBBTP", accId); }

int Recorder::OOBBTPLinkKeyInfo(unsigned int accId, unsigned char* key, unsigned int keyLength,
                                unsigned char* mac, unsigned int macLength) {
    return note("OOBBTPLinkKeyInfo", accId, View{key, keyLength}, keyLength, View{mac, macLength}, macLength);
}

int Recorder::stopOOBBTP(unsigned int accId) { return note("stopOOBBTP", accId); }

int Recorder::BTConnectionUpdate(unsigned int accId, unsigned int a, unsigned int b) {
    return note("BTConnectionUpdate", accId, a, b);
}

int Recorder::RouteGuidanceUpdates(unsigned int accId, const sp<RouteGuidaceUpdateInfo>& info) {
    return note("RouteGuidanceUpdates", accId, info);
}

int Recorder::RouteGuidanceManeuverUpdates(unsigned int accId,
                                           const sp<RuoteGuidanceManeuverUpdateInfo>& info) {
    return note("RouteGuidanceManeuverUpdates", accId, info);
}

int Recorder::LaneGuidanceInformation(unsigned int accId, const sp<LaneGuidanceInfo>& info) {
    return note("LaneGuidanceInformation", accId, info);
}

int Recorder::AppDiscoveryUpdate(unsigned int accId, unsigned int first, AppleAppList* list1,
                                 unsigned short count1, unsigned int second, AppleAppList* list2,
                                 unsigned short count2) {
    return note("AppDiscoveryUpdate", accId, first, AppView{list1, count1}, count1, second,
                AppView{list2, count2}, count2);
}

int Recorder::AppDiscoveryAppIcon(unsigned int accId, const char* appId, bool flag, unsigned char kind,
                                  char* icon, unsigned int iconLength) {
    return note("AppDiscoveryAppIcon", accId, appId, flag, kind, View{icon, iconLength}, iconLength);
}

int Recorder::CallStateUpdate(unsigned int accId, CallStateUpdateParam& param) {
    return note("CallStateUpdate", accId, param);
}

int Recorder::CommunicationsUpdate(unsigned int accId, CommunicationsUpdateParam* param) {
    return note("CommunicationsUpdate", accId, param);
}

int Recorder::CarPlayAvailability(unsigned int accId, CPAvailabilityWiredAttributes* wired,
                                  CPAvailabilityWirelessAttributes* wireless) {
    return note("CarPlayAvailability", accId, wired, wireless);
}

int Recorder::StartBluetoothPairing(unsigned int accId, unsigned short id, unsigned char* mac) {
    return note("StartBluetoothPairing", accId, id, View{mac, 6});
}

int Recorder::StopBluetoothPairing(unsigned int accId, unsigned short id, unsigned int result) {
    return note("StopBluetoothPairing", accId, id, result);
}

int Recorder::DestinationInformation(unsigned int accId, const DestinationInfo* info) {
    return note("DestinationInformation", accId, info);
}

int Recorder::AssistiveTouchInformation(unsigned int accId, bool enabled) {
    return note("AssistiveTouchInformation", accId, enabled);
}

int Recorder::CarPlayMatchedDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) {
    return note("CarPlayMatchedDigitalCarKeys", accId, keys);
}

}  // namespace accessory::test
