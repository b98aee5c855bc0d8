// A client that does nothing: every event succeeds. Benchmarks override the few that they look at.
#pragma once

#include <accessory/IAppleiAP2ManagerNotifier.h>

namespace accessory::bench {

class IdleNotifier : public AppleiAP2ManagerNotifierImplItf {
  public:
    int notify(unsigned int /*accId*/, unsigned int /*event*/) override { return 0; }
    int attach(unsigned int /*accId*/) override { return 0; }
    int detach(unsigned int /*accId*/) override { return 0; }
    int deviceInfoUpdate(unsigned int /*accId*/, const char* /*info*/) override { return 0; }
    int deviceLanguageUpdate(unsigned int /*accId*/, const char* /*language*/) override { return 0; }
    int deviceTimeUpdate(unsigned int /*accId*/, unsigned long long /*time*/, short /*value16*/,
                         signed char /*value8*/) override {
        return 0;
    }
    int deviceUUIDUpdate(unsigned int /*accId*/, const char* /*uuid*/) override { return 0; }
    int wirelessCPStateUpdate(unsigned int /*accId*/, int /*state*/) override { return 0; }
    int DeviceTransportIdentifierNotification(unsigned int /*accId*/, const char* /*first*/,
                                              const char* /*second*/) override {
        return 0;
    }
    int deviceHIDReport(unsigned int /*accId*/, int /*component*/, void* /*report*/,
                        int /*length*/) override {
        return 0;
    }
    int hidComponentUpdate(unsigned int /*accId*/, unsigned short /*componentId*/,
                           bool /*enabled*/) override {
        return 0;
    }
    int startLocation(unsigned int /*accId*/, unsigned int /*value1*/, int /*value2*/) override { return 0; }
    int stopLocation(unsigned int /*accId*/) override { return 0; }
    int mediaLibInfoUpdate(unsigned int /*accId*/, const char* /*name*/, const char* /*uid*/,
                           MediaLibType /*type*/) override {
        return 0;
    }
    int mediaLibUpdateDataReady(unsigned int /*accId*/, android::sp<iAP2MediaLibData> /*data*/) override {
        return 0;
    }
    int nowPlayingUpdate(unsigned int /*accId*/, const android::sp<iAP2ItemAttribute>& /*attribute*/,
                         const android::sp<iAP2MediaPlayback>& /*playback*/) override {
        return 0;
    }
    int powerUpdate(unsigned int /*accId*/, const android::sp<iAP2PowerUpdate>& /*power*/) override {
        return 0;
    }
    int USBDeviceModeAudioInfo(unsigned int /*accId*/, unsigned int /*value*/) override { return 0; }
    int WiFiInformation(unsigned int /*accId*/, requestWiFiStatues /*status*/, const char* /*first*/,
                        const char* /*second*/) override {
        return 0;
    }
    int requestAccWiFiConfigInfo(unsigned int /*accId*/) override { return 0; }
    int EASessionStart(unsigned int /*accId*/, int /*protocolId*/, int /*sessionId*/) override { return 0; }
    int EASessionStop(unsigned int /*accId*/, int /*sessionId*/) override { return 0; }
    int EASessionRecvDataReady(unsigned int /*accId*/, int /*sessionId*/, int /*length*/) override {
        return 0;
    }
    int fileTransferSetup(unsigned int /*accId*/, FileTransferSetup* /*setup*/) override { return 0; }
    int fileTransferStart(unsigned int /*accId*/, unsigned int /*transferId*/) override { return 0; }
    int fileTransferPause(unsigned int /*accId*/, unsigned int /*transferId*/) override { return 0; }
    int fileTransferCancel(unsigned int /*accId*/, unsigned int /*transferId*/) override { return 0; }
    int fileTransferRecvFinish(unsigned int /*accId*/, unsigned int /*transferId*/) override { return 0; }
    int startOOBBTP(unsigned int /*accId*/) override { return 0; }
    int OOBBTPLinkKeyInfo(unsigned int /*accId*/, unsigned char* /*key*/, unsigned int /*keyLength*/,
                          unsigned char* /*mac*/, unsigned int /*macLength*/) override {
        return 0;
    }
    int stopOOBBTP(unsigned int /*accId*/) override { return 0; }
    int BTConnectionUpdate(unsigned int /*accId*/, unsigned int /*a*/, unsigned int /*b*/) override {
        return 0;
    }
    int RouteGuidanceUpdates(unsigned int /*accId*/,
                             const android::sp<RouteGuidaceUpdateInfo>& /*info*/) override {
        return 0;
    }
    int RouteGuidanceManeuverUpdates(unsigned int /*accId*/,
                                     const android::sp<RuoteGuidanceManeuverUpdateInfo>& /*info*/) override {
        return 0;
    }
    int LaneGuidanceInformation(unsigned int /*accId*/,
                                const android::sp<LaneGuidanceInfo>& /*info*/) override {
        return 0;
    }
    int AppDiscoveryUpdate(unsigned int /*accId*/, unsigned int /*first*/, AppleAppList* /*list1*/,
                           unsigned short /*count1*/, unsigned int /*second*/, AppleAppList* /*list2*/,
                           unsigned short /*count2*/) override {
        return 0;
    }
    int AppDiscoveryAppIcon(unsigned int /*accId*/, const char* /*appId*/, bool /*flag*/,
                            unsigned char /*kind*/, char* /*icon*/, unsigned int /*iconLength*/) override {
        return 0;
    }
    int CallStateUpdate(unsigned int /*accId*/, CallStateUpdateParam& /*param*/) override { return 0; }
    int CommunicationsUpdate(unsigned int /*accId*/, CommunicationsUpdateParam* /*param*/) override {
        return 0;
    }
    int CarPlayAvailability(unsigned int /*accId*/, CPAvailabilityWiredAttributes* /*wired*/,
                            CPAvailabilityWirelessAttributes* /*wireless*/) override {
        return 0;
    }
    int StartBluetoothPairing(unsigned int /*accId*/, unsigned short /*id*/,
                              unsigned char* /*mac*/) override {
        return 0;
    }
    int StopBluetoothPairing(unsigned int /*accId*/, unsigned short /*id*/,
                             unsigned int /*result*/) override {
        return 0;
    }
    int DestinationInformation(unsigned int /*accId*/, const DestinationInfo* /*info*/) override { return 0; }
    int AssistiveTouchInformation(unsigned int /*accId*/, bool /*enabled*/) override { return 0; }
    int CarPlayMatchedDigitalCarKeys(unsigned int /*accId*/, std::vector<std::string>& /*keys*/) override {
        return 0;
    }
};

}  // namespace accessory::bench
