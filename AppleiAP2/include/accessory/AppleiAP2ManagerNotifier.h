// AppleiAP2ManagerNotifier: the register of an iAP2 service's clients, and the broadcaster of its events.
#pragma once

#include <accessory/Export.h>
#include <accessory/IAppleiAP2ManagerNotifier.h>
#include <accessory/Snapshot.h>
#include <utils/KeyedVector.h>
#include <utils/Mutex.h>
#include <utils/String16.h>
#include <utils/String8.h>
#include <utils/Vector.h>

#include <memory>
#include <string>
#include <vector>

namespace accessory {

class BnAppleiAP2Manager;

/// By which a service raises its events: the operations of IAppleiAP2ManagerNotifier, each of which calls all
/// registered clients in the order of their process identifiers and waits for every one of them. A client
/// that fails is logged and the next one is called.
///
/// Any thread may raise an event; all but hidComponentUpdate() run one at a time, and while one runs no
/// client is registered, removed or listed.
class ACCESSORY_EXPORT AppleiAP2ManagerNotifierItf : public virtual android::RefBase {
  public:
    ~AppleiAP2ManagerNotifierItf() override;

    /// @name Events
    /// @{

    /// Calls every client's operation of the same name, see IAppleiAP2ManagerNotifier. The arguments are
    /// borrowed until it returns.
    /// @return 0, or -1 when the register holds a null notifier, which ends the round.
    /// CarPlayMatchedDigitalCarKeys(), AssistiveTouchInformation(), DestinationInformation(),
    /// StartBluetoothPairing() and StopBluetoothPairing() return what the last client returned, 0 without
    /// one.
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

/// One per stub, made by it.
///
/// mLock makes registration, removal, listing and events exclude each other; it is held while clients are
/// called, so a client must not register or deregister from within an event. The library takes no
/// other lock of its own under it.
/// The register itself is replaced as a whole, so that hidComponentUpdate() and find() may read it without
/// mLock.
class ACCESSORY_EXPORT AppleiAP2ManagerNotifier : public virtual AppleiAP2ManagerNotifierItf {
  public:
    /// @param manager the owning stub; held. Null ends the process.
    explicit AppleiAP2ManagerNotifier(const android::sp<BnAppleiAP2Manager>& manager);
    ~AppleiAP2ManagerNotifier() override;

    /// Registers a client's notifier under its process. @return 0, or -1 when the process has one already,
    /// which stays.
    int addNotifier(int pid, const android::sp<IAppleiAP2ManagerNotifier>& notifier);

    /// @return 0, or -1 when the process had none.
    int removeNotifier(int pid);

    /// The process's notifier, or null. Does not wait for events.
    android::sp<IAppleiAP2ManagerNotifier> find(int pid) const;

    /// Appends the list of registered clients to @p result.
    /// @return 0, or -1 when the list ended at a null notifier.
    int dump(const android::Vector<android::String16>& args, android::String8& result);

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
    using Notifiers = android::KeyedVector<int, android::sp<IAppleiAP2ManagerNotifier>>;
    struct Event;

    template <typename Operation, typename... Arguments>
    ACCESSORY_HIDDEN int fanOut(const Event& event, Operation operation, Arguments&... arguments);
    template <typename Operation, typename... Arguments>
    ACCESSORY_HIDDEN static int callAll(const Event& event, const Notifiers& notifiers, Operation operation,
                                        Arguments&... arguments);

    const android::sp<BnAppleiAP2Manager> mManager;
    Snapshot<Notifiers> mNotifiers;
    android::Mutex mLock;
};

}  // namespace accessory
