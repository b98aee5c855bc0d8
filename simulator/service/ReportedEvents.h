// ReportedEvents: reports every event, and passes it on to the clients.
#pragma once

#include <accessory/AppleUSBAudioManagerNotifier.h>
#include <accessory/AppleiAP2ManagerNotifier.h>

#include <functional>
#include <string>
#include <vector>

#include "simulator/service/Show.h"

namespace accessory::simulator {

/// Takes one line for each event.
using EventReport = std::function<void(const std::string& line)>;

/// Stands before the broadcaster of the iAP2 manager.
class ReportedEvents : public AppleiAP2ManagerNotifierItf {
  public:
    /// @param clients the broadcaster; held. @param verbose whether lines are wanted, or only to be counted.
    ReportedEvents(const android::sp<AppleiAP2ManagerNotifierItf>& clients, bool verbose, EventReport report)
        : mClients(clients), mVerbose(verbose), mReport(std::move(report)) {}

    int notify(unsigned int accId, unsigned int event) override;
    int attach(unsigned int accId) override;
    int detach(unsigned int accId) override;
    int deviceInfoUpdate(unsigned int accId, const char* info) override;
    int deviceLanguageUpdate(unsigned int accId, const char* language) override;
    int deviceTimeUpdate(unsigned int accId, unsigned long long time, short value16,
                         signed char value8) override;
    int deviceUUIDUpdate(unsigned int accId, const char* uuid) override;
    int wirelessCPStateUpdate(unsigned int accId, int state) override;
    int DeviceTransportIdentifierNotification(unsigned int accId, const char* first,
                                              const char* second) override;
    int deviceHIDReport(unsigned int accId, int component, void* report, int length) override;
    int hidComponentUpdate(unsigned int accId, unsigned short componentId, bool enabled) override;
    int startLocation(unsigned int accId, unsigned int value1, int value2) override;
    int stopLocation(unsigned int accId) override;
    int mediaLibInfoUpdate(unsigned int accId, const char* name, const char* uid, MediaLibType type) override;
    int mediaLibUpdateDataReady(unsigned int accId, android::sp<iAP2MediaLibData> data) override;
    int nowPlayingUpdate(unsigned int accId, const android::sp<iAP2ItemAttribute>& attribute,
                         const android::sp<iAP2MediaPlayback>& playback) override;
    int powerUpdate(unsigned int accId, const android::sp<iAP2PowerUpdate>& power) override;
    int USBDeviceModeAudioInfo(unsigned int accId, unsigned int value) override;
    int WiFiInformation(unsigned int accId, requestWiFiStatues status, const char* first,
                        const char* second) override;
    int requestAccWiFiConfigInfo(unsigned int accId) override;
    int EASessionStart(unsigned int accId, int protocolId, int sessionId) override;
    int EASessionStop(unsigned int accId, int sessionId) override;
    int EASessionRecvDataReady(unsigned int accId, int sessionId, int length) override;
    int fileTransferSetup(unsigned int accId, FileTransferSetup* setup) override;
    int fileTransferStart(unsigned int accId, unsigned int transferId) override;
    int fileTransferPause(unsigned int accId, unsigned int transferId) override;
    int fileTransferCancel(unsigned int accId, unsigned int transferId) override;
    int fileTransferRecvFinish(unsigned int accId, unsigned int transferId) override;
    int startOOBBTP(unsigned int accId) override;
    int OOBBTPLinkKeyInfo(unsigned int accId, unsigned char* key, unsigned int keyLength, unsigned char* mac,
                          unsigned int macLength) override;
    int stopOOBBTP(unsigned int accId) override;
    int BTConnectionUpdate(unsigned int accId, unsigned int a, unsigned int b) override;
    int RouteGuidanceUpdates(unsigned int accId, const android::sp<RouteGuidaceUpdateInfo>& info) override;
    int RouteGuidanceManeuverUpdates(unsigned int accId,
                                     const android::sp<RuoteGuidanceManeuverUpdateInfo>& info) override;
    int LaneGuidanceInformation(unsigned int accId, const android::sp<LaneGuidanceInfo>& info) override;
    int AppDiscoveryUpdate(unsigned int accId, unsigned int first, AppleAppList* list1, unsigned short count1,
                           unsigned int second, AppleAppList* list2, unsigned short count2) override;
    int AppDiscoveryAppIcon(unsigned int accId, const char* appId, bool flag, unsigned char kind, char* icon,
                            unsigned int iconLength) override;
    int CallStateUpdate(unsigned int accId, CallStateUpdateParam& param) override;
    int CommunicationsUpdate(unsigned int accId, CommunicationsUpdateParam* param) override;
    int CarPlayAvailability(unsigned int accId, CPAvailabilityWiredAttributes* wired,
                            CPAvailabilityWirelessAttributes* wireless) override;
    int StartBluetoothPairing(unsigned int accId, unsigned short id, unsigned char* mac) override;
    int StopBluetoothPairing(unsigned int accId, unsigned short id, unsigned int result) override;
    int DestinationInformation(unsigned int accId, const DestinationInfo* info) override;
    int AssistiveTouchInformation(unsigned int accId, bool enabled) override;
    int CarPlayMatchedDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) override;

  private:
    template <typename... Arguments>
    void say(const char* event, const Arguments&... arguments) {
        mReport(mVerbose ? showCall(event, arguments...) : std::string());
    }

    const android::sp<AppleiAP2ManagerNotifierItf> mClients;
    const bool mVerbose;
    const EventReport mReport;
};

/// Stands before the broadcaster of the USB audio manager.
class ReportedUSBAudioEvents : public AppleUSBAudioManagerNotifierItf {
  public:
    /// As for ReportedEvents.
    ReportedUSBAudioEvents(const android::sp<AppleUSBAudioManagerNotifierItf>& clients, EventReport report)
        : mClients(clients), mReport(std::move(report)) {}

    int attach(unsigned int accessoryId) override {
        mReport(showCall("USBAudio.attach", accessoryId));
        return mClients->attach(accessoryId);
    }
    int detach(unsigned int accessoryId) override {
        mReport(showCall("USBAudio.detach", accessoryId));
        return mClients->detach(accessoryId);
    }

  private:
    const android::sp<AppleUSBAudioManagerNotifierItf> mClients;
    const EventReport mReport;
};

}  // namespace accessory::simulator
