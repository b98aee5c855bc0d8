// The events of AppleiAP2ManagerNotifier: one round over the registered clients, described by a row each.
#include <accessory/AppleiAP2ManagerNotifier.h>
#include <accessory/IAPAutoTrace.h>
#include <accessory/IAppleiAP2Manager.h>
#include <android/log.h>

#include <optional>

#include "common/Check.h"

namespace accessory {

namespace {

constexpr const Unit& kUnit = kiAP2ManagerUnit;

/// What an event returns.
enum class Returns {
    kSuccess,     ///< 0, whatever the clients returned
    kLastResult,  ///< what the client that was called last returned
};

enum class Logs { kFailures, kSizeToo };

}  // namespace

/// How one event is raised.
struct AppleiAP2ManagerNotifier::Event {
    const char* name = nullptr;
    const char* label = nullptr;  ///< in the log line of a client that failed; not always the name
    Logs logs = Logs::kFailures;
    Returns returns = Returns::kSuccess;
    bool traced = true;
    bool locked = true;
};

template <typename Operation, typename... Arguments>
int AppleiAP2ManagerNotifier::fanOut(const Event& event, Operation operation, Arguments&... arguments) {
    // Events belong to the notifier's unit, their lines to the manager's tag.
    std::optional<IAPAutoTrace> trace;
    if (event.traced) trace.emplace(kUnit.tag, kiAP2NotifierUnit.file, event.name);
    std::optional<android::Mutex::Autolock> lock;
    if (event.locked) lock.emplace(mLock);
    return callAll(event, *mNotifiers.load(), operation, arguments...);
}

template <typename Operation, typename... Arguments>
int AppleiAP2ManagerNotifier::callAll(const Event& event, const Notifiers& notifiers, Operation operation,
                                      Arguments&... arguments) {
    if (event.logs == Logs::kSizeToo) {
        __android_log_print(ANDROID_LOG_DEBUG, kUnit.tag, "%s mNotifiers size %zu", event.name,
                            notifiers.size());
    }
    int last = 0;
    for (size_t i = 0; i < notifiers.size(); ++i) {
        const android::sp<IAppleiAP2ManagerNotifier>& notifier = notifiers.valueAt(i);
        if (!holds({kUnit, event.name, __LINE__}, notifier.get() != nullptr, "notifier.get()")) return -1;
        last = (notifier.get()->*operation)(arguments...);
        if (last != 0) {
            __android_log_print(ANDROID_LOG_ERROR, kUnit.tag, "notify the %zu %s error ,ret:%d", i,
                                event.label, last);
        }
    }
    return event.returns == Returns::kLastResult ? last : 0;
}

int AppleiAP2ManagerNotifier::notify(unsigned int accId, unsigned int event) {
    static constexpr Event kEvent{"notify", "notiy", Logs::kSizeToo};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::notify, accId, event);
}

int AppleiAP2ManagerNotifier::attach(unsigned int accId) {
    static constexpr Event kEvent{"attach", "attach", Logs::kSizeToo};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::attach, accId);
}

int AppleiAP2ManagerNotifier::detach(unsigned int accId) {
    static constexpr Event kEvent{"detach", "detach", Logs::kSizeToo};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::detach, accId);
}

int AppleiAP2ManagerNotifier::deviceInfoUpdate(unsigned int accId, const char* info) {
    static constexpr Event kEvent{"deviceInfoUpdate", "device info update", Logs::kSizeToo};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::deviceInfoUpdate, accId, info);
}

int AppleiAP2ManagerNotifier::deviceLanguageUpdate(unsigned int accId, const char* language) {
    static constexpr Event kEvent{"deviceLanguageUpdate", "device language update", Logs::kSizeToo};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::deviceLanguageUpdate, accId, language);
}

int AppleiAP2ManagerNotifier::deviceTimeUpdate(unsigned int accId, unsigned long long time, short value16,
                                               signed char value8) {
    static constexpr Event kEvent{"deviceTimeUpdate", "deviceTimeUpdate", Logs::kSizeToo};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::deviceTimeUpdate, accId, time, value16, value8);
}

int AppleiAP2ManagerNotifier::deviceUUIDUpdate(unsigned int accId, const char* uuid) {
    static constexpr Event kEvent{"deviceUUIDUpdate", "deviceUUIDUpdate", Logs::kSizeToo};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::deviceUUIDUpdate, accId, uuid);
}

int AppleiAP2ManagerNotifier::wirelessCPStateUpdate(unsigned int accId, int state) {
    static constexpr Event kEvent{"wirelessCPStateUpdate", "wirelessCPStateUpdate", Logs::kSizeToo};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::wirelessCPStateUpdate, accId, state);
}

int AppleiAP2ManagerNotifier::DeviceTransportIdentifierNotification(unsigned int accId, const char* first,
                                                                    const char* second) {
    static constexpr Event kEvent{"DeviceTransportIdentifierNotification",
                                  "DeviceTransportIdentifierNotification", Logs::kSizeToo};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::DeviceTransportIdentifierNotification, accId, first,
                  second);
}

int AppleiAP2ManagerNotifier::deviceHIDReport(unsigned int accId, int component, void* report, int length) {
    static constexpr Event kEvent{"deviceHIDReport", "deviceHIDReport"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::deviceHIDReport, accId, component, report, length);
}

/// The one event that may run beside a registration or another event.
int AppleiAP2ManagerNotifier::hidComponentUpdate(unsigned int accId, unsigned short componentId,
                                                 bool enabled) {
    static constexpr Event kEvent{
        "hidComponentUpdate", "hidComponentUpdate", Logs::kFailures, Returns::kSuccess, true, false};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::hidComponentUpdate, accId, componentId, enabled);
}

int AppleiAP2ManagerNotifier::startLocation(unsigned int accId, unsigned int value1, int value2) {
    static constexpr Event kEvent{"startLocation", "startLocation"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::startLocation, accId, value1, value2);
}

int AppleiAP2ManagerNotifier::stopLocation(unsigned int accId) {
    static constexpr Event kEvent{"stopLocation", "stopLocation"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::stopLocation, accId);
}

int AppleiAP2ManagerNotifier::mediaLibInfoUpdate(unsigned int accId, const char* name, const char* uid,
                                                 MediaLibType type) {
    static constexpr Event kEvent{"mediaLibInfoUpdate", "mediaLibInfoUpdate"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::mediaLibInfoUpdate, accId, name, uid, type);
}

/// Not traced; every client gets a strong reference of its own.
int AppleiAP2ManagerNotifier::mediaLibUpdateDataReady(unsigned int accId,
                                                      android::sp<iAP2MediaLibData> data) {
    static constexpr Event kEvent{"mediaLibUpdateDataReady", "mediaLibUpdateDataReady", Logs::kFailures,
                                  Returns::kSuccess, false};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::mediaLibUpdateDataReady, accId, data);
}

int AppleiAP2ManagerNotifier::nowPlayingUpdate(unsigned int accId,
                                               const android::sp<iAP2ItemAttribute>& attribute,
                                               const android::sp<iAP2MediaPlayback>& playback) {
    static constexpr Event kEvent{"nowPlayingUpdate", "nowPlayingUpdate"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::nowPlayingUpdate, accId, attribute, playback);
}

int AppleiAP2ManagerNotifier::powerUpdate(unsigned int accId, const android::sp<iAP2PowerUpdate>& power) {
    static constexpr Event kEvent{"powerUpdate", "powerUpdate"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::powerUpdate, accId, power);
}

int AppleiAP2ManagerNotifier::USBDeviceModeAudioInfo(unsigned int accId, unsigned int value) {
    static constexpr Event kEvent{"USBDeviceModeAudioInfo", "USBDeviceModeAudioInfo"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::USBDeviceModeAudioInfo, accId, value);
}

int AppleiAP2ManagerNotifier::WiFiInformation(unsigned int accId, requestWiFiStatues status,
                                              const char* first, const char* second) {
    static constexpr Event kEvent{"WiFiInformation", "WiFiInformation"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::WiFiInformation, accId, status, first, second);
}

int AppleiAP2ManagerNotifier::requestAccWiFiConfigInfo(unsigned int accId) {
    static constexpr Event kEvent{"requestAccWiFiConfigInfo", "requestAccWiFiConfigInfo"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::requestAccWiFiConfigInfo, accId);
}

int AppleiAP2ManagerNotifier::EASessionStart(unsigned int accId, int protocolId, int sessionId) {
    static constexpr Event kEvent{"EASessionStart", "EASessionStart"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::EASessionStart, accId, protocolId, sessionId);
}

int AppleiAP2ManagerNotifier::EASessionStop(unsigned int accId, int sessionId) {
    static constexpr Event kEvent{"EASessionStop", "EASessionStop"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::EASessionStop, accId, sessionId);
}

int AppleiAP2ManagerNotifier::EASessionRecvDataReady(unsigned int accId, int sessionId, int length) {
    static constexpr Event kEvent{"EASessionRecvDataReady", "EASessionRecvDataReady"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::EASessionRecvDataReady, accId, sessionId, length);
}

int AppleiAP2ManagerNotifier::fileTransferSetup(unsigned int accId, FileTransferSetup* setup) {
    static constexpr Event kEvent{"fileTransferSetup", "fileTransferSetup"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::fileTransferSetup, accId, setup);
}

int AppleiAP2ManagerNotifier::fileTransferStart(unsigned int accId, unsigned int transferId) {
    static constexpr Event kEvent{"fileTransferStart", "fileTransferStart"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::fileTransferStart, accId, transferId);
}

int AppleiAP2ManagerNotifier::fileTransferPause(unsigned int accId, unsigned int transferId) {
    static constexpr Event kEvent{"fileTransferPause", "fileTransferPause"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::fileTransferPause, accId, transferId);
}

int AppleiAP2ManagerNotifier::fileTransferCancel(unsigned int accId, unsigned int transferId) {
    static constexpr Event kEvent{"fileTransferCancel", "fileTransferCancel"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::fileTransferCancel, accId, transferId);
}

int AppleiAP2ManagerNotifier::fileTransferRecvFinish(unsigned int accId, unsigned int transferId) {
    static constexpr Event kEvent{"fileTransferRecvFinish", "fileTransferRecvFinish"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::fileTransferRecvFinish, accId, transferId);
}

int AppleiAP2ManagerNotifier::startOOBBTP(unsigned int accId) {
    static constexpr Event kEvent{"startOOBBTP", "startOOBBTP"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::startOOBBTP, accId);
}

int AppleiAP2ManagerNotifier::OOBBTPLinkKeyInfo(unsigned int accId, unsigned char* key,
                                                unsigned int keyLength, unsigned char* mac,
                                                unsigned int macLength) {
    static constexpr Event kEvent{"OOBBTPLinkKeyInfo", "OOBBTPLinkKeyInfo"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::OOBBTPLinkKeyInfo, accId, key, keyLength, mac,
                  macLength);
}

int AppleiAP2ManagerNotifier::stopOOBBTP(unsigned int accId) {
    static constexpr Event kEvent{"stopOOBBTP", "stopOOBBTP"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::stopOOBBTP, accId);
}

int AppleiAP2ManagerNotifier::BTConnectionUpdate(unsigned int accId, unsigned int a, unsigned int b) {
    static constexpr Event kEvent{"BTConnectionUpdate", "BTConnectionUpdate"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::BTConnectionUpdate, accId, a, b);
}

/// Its failures are reported under the name of a Bluetooth event.
int AppleiAP2ManagerNotifier::RouteGuidanceUpdates(unsigned int accId,
                                                   const android::sp<RouteGuidaceUpdateInfo>& info) {
    static constexpr Event kEvent{"RouteGuidanceUpdates", "BTConnectionUpdate"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::RouteGuidanceUpdates, accId, info);
}

int AppleiAP2ManagerNotifier::RouteGuidanceManeuverUpdates(
    unsigned int accId, const android::sp<RuoteGuidanceManeuverUpdateInfo>& info) {
    static constexpr Event kEvent{"RouteGuidanceManeuverUpdates", "RouteGuidanceManeuverUpdates"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::RouteGuidanceManeuverUpdates, accId, info);
}

int AppleiAP2ManagerNotifier::LaneGuidanceInformation(unsigned int accId,
                                                      const android::sp<LaneGuidanceInfo>& info) {
    static constexpr Event kEvent{"LaneGuidanceInformation", "laneGuidanceInformation"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::LaneGuidanceInformation, accId, info);
}

int AppleiAP2ManagerNotifier::AppDiscoveryUpdate(unsigned int accId, unsigned int first, AppleAppList* list1,
                                                 unsigned short count1, unsigned int second,
                                                 AppleAppList* list2, unsigned short count2) {
    static constexpr Event kEvent{"AppDiscoveryUpdate", "AppDiscoveryUpdate"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::AppDiscoveryUpdate, accId, first, list1, count1, second,
                  list2, count2);
}

int AppleiAP2ManagerNotifier::AppDiscoveryAppIcon(unsigned int accId, const char* appId, bool flag,
                                                  unsigned char kind, char* icon, unsigned int iconLength) {
    static constexpr Event kEvent{"AppDiscoveryAppIcon", "AppDiscoveryAppIcon"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::AppDiscoveryAppIcon, accId, appId, flag, kind, icon,
                  iconLength);
}

int AppleiAP2ManagerNotifier::CallStateUpdate(unsigned int accId, CallStateUpdateParam& param) {
    static constexpr Event kEvent{"CallStateUpdate", "CallStateUpdate"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::CallStateUpdate, accId, param);
}

int AppleiAP2ManagerNotifier::CommunicationsUpdate(unsigned int accId, CommunicationsUpdateParam* param) {
    static constexpr Event kEvent{"CommunicationsUpdate", "CommunicationsUpdate"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::CommunicationsUpdate, accId, param);
}

int AppleiAP2ManagerNotifier::CarPlayAvailability(unsigned int accId, CPAvailabilityWiredAttributes* wired,
                                                  CPAvailabilityWirelessAttributes* wireless) {
    static constexpr Event kEvent{"CarPlayAvailability", "CarPlayAvailability"};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::CarPlayAvailability, accId, wired, wireless);
}

int AppleiAP2ManagerNotifier::StartBluetoothPairing(unsigned int accId, unsigned short id,
                                                    unsigned char* mac) {
    static constexpr Event kEvent{"StartBluetoothPairing", "StartBluetoothPairing", Logs::kFailures,
                                  Returns::kLastResult};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::StartBluetoothPairing, accId, id, mac);
}

int AppleiAP2ManagerNotifier::StopBluetoothPairing(unsigned int accId, unsigned short id,
                                                   unsigned int result) {
    static constexpr Event kEvent{"StopBluetoothPairing", "StopBluetoothPairing", Logs::kFailures,
                                  Returns::kLastResult};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::StopBluetoothPairing, accId, id, result);
}

int AppleiAP2ManagerNotifier::DestinationInformation(unsigned int accId, const DestinationInfo* info) {
    static constexpr Event kEvent{"DestinationInformation", "DestinationInformation", Logs::kFailures,
                                  Returns::kLastResult};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::DestinationInformation, accId, info);
}

int AppleiAP2ManagerNotifier::AssistiveTouchInformation(unsigned int accId, bool enabled) {
    static constexpr Event kEvent{"AssistiveTouchInformation", "AssistiveTouchInformation", Logs::kFailures,
                                  Returns::kLastResult};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::AssistiveTouchInformation, accId, enabled);
}

int AppleiAP2ManagerNotifier::CarPlayMatchedDigitalCarKeys(unsigned int accId,
                                                           std::vector<std::string>& keys) {
    static constexpr Event kEvent{"CarPlayMatchedDigitalCarKeys", "CarPlayMatchedDigitalCarKeys",
                                  Logs::kFailures, Returns::kLastResult};
    return fanOut(kEvent, &IAppleiAP2ManagerNotifier::CarPlayMatchedDigitalCarKeys, accId, keys);
}

}  // namespace accessory
