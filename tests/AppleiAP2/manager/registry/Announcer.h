// Announcer: lets the examples of events, which are calls of a notifier, be calls of a broadcaster.
#pragma once

#include <accessory/AppleiAP2ManagerNotifier.h>

#include <utility>

#include "tests/AppleiAP2/notifier/Event.h"

namespace accessory::test {

/// Passes every operation on as it is.
class Announcer : public AppleiAP2ManagerNotifierImplItf {
  public:
    explicit Announcer(android::sp<AppleiAP2ManagerNotifierItf> to) : mTo(std::move(to)) {}

    int notify(unsigned int accId, unsigned int event) override { return mTo->notify(accId, event); }
    int attach(unsigned int accId) override { return mTo->attach(accId); }
    int detach(unsigned int accId) override { return mTo->detach(accId); }
    int deviceInfoUpdate(unsigned int accId, const char* info) override {
        return mTo->deviceInfoUpdate(accId, info);
    }
    int deviceLanguageUpdate(unsigned int accId, const char* language) override {
        return mTo->deviceLanguageUpdate(accId, language);
    }
    int deviceTimeUpdate(unsigned int accId, unsigned long long time, short value16,
                         signed char value8) override {
        return mTo->deviceTimeUpdate(accId, time, value16, value8);
    }
    int deviceUUIDUpdate(unsigned int accId, const char* uuid) override {
        return mTo->deviceUUIDUpdate(accId, uuid);
    }
    int wirelessCPStateUpdate(unsigned int accId, int state) override {
        return mTo->wirelessCPStateUpdate(accId, state);
    }
    int DeviceTransportIdentifierNotification(unsigned int accId, const char* first,
                                              const char* second) override {
        return mTo->DeviceTransportIdentifierNotification(accId, first, second);
    }
    int deviceHIDReport(unsigned int accId, int component, void* report, int length) override {
        return mTo->deviceHIDReport(accId, component, report, length);
    }
    int hidComponentUpdate(unsigned int accId, unsigned short componentId, bool enabled) override {
        return mTo->hidComponentUpdate(accId, componentId, enabled);
    }
    int startLocation(unsigned int accId, unsigned int value1, int value2) override {
        return mTo->startLocation(accId, value1, value2);
    }
    int stopLocation(unsigned int accId) override { return mTo->stopLocation(accId); }
    int mediaLibInfoUpdate(unsigned int accId, const char* name, const char* uid,
                           MediaLibType type) override {
        return mTo->mediaLibInfoUpdate(accId, name, uid, type);
    }
    int mediaLibUpdateDataReady(unsigned int accId, android::sp<iAP2MediaLibData> data) override {
        return mTo->mediaLibUpdateDataReady(accId, data);
    }
    int nowPlayingUpdate(unsigned int accId, const android::sp<iAP2ItemAttribute>& attribute,
                         const android::sp<iAP2MediaPlayback>& playback) override {
        return mTo->nowPlayingUpdate(accId, attribute, playback);
    }
    int powerUpdate(unsigned int accId, const android::sp<iAP2PowerUpdate>& power) override {
        return mTo->powerUpdate(accId, power);
    }
    int USBDeviceModeAudioInfo(unsigned int accId, unsigned int value) override {
        return mTo->USBDeviceModeAudioInfo(accId, value);
    }
    int WiFiInformation(unsigned int accId, requestWiFiStatues status, const char* first,
                        const char* second) override {
        return mTo->WiFiInformation(accId, status, first, second);
    }
    int requestAccWiFiConfigInfo(unsigned int accId) override { return mTo->requestAccWiFiConfigInfo(accId); }
    int EASessionStart(unsigned int accId, int protocolId, int sessionId) override {
        return mTo->EASessionStart(accId, protocolId, sessionId);
    }
    int EASessionStop(unsigned int accId, int sessionId) override {
        return mTo->EASessionStop(accId, sessionId);
    }
    int EASessionRecvDataReady(unsigned int accId, int sessionId, int length) override {
        return mTo->EASessionRecvDataReady(accId, sessionId, length);
    }
    int fileTransferSetup(unsigned int accId, FileTransferSetup* setup) override {
        return mTo->fileTransferSetup(accId, setup);
    }
    int fileTransferStart(unsigned int accId, unsigned int transferId) override {
        return mTo->fileTransferStart(accId, transferId);
    }
    int fileTransferPause(unsigned int accId, unsigned int transferId) override {
        return mTo->fileTransferPause(accId, transferId);
    }
    int fileTransferCancel(unsigned int accId, unsigned int transferId) override {
        return mTo->fileTransferCancel(accId, transferId);
    }
    int fileTransferRecvFinish(unsigned int accId, unsigned int transferId) override {
        return mTo->fileTransferRecvFinish(accId, transferId);
    }
    int startOOBBTP(unsigned int accId) override { return mTo->startOOBBTP(accId); }
    int OOBBTPLinkKeyInfo(unsigned int accId, unsigned char* key, unsigned int keyLength, unsigned char* mac,
                          unsigned int macLength) override {
        return mTo->OOBBTPLinkKeyInfo(accId, key, keyLength, mac, macLength);
    }
    int stopOOBBTP(unsigned int accId) override { return mTo->stopOOBBTP(accId); }
    int BTConnectionUpdate(unsigned int accId, unsigned int a, unsigned int b) override {
        return mTo->BTConnectionUpdate(accId, a, b);
    }
    int RouteGuidanceUpdates(unsigned int accId, const android::sp<RouteGuidaceUpdateInfo>& info) override {
        return mTo->RouteGuidanceUpdates(accId, info);
    }
    int RouteGuidanceManeuverUpdates(unsigned int accId,
                                     const android::sp<RuoteGuidanceManeuverUpdateInfo>& info) override {
        return mTo->RouteGuidanceManeuverUpdates(accId, info);
    }
    int LaneGuidanceInformation(unsigned int accId, const android::sp<LaneGuidanceInfo>& info) override {
        return mTo->LaneGuidanceInformation(accId, info);
    }
    int AppDiscoveryUpdate(unsigned int accId, unsigned int first, AppleAppList* list1, unsigned short count1,
                           unsigned int second, AppleAppList* list2, unsigned short count2) override {
        return mTo->AppDiscoveryUpdate(accId, first, list1, count1, second, list2, count2);
    }
    int AppDiscoveryAppIcon(unsigned int accId, const char* appId, bool flag, unsigned char kind, char* icon,
                            unsigned int iconLength) override {
        return mTo->AppDiscoveryAppIcon(accId, appId, flag, kind, icon, iconLength);
    }
    int CallStateUpdate(unsigned int accId, CallStateUpdateParam& param) override {
        return mTo->CallStateUpdate(accId, param);
    }
    int CommunicationsUpdate(unsigned int accId, CommunicationsUpdateParam* param) override {
        return mTo->CommunicationsUpdate(accId, param);
    }
    int CarPlayAvailability(unsigned int accId, CPAvailabilityWiredAttributes* wired,
                            CPAvailabilityWirelessAttributes* wireless) override {
        return mTo->CarPlayAvailability(accId, wired, wireless);
    }
    int StartBluetoothPairing(unsigned int accId, unsigned short id, unsigned char* mac) override {
        return mTo->StartBluetoothPairing(accId, id, mac);
    }
    int StopBluetoothPairing(unsigned int accId, unsigned short id, unsigned int result) override {
        return mTo->StopBluetoothPairing(accId, id, result);
    }
    int DestinationInformation(unsigned int accId, const DestinationInfo* info) override {
        return mTo->DestinationInformation(accId, info);
    }
    int AssistiveTouchInformation(unsigned int accId, bool enabled) override {
        return mTo->AssistiveTouchInformation(accId, enabled);
    }
    int CarPlayMatchedDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) override {
        return mTo->CarPlayMatchedDigitalCarKeys(accId, keys);
    }

  private:
    const android::sp<AppleiAP2ManagerNotifierItf> mTo;
};

/// Raises @p event at @p broadcaster. @return the broadcaster's result.
inline int raise(const Event& event, const android::sp<AppleiAP2ManagerNotifierItf>& broadcaster) {
    const android::sp<IAppleiAP2ManagerNotifier> view =
        new BnAppleiAP2ManagerNotifier(new Announcer(broadcaster));
    return event.call(*view);
}

}  // namespace accessory::test
