// A service that does nothing: every request succeeds. Benchmarks override the few that they look at.
#pragma once

#include <accessory/AppleiAP2ManagerImplItf.h>

namespace accessory::bench {

class IdleManager : public AppleiAP2ManagerImplItf {
  public:
    int setName(const char* /*name*/) override { return 0; }
    int setSerialNumber(const char* /*serialNumber*/) override { return 0; }
    int setDisplayName(const char* /*displayName*/) override { return 0; }
    int setBluetoothAddr(unsigned char* /*addr*/, unsigned int /*len*/) override { return 0; }
    int startup(AppleiAP2TransportMode /*mode*/) override { return 0; }
    int shutdown(AppleiAP2TransportMode /*mode*/) override { return 0; }
    int setConfigPath(AppleiAP2TransportMode /*mode*/, const char* /*path*/) override { return 0; }
    int getAccessoryIds(unsigned int* /*ids*/, unsigned int* /*count*/) override { return 0; }
    const char* getSupportFeature(unsigned int /*accId*/, const char* /*feature*/) override {
        return nullptr;
    }
    int start(unsigned int /*accId*/) override { return 0; }
    int stop(unsigned int /*accId*/) override { return 0; }
    int getAPPIds(unsigned int /*accId*/, const char** /*appIds*/, unsigned int* /*count*/) override {
        return 0;
    }
    int launchAPP(unsigned int /*accId*/, const char* /*appId*/, AppLaunchMethod /*method*/) override {
        return 0;
    }
    int startHID(unsigned int /*accId*/) override { return 0; }
    int dispatchMediaPlaybackRemoteEvent(unsigned int /*accId*/, unsigned int /*value1*/,
                                         unsigned int /*value2*/) override {
        return 0;
    }
    int stopHID(unsigned int /*accId*/) override { return 0; }
    int startHID(unsigned int /*accId*/, HIDReportAttributes* /*attributes*/) override { return 0; }
    int accHIDReport(unsigned int /*accId*/, unsigned char* /*report*/, int /*len*/) override { return 0; }
    int updateLocation(unsigned int /*accId*/, const unsigned char* /*data*/, int /*len*/) override {
        return 0;
    }
    int OOBBTPAccInfo(unsigned int /*accId*/, int /*value*/) override { return 0; }
    int OOBBTPCompletionInfo(unsigned int /*accId*/, int /*value*/) override { return 0; }
    int startMediaLibInformation(unsigned int /*accId*/) override { return 0; }
    int stopMediaLibInformation(unsigned int /*accId*/) override { return 0; }
    int startMediaLibUpdates(unsigned int /*accId*/, const char* /*first*/,
                             android::sp<MediaLibDataMask>& /*dataMask*/,
                             android::sp<MediaItemMask>& /*itemMask*/,
                             android::sp<MediaPlaylistMask>& /*playlistMask*/,
                             const char* /*last*/) override {
        return 0;
    }
    int startMediaLibUpdates(unsigned int /*accId*/, android::sp<MediaLibUpdateInfo>& /*info*/) override {
        return 0;
    }
    int stopMediaLibUpdates(unsigned int /*accId*/, const char* /*libraryId*/) override { return 0; }
    int playMediaLibCurrentSelection(unsigned int /*accId*/, const char* /*libraryId*/) override { return 0; }
    int playMediaLibItems(unsigned int /*accId*/, const char* /*libraryId*/, unsigned long long* /*itemIds*/,
                          int /*count*/, int /*value*/) override {
        return 0;
    }
    int playMediaLibCollection(unsigned int /*accId*/, const char* /*libraryId*/,
                               unsigned long long /*collectionId*/, MediaLibCollectionType /*type*/,
                               int /*value*/) override {
        return 0;
    }
    int playMediaLibSpecial(unsigned int /*accId*/, const char* /*libraryId*/, int /*value*/) override {
        return 0;
    }
    int startNowPlayingUpdate(unsigned int /*accId*/, android::sp<iAP2ItemAttributeMask>& /*attributeMask*/,
                              android::sp<iAP2MediaPlaybackMask>& /*playbackMask*/) override {
        return 0;
    }
    int stopNowPlayingUpdate(unsigned int /*accId*/) override { return 0; }
    int setNowPlayingInfo(unsigned int /*accId*/, unsigned int /*value1*/, unsigned int /*value2*/) override {
        return 0;
    }
    int startPowerUpdate(unsigned int /*accId*/, android::sp<iAP2PowerUpdateMask>& /*powerMask*/) override {
        return 0;
    }
    int stopPowerUpdate(unsigned int /*accId*/) override { return 0; }
    int powerSourceUpdate(unsigned int /*accId*/, unsigned int /*value*/, bool /*flag*/) override {
        return 0;
    }
    int startUSBDeviceModeAudio(unsigned int /*accId*/) override { return 0; }
    int stopUSBDeviceModeAudio(unsigned int /*accId*/) override { return 0; }
    int requestWiFiInformation(unsigned int /*accId*/) override { return 0; }
    int accessoryWiFiConfigInforamtion(unsigned int /*accId*/, const char* /*ssid*/,
                                       const char* /*passphrase*/, WiFiSecurityType /*securityType*/,
                                       unsigned char /*channel*/) override {
        return 0;
    }
    int getEASessionCount(unsigned int /*accId*/) override { return 0; }
    int getEASessionId(unsigned int /*accId*/, int /*index*/, int* /*first*/, int* /*second*/) override {
        return 0;
    }
    int registerEASessionChannel(unsigned int /*accId*/, unsigned int /*value1*/, unsigned int /*value2*/,
                                 unsigned int /*value3*/) override {
        return 0;
    }
    int unregisterEASessionChannel(unsigned int /*accId*/, unsigned int /*value1*/, unsigned int /*value2*/,
                                   unsigned int /*value3*/) override {
        return 0;
    }
    int EASessionSendDataReady(unsigned int /*accId*/, unsigned int /*value1*/,
                               unsigned int /*value2*/) override {
        return 0;
    }
    int updateEAPStatus(unsigned int /*accId*/, unsigned int /*value1*/, unsigned int /*value2*/) override {
        return 0;
    }
    int fileTransferRecvInit(unsigned int /*accId*/, unsigned int /*transferId*/,
                             unsigned long long /*value*/) override {
        return 0;
    }
    int fileTransferRecvStart(unsigned int /*accId*/, unsigned int /*transferId*/) override { return 0; }
    int fileTransferRecvPause(unsigned int /*accId*/, unsigned int /*transferId*/) override { return 0; }
    int fileTransferRecvCancel(unsigned int /*accId*/, unsigned int /*transferId*/) override { return 0; }
    int registerFileTransferChannel(unsigned int /*accId*/, unsigned int /*value1*/, unsigned int /*value2*/,
                                    unsigned int /*value3*/) override {
        return 0;
    }
    int unregisterFileTransferChannel(unsigned int /*accId*/, unsigned int /*value1*/,
                                      unsigned int /*value2*/, unsigned int /*value3*/) override {
        return 0;
    }
    int BTComponentInformation(unsigned int /*accId*/, BTComInfo_s* /*infos*/,
                               unsigned int /*count*/) override {
        return 0;
    }
    int StartBTConnectionUpdate(unsigned int /*accId*/, unsigned int* /*ids*/,
                                unsigned int /*count*/) override {
        return 0;
    }
    int StopBTConnectionUpdate(unsigned int /*accId*/) override { return 0; }
    int StartRouteGuidanceUpdate(unsigned int /*accId*/, int* /*ids*/, int /*count*/,
                                 unsigned int /*value*/) override {
        return 0;
    }
    int StopRouteGuidanceUpdate(unsigned int /*accId*/, int* /*ids*/, int /*count*/) override { return 0; }
    int StartAppDiscoveryUpdates(unsigned int /*accId*/, unsigned int /*value1*/, unsigned short /*value2*/,
                                 unsigned short /*value3*/, unsigned int /*value4*/,
                                 unsigned short /*value5*/) override {
        return 0;
    }
    int StopAppDiscoveryUpdates(unsigned int /*accId*/) override { return 0; }
    int RequestAppDiscoveryAppIcons(unsigned int /*accId*/, const char* /*bundleId*/) override { return 0; }
    int StartCallStateUpdates(unsigned int /*accId*/, const StartCallStateUpdateParam& /*param*/) override {
        return 0;
    }
    int StopCallStateUpdates(unsigned int /*accId*/) override { return 0; }
    int StartCommunicationsUpdates(unsigned int /*accId*/,
                                   const StartCommunicationsUpdatesParam* /*param*/) override {
        return 0;
    }
    int StopCommunicationsUpdates(unsigned int /*accId*/) override { return 0; }
    int AcceptCall(unsigned int /*accId*/, int /*action*/, const char* /*callUuid*/) override { return 0; }
    int EndCall(unsigned int /*accId*/, int /*action*/, const char* /*callUuid*/) override { return 0; }
    int InitiateCall(unsigned int /*accId*/, InitiateCallParam* /*param*/) override { return 0; }
    int SwapCalls(unsigned int /*accId*/) override { return 0; }
    int MergeCalls(unsigned int /*accId*/) override { return 0; }
    int HoldStatusUpdate(unsigned int /*accId*/, bool /*held*/, const char* /*callUuid*/) override {
        return 0;
    }
    int MuteStatusUpdate(unsigned int /*accId*/, bool /*muted*/) override { return 0; }
    int SendDTMF(unsigned int /*accId*/, int /*tone*/, const char* /*callUuid*/) override { return 0; }
    int CarPlayStartSession(unsigned int /*accId*/, CPStartSessionWiredAttributes* /*wired*/,
                            CPStartSessionWirelessAttributes* /*wireless*/, unsigned int /*value*/,
                            const char* /*string1*/, const char* /*string2*/,
                            const char* /*string3*/) override {
        return 0;
    }
    int BluetoothPairingAccessoryInformation(unsigned int /*accId*/, unsigned short /*value*/,
                                             unsigned char (* /*block1*/)[16],
                                             unsigned char (* /*block2*/)[16]) override {
        return 0;
    }
    int BluetoothPairingStatus(unsigned int /*accId*/, unsigned short /*value1*/, unsigned int /*value2*/,
                               const char* /*text*/) override {
        return 0;
    }
    int StartDestinationInformation(unsigned int /*accId*/, unsigned int /*value*/) override { return 0; }
    int StopDestinationInformation(unsigned int /*accId*/) override { return 0; }
    int DestinationInformationStatus(unsigned int /*accId*/, const char* /*text*/,
                                     unsigned int /*value*/) override {
        return 0;
    }
    int StartAssistiveTouch(unsigned int /*accId*/) override { return 0; }
    int StopAssistiveTouch(unsigned int /*accId*/) override { return 0; }
    int StartAssistiveTouchInformation(unsigned int /*accId*/) override { return 0; }
    int StopAssistiveTouchInformation(unsigned int /*accId*/) override { return 0; }
    int CarPlayAvailableDigitalCarKeys(unsigned int /*accId*/, std::vector<std::string>& /*keys*/) override {
        return 0;
    }
    int setProperty(AppleiAP2TransportMode /*mode*/, const std::string& /*key*/,
                    const std::string& /*value*/) override {
        return 0;
    }
    const char* getVersion() override { return nullptr; }
    int addNotifier(const android::sp<AppleiAP2ManagerNotifierItf>& /*notifier*/) override { return 0; }
    int dump(const android::Vector<android::String16>& /*args*/, android::String8& /*result*/) override {
        return 0;
    }
};

}  // namespace accessory::bench
