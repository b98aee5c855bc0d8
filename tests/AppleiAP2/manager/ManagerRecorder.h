// ManagerRecorder: a service that notes down every call it gets, "operation(arguments)", having read all of
// the arguments.
#pragma once

#include <accessory/IAppleiAP2Manager.h>

#include <atomic>
#include <initializer_list>
#include <mutex>
#include <string>
#include <vector>

namespace accessory::test {

/// For calls from any threads. What it answers is set before the first call, but for @ref answer.
class ManagerRecorder : public AppleiAP2ManagerImplItf {
  public:
    std::atomic<int> answer{0};                            ///< status of every operation
    std::vector<unsigned int> ids{11, 0xfffffffe, 13};     ///< of getAccessoryIds(), at most 10
    unsigned int idCount = 3;                              ///< as told beside them
    std::vector<const char*> appIds{"app.one", "", "c"};   ///< of getAPPIds(), at most 10
    unsigned int appIdCount = 3;                           ///< as told beside them
    const char* feature = "yes, it does";                  ///< of getSupportFeature()
    const char* version = "1.2.3";                         ///< of getVersion()
    int session[2] = {-5, 0x01020304};                     ///< of getEASessionId()
    android::sp<AppleiAP2ManagerNotifierItf> broadcaster;  ///< as the stub handed it over

    /// What was told since the last time.
    std::vector<std::string> takeTold();

    int setName(const char* name) override;
    int setSerialNumber(const char* serialNumber) override;
    int setDisplayName(const char* displayName) override;
    int setBluetoothAddr(unsigned char* addr, unsigned int len) override;
    int startup(AppleiAP2TransportMode mode) override;
    int shutdown(AppleiAP2TransportMode mode) override;
    int setConfigPath(AppleiAP2TransportMode mode, const char* path) override;
    int getAccessoryIds(unsigned int* room, unsigned int* count) override;
    const char* getSupportFeature(unsigned int accId, const char* name) override;
    int start(unsigned int accId) override;
    int stop(unsigned int accId) override;
    int getAPPIds(unsigned int accId, const char** room, unsigned int* count) override;
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
    int note(const char* operation, std::initializer_list<std::string> arguments);

    std::mutex mLock;
    std::vector<std::string> mTold;
};

}  // namespace accessory::test
