// Mocks of the iAP2 manager's events: of the notifier, of a client's implementation behind a real stub, and
// of the broadcaster, for a service that raises them.
#pragma once

#include <accessory/AppleiAP2ManagerNotifier.h>
#include <accessory/IAppleiAP2ManagerNotifier.h>
#include <accessory/testing/RecordPrinters.h>
#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace accessory::testkit {

/// The 45 events, mocked once for the three classes that have them.
template <typename Base>
class MockAppleiAP2Events : public Base {
  public:
    MOCK_METHOD(int, notify, (unsigned int, unsigned int), (override));
    MOCK_METHOD(int, attach, (unsigned int), (override));
    MOCK_METHOD(int, detach, (unsigned int), (override));
    MOCK_METHOD(int, deviceInfoUpdate, (unsigned int, const char*), (override));
    MOCK_METHOD(int, deviceLanguageUpdate, (unsigned int, const char*), (override));
    MOCK_METHOD(int, deviceTimeUpdate, (unsigned int, unsigned long long, short, signed char), (override));
    MOCK_METHOD(int, deviceUUIDUpdate, (unsigned int, const char*), (override));
    MOCK_METHOD(int, wirelessCPStateUpdate, (unsigned int, int), (override));
    MOCK_METHOD(int, DeviceTransportIdentifierNotification, (unsigned int, const char*, const char*),
                (override));
    MOCK_METHOD(int, deviceHIDReport, (unsigned int, int, void*, int), (override));
    MOCK_METHOD(int, hidComponentUpdate, (unsigned int, unsigned short, bool), (override));
    MOCK_METHOD(int, startLocation, (unsigned int, unsigned int, int), (override));
    MOCK_METHOD(int, stopLocation, (unsigned int), (override));
    MOCK_METHOD(int, mediaLibInfoUpdate, (unsigned int, const char*, const char*, MediaLibType), (override));
    MOCK_METHOD(int, mediaLibUpdateDataReady, (unsigned int, android::sp<iAP2MediaLibData>), (override));
    MOCK_METHOD(int, nowPlayingUpdate,
                (unsigned int, const android::sp<iAP2ItemAttribute>&, const android::sp<iAP2MediaPlayback>&),
                (override));
    MOCK_METHOD(int, powerUpdate, (unsigned int, const android::sp<iAP2PowerUpdate>&), (override));
    MOCK_METHOD(int, USBDeviceModeAudioInfo, (unsigned int, unsigned int), (override));
    MOCK_METHOD(int, WiFiInformation, (unsigned int, requestWiFiStatues, const char*, const char*),
                (override));
    MOCK_METHOD(int, requestAccWiFiConfigInfo, (unsigned int), (override));
    MOCK_METHOD(int, EASessionStart, (unsigned int, int, int), (override));
    MOCK_METHOD(int, EASessionStop, (unsigned int, int), (override));
    MOCK_METHOD(int, EASessionRecvDataReady, (unsigned int, int, int), (override));
    MOCK_METHOD(int, fileTransferSetup, (unsigned int, FileTransferSetup*), (override));
    MOCK_METHOD(int, fileTransferStart, (unsigned int, unsigned int), (override));
    MOCK_METHOD(int, fileTransferPause, (unsigned int, unsigned int), (override));
    MOCK_METHOD(int, fileTransferCancel, (unsigned int, unsigned int), (override));
    MOCK_METHOD(int, fileTransferRecvFinish, (unsigned int, unsigned int), (override));
    MOCK_METHOD(int, startOOBBTP, (unsigned int), (override));
    MOCK_METHOD(int, OOBBTPLinkKeyInfo,
                (unsigned int, unsigned char*, unsigned int, unsigned char*, unsigned int), (override));
    MOCK_METHOD(int, stopOOBBTP, (unsigned int), (override));
    MOCK_METHOD(int, BTConnectionUpdate, (unsigned int, unsigned int, unsigned int), (override));
    MOCK_METHOD(int, RouteGuidanceUpdates, (unsigned int, const android::sp<RouteGuidaceUpdateInfo>&),
                (override));
    MOCK_METHOD(int, RouteGuidanceManeuverUpdates,
                (unsigned int, const android::sp<RuoteGuidanceManeuverUpdateInfo>&), (override));
    MOCK_METHOD(int, LaneGuidanceInformation, (unsigned int, const android::sp<LaneGuidanceInfo>&),
                (override));
    MOCK_METHOD(int, AppDiscoveryUpdate,
                (unsigned int, unsigned int, AppleAppList*, unsigned short, unsigned int, AppleAppList*,
                 unsigned short),
                (override));
    MOCK_METHOD(int, AppDiscoveryAppIcon,
                (unsigned int, const char*, bool, unsigned char, char*, unsigned int), (override));
    MOCK_METHOD(int, CallStateUpdate, (unsigned int, CallStateUpdateParam&), (override));
    MOCK_METHOD(int, CommunicationsUpdate, (unsigned int, CommunicationsUpdateParam*), (override));
    MOCK_METHOD(int, CarPlayAvailability,
                (unsigned int, CPAvailabilityWiredAttributes*, CPAvailabilityWirelessAttributes*),
                (override));
    MOCK_METHOD(int, StartBluetoothPairing, (unsigned int, unsigned short, unsigned char*), (override));
    MOCK_METHOD(int, StopBluetoothPairing, (unsigned int, unsigned short, unsigned int), (override));
    MOCK_METHOD(int, DestinationInformation, (unsigned int, const DestinationInfo*), (override));
    MOCK_METHOD(int, AssistiveTouchInformation, (unsigned int, bool), (override));
    MOCK_METHOD(int, CarPlayMatchedDigitalCarKeys, (unsigned int, std::vector<std::string>&), (override));
};

// Made once, in the kit's library: every source file that did it again would take seconds longer.
extern template class MockAppleiAP2Events<android::BnInterface<IAppleiAP2ManagerNotifier>>;
extern template class MockAppleiAP2Events<AppleiAP2ManagerNotifierImplItf>;
extern template class MockAppleiAP2Events<AppleiAP2ManagerNotifierItf>;

/// In place of a client's notifier. A binder of this process, so a service may register it.
class MockAppleiAP2ManagerNotifier
    : public MockAppleiAP2Events<android::BnInterface<IAppleiAP2ManagerNotifier>> {};

/// In place of a client, behind a BnAppleiAP2ManagerNotifier.
class MockAppleiAP2ManagerNotifierImpl : public MockAppleiAP2Events<AppleiAP2ManagerNotifierImplItf> {};

/// In place of the broadcaster that a service is given with addNotifier().
class MockAppleiAP2ManagerBroadcaster : public MockAppleiAP2Events<AppleiAP2ManagerNotifierItf> {};

}  // namespace accessory::testkit
