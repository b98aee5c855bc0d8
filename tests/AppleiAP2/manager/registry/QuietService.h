// QuietService: an implementation of the iAP2 service that keeps the broadcaster and answers 0 to everything.
#pragma once

#include <accessory/IAppleiAP2Manager.h>

#include <atomic>
#include <string>
#include <vector>

namespace accessory::test {

class QuietService : public AppleiAP2ManagerImplItf {
  public:
    int addStatus = 0;                            ///< of addNotifier()
    int dumpStatus = 0;                           ///< of dump()
    std::atomic<int> dumps{0};                    ///< how often dump() was called
    android::Vector<android::String16> dumpArgs;  ///< of the latest dump()

    /// All that addNotifier() was given.
    std::vector<android::sp<AppleiAP2ManagerNotifierItf>> broadcasters;

    int addNotifier(const android::sp<AppleiAP2ManagerNotifierItf>& notifier) override {
        broadcasters.push_back(notifier);
        return addStatus;
    }

    int dump(const android::Vector<android::String16>& args, android::String8& result) override {
        ++dumps;
        dumpArgs = args;
        result.append("quiet\n");
        return dumpStatus;
    }

    int setName(const char*) override { return 0; }
    int setSerialNumber(const char*) override { return 0; }
    int setDisplayName(const char*) override { return 0; }
    int setBluetoothAddr(unsigned char*, unsigned int) override { return 0; }
    int startup(AppleiAP2TransportMode) override { return 0; }
    int shutdown(AppleiAP2TransportMode) override { return 0; }
    int setConfigPath(AppleiAP2TransportMode, const char*) override { return 0; }
    int getAccessoryIds(unsigned int*, unsigned int*) override { return 0; }
    const char* getSupportFeature(unsigned int, const char*) override { return nullptr; }
    int start(unsigned int) override { return 0; }
    int stop(unsigned int) override { return 0; }
    int getAPPIds(unsigned int, const char**, unsigned int*) override { return 0; }
    int launchAPP(unsigned int, const char*, AppLaunchMethod) override { return 0; }
    int startHID(unsigned int) override { return 0; }
    int dispatchMediaPlaybackRemoteEvent(unsigned int, unsigned int, unsigned int) override { return 0; }
    int stopHID(unsigned int) override { return 0; }
    int startHID(unsigned int, HIDReportAttributes*) override { return 0; }
    int accHIDReport(unsigned int, unsigned char*, int) override { return 0; }
    int updateLocation(unsigned int, const unsigned char*, int) override { return 0; }
    int OOBBTPAccInfo(unsigned int, int) override { return 0; }
    int OOBBTPCompletionInfo(unsigned int, int) override { return 0; }
    int startMediaLibInformation(unsigned int) override { return 0; }
    int stopMediaLibInformation(unsigned int) override { return 0; }
    int startMediaLibUpdates(unsigned int, const char*, android::sp<MediaLibDataMask>&,
                             android::sp<MediaItemMask>&, android::sp<MediaPlaylistMask>&,
                             const char*) override {
        return 0;
    }
    int startMediaLibUpdates(unsigned int, android::sp<MediaLibUpdateInfo>&) override { return 0; }
    int stopMediaLibUpdates(unsigned int, const char*) override { return 0; }
    int playMediaLibCurrentSelection(unsigned int, const char*) override { return 0; }
    int playMediaLibItems(unsigned int, const char*, unsigned long long*, int, int) override { return 0; }
    int playMediaLibCollection(unsigned int, const char*, unsigned long long, MediaLibCollectionType,
                               int) override {
        return 0;
    }
    int playMediaLibSpecial(unsigned int, const char*, int) override { return 0; }
    int startNowPlayingUpdate(unsigned int, android::sp<iAP2ItemAttributeMask>&,
                              android::sp<iAP2MediaPlaybackMask>&) override {
        return 0;
    }
    int stopNowPlayingUpdate(unsigned int) override { return 0; }
    int setNowPlayingInfo(unsigned int, unsigned int, unsigned int) override { return 0; }
    int startPowerUpdate(unsigned int, android::sp<iAP2PowerUpdateMask>&) override { return 0; }
    int stopPowerUpdate(unsigned int) override { return 0; }
    int powerSourceUpdate(unsigned int, unsigned int, bool) override { return 0; }
    int startUSBDeviceModeAudio(unsigned int) override { return 0; }
    int stopUSBDeviceModeAudio(unsigned int) override { return 0; }
    int requestWiFiInformation(unsigned int) override { return 0; }
    int accessoryWiFiConfigInforamtion(unsigned int, const char*, const char*, WiFiSecurityType,
                                       unsigned char) override {
        return 0;
    }
    int getEASessionCount(unsigned int) override { return 0; }
    int getEASessionId(unsigned int, int, int*, int*) override { return 0; }
    int registerEASessionChannel(unsigned int, unsigned int, unsigned int, unsigned int) override {
        return 0;
    }
    int unregisterEASessionChannel(unsigned int, unsigned int, unsigned int, unsigned int) override {
        return 0;
    }
    int EASessionSendDataReady(unsigned int, unsigned int, unsigned int) override { return 0; }
    int updateEAPStatus(unsigned int, unsigned int, unsigned int) override { return 0; }
    int fileTransferRecvInit(unsigned int, unsigned int, unsigned long long) override { return 0; }
    int fileTransferRecvStart(unsigned int, unsigned int) override { return 0; }
    int fileTransferRecvPause(unsigned int, unsigned int) override { return 0; }
    int fileTransferRecvCancel(unsigned int, unsigned int) override { return 0; }
    int registerFileTransferChannel(unsigned int, unsigned int, unsigned int, unsigned int) override {
        return 0;
    }
    int unregisterFileTransferChannel(unsigned int, unsigned int, unsigned int, unsigned int) override {
        return 0;
    }
    int BTComponentInformation(unsigned int, BTComInfo_s*, unsigned int) override { return 0; }
    int StartBTConnectionUpdate(unsigned int, unsigned int*, unsigned int) override { return 0; }
    int StopBTConnectionUpdate(unsigned int) override { return 0; }
    int StartRouteGuidanceUpdate(unsigned int, int*, int, unsigned int) override { return 0; }
    int StopRouteGuidanceUpdate(unsigned int, int*, int) override { return 0; }
    int StartAppDiscoveryUpdates(unsigned int, unsigned int, unsigned short, unsigned short, unsigned int,
                                 unsigned short) override {
        return 0;
    }
    int StopAppDiscoveryUpdates(unsigned int) override { return 0; }
    int RequestAppDiscoveryAppIcons(unsigned int, const char*) override { return 0; }
    int StartCallStateUpdates(unsigned int, const StartCallStateUpdateParam&) override { return 0; }
    int StopCallStateUpdates(unsigned int) override { return 0; }
    int StartCommunicationsUpdates(unsigned int, const StartCommunicationsUpdatesParam*) override {
        return 0;
    }
    int StopCommunicationsUpdates(unsigned int) override { return 0; }
    int AcceptCall(unsigned int, int, const char*) override { return 0; }
    int EndCall(unsigned int, int, const char*) override { return 0; }
    int InitiateCall(unsigned int, InitiateCallParam*) override { return 0; }
    int SwapCalls(unsigned int) override { return 0; }
    int MergeCalls(unsigned int) override { return 0; }
    int HoldStatusUpdate(unsigned int, bool, const char*) override { return 0; }
    int MuteStatusUpdate(unsigned int, bool) override { return 0; }
    int SendDTMF(unsigned int, int, const char*) override { return 0; }
    int CarPlayStartSession(unsigned int, CPStartSessionWiredAttributes*, CPStartSessionWirelessAttributes*,
                            unsigned int, const char*, const char*, const char*) override {
        return 0;
    }
    int BluetoothPairingAccessoryInformation(unsigned int, unsigned short, unsigned char (*)[16],
                                             unsigned char (*)[16]) override {
        return 0;
    }
    int BluetoothPairingStatus(unsigned int, unsigned short, unsigned int, const char*) override { return 0; }
    int StartDestinationInformation(unsigned int, unsigned int) override { return 0; }
    int StopDestinationInformation(unsigned int) override { return 0; }
    int DestinationInformationStatus(unsigned int, const char*, unsigned int) override { return 0; }
    int StartAssistiveTouch(unsigned int) override { return 0; }
    int StopAssistiveTouch(unsigned int) override { return 0; }
    int StartAssistiveTouchInformation(unsigned int) override { return 0; }
    int StopAssistiveTouchInformation(unsigned int) override { return 0; }
    int CarPlayAvailableDigitalCarKeys(unsigned int, std::vector<std::string>&) override { return 0; }
    int setProperty(AppleiAP2TransportMode, const std::string&, const std::string&) override { return 0; }
    const char* getVersion() override { return nullptr; }
};

}  // namespace accessory::test
