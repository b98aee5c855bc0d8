// AppleiAP2ManagerImplItf: what an iAP2 service implements behind its stub.
#pragma once

#include <accessory/AppleiAP2ManagerNotifier.h>
#include <accessory/AppleiAP2Types.h>
#include <accessory/Export.h>
#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/PowerRecords.h>
#include <utils/String16.h>
#include <utils/String8.h>
#include <utils/Vector.h>

#include <string>
#include <vector>

namespace accessory {

/// What a service implements: the operations of IAppleiAP2Manager but for registration, which is the stub's
/// own. They are called on the Binder runtime's threads, several at once. Arrays of identifiers that
/// they fill in have room for 10. Texts that are returned stay the implementation's, and must live
/// until the reply is written: longer than the call.
class ACCESSORY_EXPORT AppleiAP2ManagerImplItf : public virtual android::RefBase {
  public:
    ~AppleiAP2ManagerImplItf() override;

    /// @name Requests
    /// @{

    /// Carries out the operation of IAppleiAP2Manager that has the same name, where its arguments and its
    /// result are told. The arguments are borrowed until it returns; the result goes to the client as it is.
    virtual int setName(const char* name) = 0;
    virtual int setSerialNumber(const char* serialNumber) = 0;
    virtual int setDisplayName(const char* displayName) = 0;
    virtual int setBluetoothAddr(unsigned char* addr, unsigned int len) = 0;
    virtual int startup(AppleiAP2TransportMode mode) = 0;
    virtual int shutdown(AppleiAP2TransportMode mode) = 0;
    virtual int setConfigPath(AppleiAP2TransportMode mode, const char* path) = 0;
    virtual void reserved1() {}  ///< a place that nothing calls
    virtual void reserved2() {}  ///< a place that nothing calls
    virtual int getAccessoryIds(unsigned int* ids, unsigned int* count) = 0;
    virtual const char* getSupportFeature(unsigned int accId, const char* feature) = 0;
    virtual int start(unsigned int accId) = 0;
    virtual int stop(unsigned int accId) = 0;
    virtual int getAPPIds(unsigned int accId, const char** appIds, unsigned int* count) = 0;
    virtual int launchAPP(unsigned int accId, const char* appId, AppLaunchMethod method) = 0;
    virtual int startHID(unsigned int accId) = 0;
    virtual int dispatchMediaPlaybackRemoteEvent(unsigned int accId, unsigned int value1,
                                                 unsigned int value2) = 0;
    virtual int stopHID(unsigned int accId) = 0;
    virtual int startHID(unsigned int accId, HIDReportAttributes* attributes) = 0;
    virtual int accHIDReport(unsigned int accId, unsigned char* report, int len) = 0;
    virtual int updateLocation(unsigned int accId, const unsigned char* data, int len) = 0;
    virtual int OOBBTPAccInfo(unsigned int accId, int value) = 0;
    virtual int OOBBTPCompletionInfo(unsigned int accId, int value) = 0;
    virtual int startMediaLibInformation(unsigned int accId) = 0;
    virtual int stopMediaLibInformation(unsigned int accId) = 0;
    virtual int startMediaLibUpdates(unsigned int accId, const char* first,
                                     android::sp<MediaLibDataMask>& dataMask,
                                     android::sp<MediaItemMask>& itemMask,
                                     android::sp<MediaPlaylistMask>& playlistMask, const char* last) = 0;
    virtual int startMediaLibUpdates(unsigned int accId, android::sp<MediaLibUpdateInfo>& info) = 0;
    virtual int stopMediaLibUpdates(unsigned int accId, const char* libraryId) = 0;
    virtual int playMediaLibCurrentSelection(unsigned int accId, const char* libraryId) = 0;
    virtual int playMediaLibItems(unsigned int accId, const char* libraryId, unsigned long long* itemIds,
                                  int count, int value) = 0;
    virtual int playMediaLibCollection(unsigned int accId, const char* libraryId,
                                       unsigned long long collectionId, MediaLibCollectionType type,
                                       int value) = 0;
    virtual int playMediaLibSpecial(unsigned int accId, const char* libraryId, int value) = 0;
    virtual int startNowPlayingUpdate(unsigned int accId, android::sp<iAP2ItemAttributeMask>& attributeMask,
                                      android::sp<iAP2MediaPlaybackMask>& playbackMask) = 0;
    virtual int stopNowPlayingUpdate(unsigned int accId) = 0;
    virtual int setNowPlayingInfo(unsigned int accId, unsigned int value1, unsigned int value2) = 0;
    virtual int startPowerUpdate(unsigned int accId, android::sp<iAP2PowerUpdateMask>& powerMask) = 0;
    virtual int stopPowerUpdate(unsigned int accId) = 0;
    virtual int powerSourceUpdate(unsigned int accId, unsigned int value, bool flag) = 0;
    virtual int startUSBDeviceModeAudio(unsigned int accId) = 0;
    virtual int stopUSBDeviceModeAudio(unsigned int accId) = 0;
    virtual int requestWiFiInformation(unsigned int accId) = 0;
    virtual int accessoryWiFiConfigInforamtion(unsigned int accId, const char* ssid, const char* passphrase,
                                               WiFiSecurityType securityType, unsigned char channel) = 0;
    virtual int getEASessionCount(unsigned int accId) = 0;
    virtual int getEASessionId(unsigned int accId, int index, int* first, int* second) = 0;
    virtual int registerEASessionChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                         unsigned int value3) = 0;
    virtual int unregisterEASessionChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                           unsigned int value3) = 0;
    virtual int EASessionSendDataReady(unsigned int accId, unsigned int value1, unsigned int value2) = 0;
    virtual int updateEAPStatus(unsigned int accId, unsigned int value1, unsigned int value2) = 0;
    virtual int fileTransferRecvInit(unsigned int accId, unsigned int transferId,
                                     unsigned long long value) = 0;
    virtual int fileTransferRecvStart(unsigned int accId, unsigned int transferId) = 0;
    virtual int fileTransferRecvPause(unsigned int accId, unsigned int transferId) = 0;
    virtual int fileTransferRecvCancel(unsigned int accId, unsigned int transferId) = 0;
    virtual int registerFileTransferChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                            unsigned int value3) = 0;
    virtual int unregisterFileTransferChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                              unsigned int value3) = 0;
    virtual int BTComponentInformation(unsigned int accId, BTComInfo_s* infos, unsigned int count) = 0;
    virtual int StartBTConnectionUpdate(unsigned int accId, unsigned int* ids, unsigned int count) = 0;
    virtual int StopBTConnectionUpdate(unsigned int accId) = 0;
    virtual int StartRouteGuidanceUpdate(unsigned int accId, int* ids, int count, unsigned int value) = 0;
    virtual int StopRouteGuidanceUpdate(unsigned int accId, int* ids, int count) = 0;
    virtual int StartAppDiscoveryUpdates(unsigned int accId, unsigned int value1, unsigned short value2,
                                         unsigned short value3, unsigned int value4,
                                         unsigned short value5) = 0;
    virtual int StopAppDiscoveryUpdates(unsigned int accId) = 0;
    virtual int RequestAppDiscoveryAppIcons(unsigned int accId, const char* bundleId) = 0;
    virtual int StartCallStateUpdates(unsigned int accId, const StartCallStateUpdateParam& param) = 0;
    virtual int StopCallStateUpdates(unsigned int accId) = 0;
    virtual int StartCommunicationsUpdates(unsigned int accId,
                                           const StartCommunicationsUpdatesParam* param) = 0;
    virtual int StopCommunicationsUpdates(unsigned int accId) = 0;
    virtual int AcceptCall(unsigned int accId, int action, const char* callUuid) = 0;
    virtual int EndCall(unsigned int accId, int action, const char* callUuid) = 0;
    virtual int InitiateCall(unsigned int accId, InitiateCallParam* param) = 0;
    virtual int SwapCalls(unsigned int accId) = 0;
    virtual int MergeCalls(unsigned int accId) = 0;
    virtual int HoldStatusUpdate(unsigned int accId, bool held, const char* callUuid) = 0;
    virtual int MuteStatusUpdate(unsigned int accId, bool muted) = 0;
    virtual int SendDTMF(unsigned int accId, int tone, const char* callUuid) = 0;
    virtual int CarPlayStartSession(unsigned int accId, CPStartSessionWiredAttributes* wired,
                                    CPStartSessionWirelessAttributes* wireless, unsigned int value,
                                    const char* string1, const char* string2, const char* string3) = 0;
    virtual int BluetoothPairingAccessoryInformation(unsigned int accId, unsigned short value,
                                                     unsigned char (*block1)[16],
                                                     unsigned char (*block2)[16]) = 0;
    virtual int BluetoothPairingStatus(unsigned int accId, unsigned short value1, unsigned int value2,
                                       const char* text) = 0;
    virtual int StartDestinationInformation(unsigned int accId, unsigned int value) = 0;
    virtual int StopDestinationInformation(unsigned int accId) = 0;
    virtual int DestinationInformationStatus(unsigned int accId, const char* text, unsigned int value) = 0;
    virtual int StartAssistiveTouch(unsigned int accId) = 0;
    virtual int StopAssistiveTouch(unsigned int accId) = 0;
    virtual int StartAssistiveTouchInformation(unsigned int accId) = 0;
    virtual int StopAssistiveTouchInformation(unsigned int accId) = 0;
    virtual int CarPlayAvailableDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) = 0;
    virtual int setProperty(AppleiAP2TransportMode mode, const std::string& key,
                            const std::string& value) = 0;
    virtual const char* getVersion() = 0;

    /// @}

    /// Called once, while the stub is made, with the broadcaster by which the service raises its events.
    /// @return 0, or an error, which is logged.
    virtual int addNotifier(const android::sp<AppleiAP2ManagerNotifierItf>& notifier) = 0;

    /// Appends a description of the service's state to @p result, for people to read.
    /// @param args what the caller of the dump asked for.
    /// @return 0, or an error, which is logged.
    virtual int dump(const android::Vector<android::String16>& args, android::String8& result) = 0;
};

}  // namespace accessory
