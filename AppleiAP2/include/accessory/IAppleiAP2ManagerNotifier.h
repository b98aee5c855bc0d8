// IAppleiAP2ManagerNotifier: the callbacks by which the iAP2 service tells its clients about events of a
// device.
#pragma once

#include <accessory/AppleiAP2Types.h>
#include <accessory/Export.h>
#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/PowerRecords.h>
#include <accessory/RouteGuidanceRecords.h>
#include <binder/IInterface.h>

#include <cstdint>
#include <string>
#include <vector>

namespace accessory {

/// The interface "accessory.AppleiAP2ManagerNotifier". Every operation begins with the accessory's identifier
/// and returns the receiver's status, 0 for success. Through a proxy it blocks until the receiver has
/// answered, may be called from any thread, and gives 0 when the receiver cannot be reached: that is logged.
/// Strings, records, buffers and lists that a receiver is given are valid until it returns.
///
/// Texts end with NUL; a sender's are not null unless the event says so: a null one is left out, and the
/// receiver misreads what follows. Numbers mean what the service defines.
class ACCESSORY_EXPORT IAppleiAP2ManagerNotifier : public android::IInterface {
  public:
    DECLARE_META_INTERFACE(AppleiAP2ManagerNotifier)

    /// Something happened at the device; the service defines the events.
    virtual int notify(unsigned int accId, unsigned int event) = 0;

    /// A device has been attached.
    virtual int attach(unsigned int accId) = 0;

    /// A device has been detached.
    virtual int detach(unsigned int accId) = 0;

    /// The device has told about itself.
    virtual int deviceInfoUpdate(unsigned int accId, const char* info) = 0;

    /// The device's language is known or has changed.
    virtual int deviceLanguageUpdate(unsigned int accId, const char* language) = 0;

    /// The device has told its time. @param value16 and @param value8 go with it; signed.
    virtual int deviceTimeUpdate(unsigned int accId, unsigned long long time, short value16,
                                 signed char value8) = 0;

    /// The device's UUID is known.
    virtual int deviceUUIDUpdate(unsigned int accId, const char* uuid) = 0;

    /// The state of wireless CarPlay has changed.
    virtual int wirelessCPStateUpdate(unsigned int accId, int state) = 0;

    /// The device's transport identifiers are known. Either may be null.
    virtual int DeviceTransportIdentifierNotification(unsigned int accId, const char* first,
                                                      const char* second) = 0;

    /// The device has sent a HID report.
    ///
    /// The proxy does not send @p component and the stub reads one, so between a proxy and a stub of this
    /// library the receiver gets the report's length as component, the report's first four bytes as length,
    /// and the rest as report, in a buffer of 1024 bytes. Of a length that the buffer does not hold no
    /// bytes arrive, and the nearest that it does: 0 or 1024.
    virtual int deviceHIDReport(unsigned int accId, int component, void* report, int length) = 0;

    /// A HID component has been enabled or disabled.
    virtual int hidComponentUpdate(unsigned int accId, unsigned short componentId, bool enabled) = 0;

    /// The device asks for location data.
    virtual int startLocation(unsigned int accId, unsigned int value1, int value2) = 0;

    /// The device needs no more location data.
    virtual int stopLocation(unsigned int accId) = 0;

    /// A media library of the device is known.
    virtual int mediaLibInfoUpdate(unsigned int accId, const char* name, const char* uid,
                                   MediaLibType type) = 0;

    /// Content of the media library. Null arrives as an empty record, within one process as null.
    virtual int mediaLibUpdateDataReady(unsigned int accId, android::sp<iAP2MediaLibData> data) = 0;

    /// What is playing has changed. Either record may be null, which arrives as for
    /// mediaLibUpdateDataReady().
    virtual int nowPlayingUpdate(unsigned int accId, const android::sp<iAP2ItemAttribute>& attribute,
                                 const android::sp<iAP2MediaPlayback>& playback) = 0;

    /// The device's power state has changed. Null arrives as for mediaLibUpdateDataReady().
    virtual int powerUpdate(unsigned int accId, const android::sp<iAP2PowerUpdate>& power) = 0;

    /// USB device-mode audio has told about itself.
    virtual int USBDeviceModeAudioInfo(unsigned int accId, unsigned int value) = 0;

    /// The Wi-Fi information that was asked for.
    virtual int WiFiInformation(unsigned int accId, requestWiFiStatues status, const char* first,
                                const char* second) = 0;

    /// The device asks for the accessory's Wi-Fi configuration.
    virtual int requestAccWiFiConfigInfo(unsigned int accId) = 0;

    /// An External Accessory session has started.
    virtual int EASessionStart(unsigned int accId, int protocolId, int sessionId) = 0;

    /// An External Accessory session has ended.
    virtual int EASessionStop(unsigned int accId, int sessionId) = 0;

    /// @p length bytes of an External Accessory session can be fetched.
    virtual int EASessionRecvDataReady(unsigned int accId, int sessionId, int length) = 0;

    /// A file transfer is about to begin. @param setup belongs to the caller, its buffer too.
    virtual int fileTransferSetup(unsigned int accId, FileTransferSetup* setup) = 0;

    /// A file transfer has started.
    virtual int fileTransferStart(unsigned int accId, unsigned int transferId) = 0;

    /// A file transfer has paused.
    virtual int fileTransferPause(unsigned int accId, unsigned int transferId) = 0;

    /// A file transfer has been cancelled.
    virtual int fileTransferCancel(unsigned int accId, unsigned int transferId) = 0;

    /// A file has been received.
    virtual int fileTransferRecvFinish(unsigned int accId, unsigned int transferId) = 0;

    /// Out-of-band Bluetooth pairing begins.
    virtual int startOOBBTP(unsigned int accId) = 0;

    /// The link key of an out-of-band Bluetooth pairing. The buffers belong to the caller; lengths in bytes.
    virtual int OOBBTPLinkKeyInfo(unsigned int accId, unsigned char* key, unsigned int keyLength,
                                  unsigned char* mac, unsigned int macLength) = 0;

    /// Out-of-band Bluetooth pairing ends.
    virtual int stopOOBBTP(unsigned int accId) = 0;

    /// A Bluetooth connection of the device has changed.
    virtual int BTConnectionUpdate(unsigned int accId, unsigned int a, unsigned int b) = 0;

    /// The state of route guidance has changed.
    virtual int RouteGuidanceUpdates(unsigned int accId, const android::sp<RouteGuidaceUpdateInfo>& info) = 0;

    /// A maneuver of the route is known.
    virtual int RouteGuidanceManeuverUpdates(unsigned int accId,
                                             const android::sp<RuoteGuidanceManeuverUpdateInfo>& info) = 0;

    /// Lane guidance for a point of the route is known.
    virtual int LaneGuidanceInformation(unsigned int accId, const android::sp<LaneGuidanceInfo>& info) = 0;

    /// The applications of the device have been discovered. The lists belong to the caller and may be null,
    /// whatever their counts, which are of elements. An element with a length and no buffer makes the
    /// receiver misread what follows.
    virtual int AppDiscoveryUpdate(unsigned int accId, unsigned int first, AppleAppList* list1,
                                   unsigned short count1, unsigned int second, AppleAppList* list2,
                                   unsigned short count2) = 0;

    /// The icon of an application. The bytes belong to the caller.
    virtual int AppDiscoveryAppIcon(unsigned int accId, const char* appId, bool flag, unsigned char kind,
                                    char* icon, unsigned int iconLength) = 0;

    /// The state of a call has changed.
    virtual int CallStateUpdate(unsigned int accId, CallStateUpdateParam& param) = 0;

    /// The state of communications has changed.
    virtual int CommunicationsUpdate(unsigned int accId, CommunicationsUpdateParam* param) = 0;

    /// How CarPlay can be started. Neither may be null.
    virtual int CarPlayAvailability(unsigned int accId, CPAvailabilityWiredAttributes* wired,
                                    CPAvailabilityWirelessAttributes* wireless) = 0;

    /// Bluetooth pairing begins. @param mac six bytes of the caller's, or null.
    virtual int StartBluetoothPairing(unsigned int accId, unsigned short id, unsigned char* mac) = 0;

    /// Bluetooth pairing has ended.
    virtual int StopBluetoothPairing(unsigned int accId, unsigned short id, unsigned int result) = 0;

    /// A destination. @return -1 for a null @p info, which is not sent.
    virtual int DestinationInformation(unsigned int accId, const DestinationInfo* info) = 0;

    /// Assistive touch has been switched on or off.
    virtual int AssistiveTouchInformation(unsigned int accId, bool enabled) = 0;

    /// Which of the digital car keys the device knows.
    virtual int CarPlayMatchedDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) = 0;
};

/// The service's side: every operation is one transaction with the client.
class ACCESSORY_EXPORT BpAppleiAP2ManagerNotifier : public android::BpInterface<IAppleiAP2ManagerNotifier> {
  public:
    /// @param impl the client's binder; held as long as the proxy lives.
    explicit BpAppleiAP2ManagerNotifier(const android::sp<android::IBinder>& impl);
    ~BpAppleiAP2ManagerNotifier() override;

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
    template <typename Row, typename... Arguments>
    ACCESSORY_HIDDEN int call(const Row& row, const Arguments&... arguments);
};

/// What a client implements: the operations of IAppleiAP2ManagerNotifier, called on the Binder runtime's
/// threads, several at once.
class ACCESSORY_EXPORT AppleiAP2ManagerNotifierImplItf : public virtual android::RefBase {
  public:
    ~AppleiAP2ManagerNotifierImplItf() override;

    /// @name Events
    /// @{

    /// Takes the event of IAppleiAP2ManagerNotifier that has the same name, where its arguments are told.
    /// They are borrowed until it returns.
    /// @return 0, or an error, which the service logs.
    virtual int notify(unsigned int accId, unsigned int event) = 0;
    virtual int attach(unsigned int accId) = 0;
    virtual int detach(unsigned int accId) = 0;
    virtual int deviceInfoUpdate(unsigned int accId, const char* info) = 0;
    virtual int deviceLanguageUpdate(unsigned int accId, const char* language) = 0;
    virtual int deviceTimeUpdate(unsigned int accId, unsigned long long time, short value16,
                                 signed char value8) = 0;
    virtual int deviceUUIDUpdate(unsigned int accId, const char* uuid) = 0;
    virtual int wirelessCPStateUpdate(unsigned int accId, int state) = 0;
    virtual int DeviceTransportIdentifierNotification(unsigned int accId, const char* first,
                                                      const char* second) = 0;
    virtual int deviceHIDReport(unsigned int accId, int component, void* report, int length) = 0;
    virtual int hidComponentUpdate(unsigned int accId, unsigned short componentId, bool enabled) = 0;
    virtual int startLocation(unsigned int accId, unsigned int value1, int value2) = 0;
    virtual int stopLocation(unsigned int accId) = 0;
    virtual int mediaLibInfoUpdate(unsigned int accId, const char* name, const char* uid,
                                   MediaLibType type) = 0;
    virtual int mediaLibUpdateDataReady(unsigned int accId, android::sp<iAP2MediaLibData> data) = 0;
    virtual int nowPlayingUpdate(unsigned int accId, const android::sp<iAP2ItemAttribute>& attribute,
                                 const android::sp<iAP2MediaPlayback>& playback) = 0;
    virtual int powerUpdate(unsigned int accId, const android::sp<iAP2PowerUpdate>& power) = 0;
    virtual int USBDeviceModeAudioInfo(unsigned int accId, unsigned int value) = 0;
    virtual int WiFiInformation(unsigned int accId, requestWiFiStatues status, const char* first,
                                const char* second) = 0;
    virtual int requestAccWiFiConfigInfo(unsigned int accId) = 0;
    virtual int EASessionStart(unsigned int accId, int protocolId, int sessionId) = 0;
    virtual int EASessionStop(unsigned int accId, int sessionId) = 0;
    virtual int EASessionRecvDataReady(unsigned int accId, int sessionId, int length) = 0;
    virtual int fileTransferSetup(unsigned int accId, FileTransferSetup* setup) = 0;
    virtual int fileTransferStart(unsigned int accId, unsigned int transferId) = 0;
    virtual int fileTransferPause(unsigned int accId, unsigned int transferId) = 0;
    virtual int fileTransferCancel(unsigned int accId, unsigned int transferId) = 0;
    virtual int fileTransferRecvFinish(unsigned int accId, unsigned int transferId) = 0;
    virtual int startOOBBTP(unsigned int accId) = 0;
    virtual int OOBBTPLinkKeyInfo(unsigned int accId, unsigned char* key, unsigned int keyLength,
                                  unsigned char* mac, unsigned int macLength) = 0;
    virtual int stopOOBBTP(unsigned int accId) = 0;
    virtual int BTConnectionUpdate(unsigned int accId, unsigned int a, unsigned int b) = 0;
    virtual int RouteGuidanceUpdates(unsigned int accId, const android::sp<RouteGuidaceUpdateInfo>& info) = 0;
    virtual int RouteGuidanceManeuverUpdates(unsigned int accId,
                                             const android::sp<RuoteGuidanceManeuverUpdateInfo>& info) = 0;
    virtual int LaneGuidanceInformation(unsigned int accId, const android::sp<LaneGuidanceInfo>& info) = 0;
    virtual int AppDiscoveryUpdate(unsigned int accId, unsigned int first, AppleAppList* list1,
                                   unsigned short count1, unsigned int second, AppleAppList* list2,
                                   unsigned short count2) = 0;
    virtual int AppDiscoveryAppIcon(unsigned int accId, const char* appId, bool flag, unsigned char kind,
                                    char* icon, unsigned int iconLength) = 0;
    virtual int CallStateUpdate(unsigned int accId, CallStateUpdateParam& param) = 0;
    virtual int CommunicationsUpdate(unsigned int accId, CommunicationsUpdateParam* param) = 0;
    virtual int CarPlayAvailability(unsigned int accId, CPAvailabilityWiredAttributes* wired,
                                    CPAvailabilityWirelessAttributes* wireless) = 0;
    virtual int StartBluetoothPairing(unsigned int accId, unsigned short id, unsigned char* mac) = 0;
    virtual int StopBluetoothPairing(unsigned int accId, unsigned short id, unsigned int result) = 0;
    virtual int DestinationInformation(unsigned int accId, const DestinationInfo* info) = 0;
    virtual int AssistiveTouchInformation(unsigned int accId, bool enabled) = 0;
    virtual int CarPlayMatchedDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) = 0;

    /// @}
};

/// The client's side: takes events apart and hands them to the implementation.
class ACCESSORY_EXPORT BnAppleiAP2ManagerNotifier : public android::BnInterface<IAppleiAP2ManagerNotifier> {
  public:
    /// @param impl held as long as the stub lives; null ends the process.
    explicit BnAppleiAP2ManagerNotifier(const android::sp<AppleiAP2ManagerNotifierImplItf>& impl);
    ~BnAppleiAP2ManagerNotifier() override;

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

    /// What the runtime calls for a request: takes it apart, calls the operation, writes the answer.
    /// @return what the caller's transact() returns.
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags = 0) override;

  private:
    const android::sp<AppleiAP2ManagerNotifierImplItf> mImpl;
};

}  // namespace accessory
