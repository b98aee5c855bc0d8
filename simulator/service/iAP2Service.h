// iAP2Service: what the simulator answers behind IAppleiAP2Manager.
#pragma once

#include <accessory/AppleiAP2ManagerImplItf.h>

#include <string>
#include <vector>

#include "simulator/World.h"
#include "simulator/faults/FaultInjector.h"
#include "simulator/service/Request.h"

namespace accessory::simulator {

/// Translates requests into what the devices understand. Any thread of the runtime calls it; the world is
/// locked while a request is carried out.
class iAP2Service : public AppleiAP2ManagerImplItf {
  public:
    /// @param world, @param report, @param faults outlive the service.
    iAP2Service(World& world, Report& report, const FaultInjector& faults)
        : mWorld(world), mReport(report), mFaults(faults) {}

    int setName(const char* name) override;
    int setSerialNumber(const char* serialNumber) override;
    int setDisplayName(const char* displayName) override;
    int setBluetoothAddr(unsigned char* addr, unsigned int len) override;
    int startup(AppleiAP2TransportMode mode) override;
    int shutdown(AppleiAP2TransportMode mode) override;
    int setConfigPath(AppleiAP2TransportMode mode, const char* path) override;
    int getAccessoryIds(unsigned int* ids, unsigned int* count) override;
    const char* getSupportFeature(unsigned int accId, const char* feature) override;
    int start(unsigned int accId) override;
    int stop(unsigned int accId) override;
    int getAPPIds(unsigned int accId, const char** appIds, unsigned int* count) override;
    int launchAPP(unsigned int accId, const char* appId, AppLaunchMethod method) override;
    int startHID(unsigned int accId) override;
    int dispatchMediaPlaybackRemoteEvent(unsigned int accId, unsigned int value1,
                                         unsigned int value2) override;
    int stopHID(unsigned int accId) override;
    int startHID(unsigned int accId, HIDReportAttributes* attributes) override;
    int accHIDReport(unsigned int accId, unsigned char* report, int len) override;
    int updateLocation(unsigned int accId, const unsigned char* data, int len) override;
    int OOBBTPAccInfo(unsigned int accId, int value) override;
    int OOBBTPCompletionInfo(unsigned int accId, int value) override;
    int startMediaLibInformation(unsigned int accId) override;
    int stopMediaLibInformation(unsigned int accId) override;
    int startMediaLibUpdates(unsigned int accId, const char* first, android::sp<MediaLibDataMask>& dataMask,
                             android::sp<MediaItemMask>& itemMask,
                             android::sp<MediaPlaylistMask>& playlistMask, const char* last) override;
    int startMediaLibUpdates(unsigned int accId, android::sp<MediaLibUpdateInfo>& info) override;
    int stopMediaLibUpdates(unsigned int accId, const char* libraryId) override;
    int playMediaLibCurrentSelection(unsigned int accId, const char* libraryId) override;
    int playMediaLibItems(unsigned int accId, const char* libraryId, unsigned long long* itemIds, int count,
                          int value) override;
    int playMediaLibCollection(unsigned int accId, const char* libraryId, unsigned long long collectionId,
                               MediaLibCollectionType type, int value) override;
    int playMediaLibSpecial(unsigned int accId, const char* libraryId, int value) override;
    int startNowPlayingUpdate(unsigned int accId, android::sp<iAP2ItemAttributeMask>& attributeMask,
                              android::sp<iAP2MediaPlaybackMask>& playbackMask) override;
    int stopNowPlayingUpdate(unsigned int accId) override;
    int setNowPlayingInfo(unsigned int accId, unsigned int value1, unsigned int value2) override;
    int startPowerUpdate(unsigned int accId, android::sp<iAP2PowerUpdateMask>& powerMask) override;
    int stopPowerUpdate(unsigned int accId) override;
    int powerSourceUpdate(unsigned int accId, unsigned int value, bool flag) override;
    int startUSBDeviceModeAudio(unsigned int accId) override;
    int stopUSBDeviceModeAudio(unsigned int accId) override;
    int requestWiFiInformation(unsigned int accId) override;
    int accessoryWiFiConfigInforamtion(unsigned int accId, const char* ssid, const char* passphrase,
                                       WiFiSecurityType securityType, unsigned char channel) override;
    int getEASessionCount(unsigned int accId) override;
    int getEASessionId(unsigned int accId, int index, int* first, int* second) override;
    int registerEASessionChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                 unsigned int value3) override;
    int unregisterEASessionChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                   unsigned int value3) override;
    int EASessionSendDataReady(unsigned int accId, unsigned int value1, unsigned int value2) override;
    int updateEAPStatus(unsigned int accId, unsigned int value1, unsigned int value2) override;
    int fileTransferRecvInit(unsigned int accId, unsigned int transferId, unsigned long long value) override;
    int fileTransferRecvStart(unsigned int accId, unsigned int transferId) override;
    int fileTransferRecvPause(unsigned int accId, unsigned int transferId) override;
    int fileTransferRecvCancel(unsigned int accId, unsigned int transferId) override;
    int registerFileTransferChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                    unsigned int value3) override;
    int unregisterFileTransferChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                      unsigned int value3) override;
    int BTComponentInformation(unsigned int accId, BTComInfo_s* infos, unsigned int count) override;
    int StartBTConnectionUpdate(unsigned int accId, unsigned int* ids, unsigned int count) override;
    int StopBTConnectionUpdate(unsigned int accId) override;
    int StartRouteGuidanceUpdate(unsigned int accId, int* ids, int count, unsigned int value) override;
    int StopRouteGuidanceUpdate(unsigned int accId, int* ids, int count) override;
    int StartAppDiscoveryUpdates(unsigned int accId, unsigned int value1, unsigned short value2,
                                 unsigned short value3, unsigned int value4, unsigned short value5) override;
    int StopAppDiscoveryUpdates(unsigned int accId) override;
    int RequestAppDiscoveryAppIcons(unsigned int accId, const char* bundleId) override;
    int StartCallStateUpdates(unsigned int accId, const StartCallStateUpdateParam& param) override;
    int StopCallStateUpdates(unsigned int accId) override;
    int StartCommunicationsUpdates(unsigned int accId, const StartCommunicationsUpdatesParam* param) override;
    int StopCommunicationsUpdates(unsigned int accId) override;
    int AcceptCall(unsigned int accId, int action, const char* callUuid) override;
    int EndCall(unsigned int accId, int action, const char* callUuid) override;
    int InitiateCall(unsigned int accId, InitiateCallParam* param) override;
    int SwapCalls(unsigned int accId) override;
    int MergeCalls(unsigned int accId) override;
    int HoldStatusUpdate(unsigned int accId, bool held, const char* callUuid) override;
    int MuteStatusUpdate(unsigned int accId, bool muted) override;
    int SendDTMF(unsigned int accId, int tone, const char* callUuid) override;
    int CarPlayStartSession(unsigned int accId, CPStartSessionWiredAttributes* wired,
                            CPStartSessionWirelessAttributes* wireless, unsigned int value,
                            const char* string1, const char* string2, const char* string3) override;
    int BluetoothPairingAccessoryInformation(unsigned int accId, unsigned short value,
                                             unsigned char (*block1)[16],
                                             unsigned char (*block2)[16]) override;
    int BluetoothPairingStatus(unsigned int accId, unsigned short value1, unsigned int value2,
                               const char* text) override;
    int StartDestinationInformation(unsigned int accId, unsigned int value) override;
    int StopDestinationInformation(unsigned int accId) override;
    int DestinationInformationStatus(unsigned int accId, const char* text, unsigned int value) override;
    int StartAssistiveTouch(unsigned int accId) override;
    int StopAssistiveTouch(unsigned int accId) override;
    int StartAssistiveTouchInformation(unsigned int accId) override;
    int StopAssistiveTouchInformation(unsigned int accId) override;
    int CarPlayAvailableDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) override;
    int setProperty(AppleiAP2TransportMode mode, const std::string& key, const std::string& value) override;
    const char* getVersion() override;
    int addNotifier(const android::sp<AppleiAP2ManagerNotifierItf>& notifier) override;
    int dump(const android::Vector<android::String16>& args, android::String8& result) override;

  private:
    /// Carries a request out with the world locked. @param arguments are shown.
    template <typename Action, typename... Arguments>
    int serve(const char* name, const Action& action, const Arguments&... arguments) {
        return serveRequest(mWorld, mReport, showCall(name, arguments...), action);
    }

    /// As serve(), with the attached device.
    template <typename Action, typename... Arguments>
    int onDevice(const char* name, unsigned int accId, const Action& action, const Arguments&... arguments) {
        const auto withDevice = [&] {
            Device* const device = mWorld.attached(accId);
            return device != nullptr ? action(*device) : kNoSuchAccessory;
        };
        return serve(name, withDevice, accId, arguments...);
    }

    int keep(const char* operation, const std::string& name, const char* value);

    World& mWorld;
    Report& mReport;
    const FaultInjector& mFaults;
};

}  // namespace accessory::simulator
