// Recorder: an implementation that notes down every call it gets, "operation(arguments)", having read all of
// the arguments.
#pragma once

#include <accessory/IAppleiAP2ManagerNotifier.h>

#include <atomic>
#include <mutex>
#include <string>
#include <vector>

#include "tests/support/Meanwhile.h"

namespace accessory::test {

/// For calls from any threads.
class Recorder : public AppleiAP2ManagerNotifierImplItf {
  public:
    std::atomic<int> answer{0};  ///< of every operation
    Meanwhile meanwhile;         ///< runs in every call, before it is noted

    /// What was told since the last time.
    std::vector<std::string> takeTold();

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
    int note(const char* operation, unsigned int accId, const Arguments&... arguments);

    std::mutex mLock;
    std::vector<std::string> mTold;
};

}  // namespace accessory::test
