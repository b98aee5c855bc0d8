// IAppleiAP2Manager: the requests from applications to the service that drives devices over iAP2.
#pragma once

#include <accessory/AppleiAP2ManagerImplItf.h>
#include <accessory/AppleiAP2ManagerNotifier.h>
#include <accessory/AppleiAP2Types.h>
#include <accessory/Export.h>
#include <accessory/IAppleiAP2ManagerNotifier.h>
#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/PowerRecords.h>
#include <accessory/Snapshot.h>
#include <binder/IInterface.h>
#include <utils/KeyedVector.h>
#include <utils/String16.h>
#include <utils/String8.h>
#include <utils/Vector.h>

#include <cstdint>
#include <string>
#include <vector>

namespace accessory {

/// The interface "accessory.AppleiAP2Manager". @p accId names one attached device. Every operation returns
/// the service's status, 0 for success, unless it says otherwise. Through a proxy it blocks until the service
/// has answered, may be called from any thread, and gives 0 or null when the service cannot be reached: that
/// is logged, and cannot be told from a service's own answer. What is passed in belongs to the caller; what a
/// receiver is given is valid until it returns.
///
/// Texts end with NUL and are not null unless the operation says so: a null one is left out, and the receiver
/// misreads what follows. What numbers called value, action, type and the like mean, the service defines.
class ACCESSORY_EXPORT IAppleiAP2Manager : public android::IInterface {
  public:
    DECLARE_META_INTERFACE(AppleiAP2Manager)

    /// Sets the accessory's name, as the device will see it.
    virtual int setName(const char* name) = 0;

    /// Sets the accessory's serial number.
    virtual int setSerialNumber(const char* serialNumber) = 0;

    /// Sets the accessory's display name.
    virtual int setDisplayName(const char* displayName) = 0;

    /// Sets the accessory's Bluetooth address. @param addr @p len bytes of the caller's. A receiver may get
    /// null, whatever @p len says, when there was no memory for them.
    virtual int setBluetoothAddr(unsigned char* addr, unsigned int len) = 0;

    /// Starts the transport.
    virtual int startup(AppleiAP2TransportMode mode) = 0;

    /// Shuts the transport down.
    virtual int shutdown(AppleiAP2TransportMode mode) = 0;

    /// Sets where the transport's configuration lies.
    virtual int setConfigPath(AppleiAP2TransportMode mode, const char* path) = 0;

    /// Registers the calling process for all events, until clearNotifier() or its death. A second
    /// registration changes nothing and succeeds. @return -22 for null, from a process without a
    /// registration.
    virtual int setNotifier(const android::sp<IAppleiAP2ManagerNotifier>& notifier) = 0;

    /// Takes the calling process's registration back. @return -1 when there is none.
    virtual int clearNotifier() = 0;

    /// Tells which accessories there are. @param ids room for 10 identifiers, the most there are; an
    /// implementation must not write an eleventh. @param count how many were filled in; more than 10 are cut.
    virtual int getAccessoryIds(unsigned int* ids, unsigned int* count) = 0;

    /// Asks what the accessory says of a feature. @return through a proxy valid until the same thread's next
    /// call of this operation, and null when the service has no answer.
    virtual const char* getSupportFeature(unsigned int accId, const char* feature) = 0;

    /// Starts the accessory's session.
    virtual int start(unsigned int accId) = 0;

    /// Stops the accessory's session.
    virtual int stop(unsigned int accId) = 0;

    /// Tells how many applications there are, in @p count, of which more than 10 are cut. Through a proxy
    /// @p appIds stays as it was, for the identifiers come with events; its entries are logged, so each must
    /// be null or a text. An implementation has room for 10 strings, which stay its own, and no more.
    virtual int getAPPIds(unsigned int accId, const char** appIds, unsigned int* count) = 0;

    /// Launches an application on the device.
    virtual int launchAPP(unsigned int accId, const char* appId, AppLaunchMethod method) = 0;

    /// Starts HID.
    virtual int startHID(unsigned int accId) = 0;

    /// Sends a media playback remote event; the service defines the values.
    virtual int dispatchMediaPlaybackRemoteEvent(unsigned int accId, unsigned int value1,
                                                 unsigned int value2) = 0;

    /// Stops HID.
    virtual int stopHID(unsigned int accId) = 0;

    /// Starts HID with a report descriptor. @param attributes belongs to the caller, its descriptor too.
    virtual int startHID(unsigned int accId, HIDReportAttributes* attributes) = 0;

    /// Sends a HID report of @p len bytes, which belong to the caller.
    virtual int accHIDReport(unsigned int accId, unsigned char* report, int len) = 0;

    /// Sends location data of @p len bytes, which belong to the caller.
    virtual int updateLocation(unsigned int accId, const unsigned char* data, int len) = 0;

    /// Sends accessory information of out-of-band Bluetooth pairing.
    virtual int OOBBTPAccInfo(unsigned int accId, int value) = 0;

    /// Sends completion information of out-of-band Bluetooth pairing.
    virtual int OOBBTPCompletionInfo(unsigned int accId, int value) = 0;

    /// Starts events about the device's media libraries.
    virtual int startMediaLibInformation(unsigned int accId) = 0;

    /// Stops them.
    virtual int stopMediaLibInformation(unsigned int accId) = 0;

    /// Works only within a process: the receiver of the request takes its fields for those of the other form.
    /// Masks are not null.
    virtual int startMediaLibUpdates(unsigned int accId, const char* first,
                                     android::sp<MediaLibDataMask>& dataMask,
                                     android::sp<MediaItemMask>& itemMask,
                                     android::sp<MediaPlaylistMask>& playlistMask, const char* last) = 0;

    /// Starts updates of a media library. @param info not null; the text "-1" in it arrives as null.
    virtual int startMediaLibUpdates(unsigned int accId, android::sp<MediaLibUpdateInfo>& info) = 0;

    /// Stops updates of a media library.
    virtual int stopMediaLibUpdates(unsigned int accId, const char* libraryId) = 0;

    /// Plays the library's current selection.
    virtual int playMediaLibCurrentSelection(unsigned int accId, const char* libraryId) = 0;

    /// Plays @p count items. @param itemIds belongs to the caller.
    virtual int playMediaLibItems(unsigned int accId, const char* libraryId, unsigned long long* itemIds,
                                  int count, int value) = 0;

    /// Plays a collection.
    virtual int playMediaLibCollection(unsigned int accId, const char* libraryId,
                                       unsigned long long collectionId, MediaLibCollectionType type,
                                       int value) = 0;

    /// Plays something special; the service defines the values.
    virtual int playMediaLibSpecial(unsigned int accId, const char* libraryId, int value) = 0;

    /// Starts now-playing events with the fields in the masks, which are not null.
    virtual int startNowPlayingUpdate(unsigned int accId, android::sp<iAP2ItemAttributeMask>& attributeMask,
                                      android::sp<iAP2MediaPlaybackMask>& playbackMask) = 0;

    /// Stops now-playing events.
    virtual int stopNowPlayingUpdate(unsigned int accId) = 0;

    /// Changes what is playing; the service defines the values.
    virtual int setNowPlayingInfo(unsigned int accId, unsigned int value1, unsigned int value2) = 0;

    /// Starts power events with the fields in the mask, which is not null.
    virtual int startPowerUpdate(unsigned int accId, android::sp<iAP2PowerUpdateMask>& powerMask) = 0;

    /// Stops power events.
    virtual int stopPowerUpdate(unsigned int accId) = 0;

    /// Tells the device about the accessory's power source.
    virtual int powerSourceUpdate(unsigned int accId, unsigned int value, bool flag) = 0;

    /// Starts USB device-mode audio.
    virtual int startUSBDeviceModeAudio(unsigned int accId) = 0;

    /// Stops USB device-mode audio.
    virtual int stopUSBDeviceModeAudio(unsigned int accId) = 0;

    /// Asks the device for Wi-Fi information, which comes as an event.
    virtual int requestWiFiInformation(unsigned int accId) = 0;

    /// Tells the device about the accessory's Wi-Fi.
    virtual int accessoryWiFiConfigInforamtion(unsigned int accId, const char* ssid, const char* passphrase,
                                               WiFiSecurityType securityType, unsigned char channel) = 0;

    /// @return how many External Accessory sessions there are.
    virtual int getEASessionCount(unsigned int accId) = 0;

    /// Identifies an External Accessory session in @p first and @p second. @param index from 0.
    virtual int getEASessionId(unsigned int accId, int index, int* first, int* second) = 0;

    /// Registers a channel of an External Accessory session.
    virtual int registerEASessionChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                         unsigned int value3) = 0;

    /// Takes the registration back.
    virtual int unregisterEASessionChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                           unsigned int value3) = 0;

    /// Tells that data of an External Accessory session can be sent.
    virtual int EASessionSendDataReady(unsigned int accId, unsigned int value1, unsigned int value2) = 0;

    /// Tells the status of an External Accessory protocol.
    virtual int updateEAPStatus(unsigned int accId, unsigned int value1, unsigned int value2) = 0;

    /// Prepares to receive a file.
    virtual int fileTransferRecvInit(unsigned int accId, unsigned int transferId,
                                     unsigned long long value) = 0;

    /// Starts receiving.
    virtual int fileTransferRecvStart(unsigned int accId, unsigned int transferId) = 0;

    /// Pauses receiving.
    virtual int fileTransferRecvPause(unsigned int accId, unsigned int transferId) = 0;

    /// Cancels receiving.
    virtual int fileTransferRecvCancel(unsigned int accId, unsigned int transferId) = 0;

    /// Registers a channel of a file transfer.
    virtual int registerFileTransferChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                            unsigned int value3) = 0;

    /// Takes the registration back.
    virtual int unregisterFileTransferChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                              unsigned int value3) = 0;

    /// Tells the device about @p count Bluetooth components.
    virtual int BTComponentInformation(unsigned int accId, BTComInfo_s* infos, unsigned int count) = 0;

    /// Starts events about the connections of @p count Bluetooth components.
    virtual int StartBTConnectionUpdate(unsigned int accId, unsigned int* ids, unsigned int count) = 0;

    /// Stops them.
    virtual int StopBTConnectionUpdate(unsigned int accId) = 0;

    /// Starts route guidance events for @p count displays. @param ids null arrives when there are none.
    virtual int StartRouteGuidanceUpdate(unsigned int accId, int* ids, int count, unsigned int value) = 0;

    /// Stops them.
    virtual int StopRouteGuidanceUpdate(unsigned int accId, int* ids, int count) = 0;

    /// Starts application discovery events.
    virtual int StartAppDiscoveryUpdates(unsigned int accId, unsigned int value1, unsigned short value2,
                                         unsigned short value3, unsigned int value4,
                                         unsigned short value5) = 0;

    /// Stops them.
    virtual int StopAppDiscoveryUpdates(unsigned int accId) = 0;

    /// Asks for an application's icon. A null @p bundleId is dropped by the receiver, with success.
    virtual int RequestAppDiscoveryAppIcons(unsigned int accId, const char* bundleId) = 0;

    /// Starts call state events with the fields in @p param.
    virtual int StartCallStateUpdates(unsigned int accId, const StartCallStateUpdateParam& param) = 0;

    /// Stops them.
    virtual int StopCallStateUpdates(unsigned int accId) = 0;

    /// Starts communications events with the fields in @p param, which is not null.
    virtual int StartCommunicationsUpdates(unsigned int accId,
                                           const StartCommunicationsUpdatesParam* param) = 0;

    /// Stops them.
    virtual int StopCommunicationsUpdates(unsigned int accId) = 0;

    /// Accepts a call. @param callUuid may be null.
    virtual int AcceptCall(unsigned int accId, int action, const char* callUuid) = 0;

    /// Ends a call. @param callUuid may be null.
    virtual int EndCall(unsigned int accId, int action, const char* callUuid) = 0;

    /// Calls somebody. @param param not null.
    virtual int InitiateCall(unsigned int accId, InitiateCallParam* param) = 0;

    /// Swaps calls.
    virtual int SwapCalls(unsigned int accId) = 0;

    /// Merges calls.
    virtual int MergeCalls(unsigned int accId) = 0;

    /// Holds or resumes a call. @param callUuid may be null.
    virtual int HoldStatusUpdate(unsigned int accId, bool held, const char* callUuid) = 0;

    /// Mutes or unmutes.
    virtual int MuteStatusUpdate(unsigned int accId, bool muted) = 0;

    /// Sends a tone. @param callUuid may be null.
    virtual int SendDTMF(unsigned int accId, int tone, const char* callUuid) = 0;

    /// Starts a CarPlay session. @param wired,wireless null when not wanted that way.
    virtual int CarPlayStartSession(unsigned int accId, CPStartSessionWiredAttributes* wired,
                                    CPStartSessionWirelessAttributes* wireless, unsigned int value,
                                    const char* string1, const char* string2, const char* string3) = 0;

    /// Sends pairing information. @param block1,block2 each null or two arrays of 16 bytes in a row.
    virtual int BluetoothPairingAccessoryInformation(unsigned int accId, unsigned short value,
                                                     unsigned char (*block1)[16],
                                                     unsigned char (*block2)[16]) = 0;

    /// Tells the status of Bluetooth pairing. @param text may be null.
    virtual int BluetoothPairingStatus(unsigned int accId, unsigned short value1, unsigned int value2,
                                       const char* text) = 0;

    /// Starts destination events.
    virtual int StartDestinationInformation(unsigned int accId, unsigned int value) = 0;

    /// Stops them.
    virtual int StopDestinationInformation(unsigned int accId) = 0;

    /// Tells what became of a destination.
    virtual int DestinationInformationStatus(unsigned int accId, const char* text, unsigned int value) = 0;

    /// Switches assistive touch on.
    virtual int StartAssistiveTouch(unsigned int accId) = 0;

    /// Switches assistive touch off.
    virtual int StopAssistiveTouch(unsigned int accId) = 0;

    /// Starts assistive touch events.
    virtual int StartAssistiveTouchInformation(unsigned int accId) = 0;

    /// Stops them.
    virtual int StopAssistiveTouchInformation(unsigned int accId) = 0;

    /// Sets a property of a transport.
    virtual int setProperty(AppleiAP2TransportMode mode, const std::string& key,
                            const std::string& value) = 0;

    /// @return the service's version, null when it has none; as getSupportFeature() for how long.
    virtual const char* getVersion() = 0;

    /// Tells the device which digital car keys there are.
    virtual int CarPlayAvailableDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) = 0;
};

/// The client's side: every operation is one transaction with the service.
class ACCESSORY_EXPORT BpAppleiAP2Manager : public android::BpInterface<IAppleiAP2Manager> {
  public:
    /// @param impl the service's binder; held as long as the proxy lives.
    explicit BpAppleiAP2Manager(const android::sp<android::IBinder>& impl);
    ~BpAppleiAP2Manager() override;

    int setName(const char* name) override;
    int setSerialNumber(const char* serialNumber) override;
    int setDisplayName(const char* displayName) override;
    int setBluetoothAddr(unsigned char* addr, unsigned int len) override;
    int startup(AppleiAP2TransportMode mode) override;
    int shutdown(AppleiAP2TransportMode mode) override;
    int setConfigPath(AppleiAP2TransportMode mode, const char* path) override;
    int setNotifier(const android::sp<IAppleiAP2ManagerNotifier>& notifier) override;
    int clearNotifier() override;
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
    int setProperty(AppleiAP2TransportMode mode, const std::string& key, const std::string& value) override;
    const char* getVersion() override;
    int CarPlayAvailableDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) override;

  private:
    template <typename Row, typename... Arguments>
    ACCESSORY_HIDDEN typename Row::Result call(const Row& row, const Arguments&... arguments);
};

/// The service's side: takes requests apart, hands them to the implementation, and keeps the register of
/// clients.
///
/// The stub, its registry and its death recipients hold each other strongly, so a stub once made stays.
class ACCESSORY_EXPORT BnAppleiAP2Manager : public android::BnInterface<IAppleiAP2Manager> {
  public:
    /// @param impl held as long as the stub lives; null ends the process.
    explicit BnAppleiAP2Manager(const android::sp<AppleiAP2ManagerImplItf>& impl);
    ~BnAppleiAP2Manager() override;

    int setName(const char* name) override;
    int setSerialNumber(const char* serialNumber) override;
    int setDisplayName(const char* displayName) override;
    int setBluetoothAddr(unsigned char* addr, unsigned int len) override;
    int startup(AppleiAP2TransportMode mode) override;
    int shutdown(AppleiAP2TransportMode mode) override;
    int setConfigPath(AppleiAP2TransportMode mode, const char* path) override;
    int setNotifier(const android::sp<IAppleiAP2ManagerNotifier>& notifier) override;
    int clearNotifier() override;
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
    int setProperty(AppleiAP2TransportMode mode, const std::string& key, const std::string& value) override;
    const char* getVersion() override;
    int CarPlayAvailableDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) override;

    /// Writes a header with the interface's name and the implementation's dump, or the registered clients
    /// when the first of @p args is "notifier", to @p fd, which stays the caller's. @return 0, whatever
    /// happened.
    android::status_t dump(int fd, const android::Vector<android::String16>& args) override;

    /// What the runtime calls for a request: takes it apart, calls the operation, writes the answer.
    /// @return what the caller's transact() returns.
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags = 0) override;

  private:
    friend class AppleiAP2NotifierDeathRecipient;
    using DeathRecipients = android::KeyedVector<unsigned int, android::sp<android::IBinder::DeathRecipient>>;

    android::sp<AppleiAP2ManagerNotifier> mNotifier;
    /// By process. Several threads change it at once, without a lock.
    Snapshot<DeathRecipients> mNotifierDeathRecipients;
    const android::sp<AppleiAP2ManagerImplItf> mImpl;
};

/// Takes a client's registration away when its process ends.
class ACCESSORY_EXPORT AppleiAP2NotifierDeathRecipient : public android::IBinder::DeathRecipient {
  public:
    /// @param manager the stub that the client is registered with; held.
    /// @param pid     the client's process.
    AppleiAP2NotifierDeathRecipient(const android::sp<BnAppleiAP2Manager>& manager, int pid);
    ~AppleiAP2NotifierDeathRecipient() override;

    /// Called by the runtime when the client's process has ended.
    void binderDied(const android::wp<android::IBinder>& who) override;

  private:
    const android::sp<BnAppleiAP2Manager> mManger;
    const int mPid;
};

}  // namespace accessory
