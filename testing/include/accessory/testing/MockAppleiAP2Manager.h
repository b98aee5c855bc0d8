// Mocks of the iAP2 manager: of the interface, for an application that is given one, and of a service's
// implementation, which a real stub calls.
//
//     const auto service = android::sp(new testing::NiceMock<MockAppleiAP2ManagerImpl>);
//     EXPECT_CALL(*service, launchAPP(1, testing::StrEq("com.example.maps"), testing::_));
//
// startHID() and startMediaLibUpdates() are two operations each; an expectation says which by its arguments:
// EXPECT_CALL(manager, startHID(testing::An<unsigned int>())).
#pragma once

#include <accessory/AppleiAP2ManagerImplItf.h>
#include <accessory/IAppleiAP2Manager.h>
#include <accessory/testing/RecordPrinters.h>
#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace accessory::testkit {

/// The 85 requests that the interface and the implementation have in common, mocked once for both.
template <typename Base>
class MockAppleiAP2Requests : public Base {
  public:
    MOCK_METHOD(int, setName, (const char*), (override));
    MOCK_METHOD(int, setSerialNumber, (const char*), (override));
    MOCK_METHOD(int, setDisplayName, (const char*), (override));
    MOCK_METHOD(int, setBluetoothAddr, (unsigned char*, unsigned int), (override));
    MOCK_METHOD(int, startup, (AppleiAP2TransportMode), (override));
    MOCK_METHOD(int, shutdown, (AppleiAP2TransportMode), (override));
    MOCK_METHOD(int, setConfigPath, (AppleiAP2TransportMode, const char*), (override));
    MOCK_METHOD(int, getAccessoryIds, (unsigned int*, unsigned int*), (override));
    MOCK_METHOD(const char*, getSupportFeature, (unsigned int, const char*), (override));
    MOCK_METHOD(int, start, (unsigned int), (override));
    MOCK_METHOD(int, stop, (unsigned int), (override));
    MOCK_METHOD(int, getAPPIds, (unsigned int, const char**, unsigned int*), (override));
    MOCK_METHOD(int, launchAPP, (unsigned int, const char*, AppLaunchMethod), (override));
    MOCK_METHOD(int, startHID, (unsigned int), (override));
    MOCK_METHOD(int, dispatchMediaPlaybackRemoteEvent, (unsigned int, unsigned int, unsigned int),
                (override));
    MOCK_METHOD(int, stopHID, (unsigned int), (override));
    MOCK_METHOD(int, startHID, (unsigned int, HIDReportAttributes*), (override));
    MOCK_METHOD(int, accHIDReport, (unsigned int, unsigned char*, int), (override));
    MOCK_METHOD(int, updateLocation, (unsigned int, const unsigned char*, int), (override));
    MOCK_METHOD(int, OOBBTPAccInfo, (unsigned int, int), (override));
    MOCK_METHOD(int, OOBBTPCompletionInfo, (unsigned int, int), (override));
    MOCK_METHOD(int, startMediaLibInformation, (unsigned int), (override));
    MOCK_METHOD(int, stopMediaLibInformation, (unsigned int), (override));
    MOCK_METHOD(int, startMediaLibUpdates,
                (unsigned int, const char*, android::sp<MediaLibDataMask>&, android::sp<MediaItemMask>&,
                 android::sp<MediaPlaylistMask>&, const char*),
                (override));
    MOCK_METHOD(int, startMediaLibUpdates, (unsigned int, android::sp<MediaLibUpdateInfo>&), (override));
    MOCK_METHOD(int, stopMediaLibUpdates, (unsigned int, const char*), (override));
    MOCK_METHOD(int, playMediaLibCurrentSelection, (unsigned int, const char*), (override));
    MOCK_METHOD(int, playMediaLibItems, (unsigned int, const char*, unsigned long long*, int, int),
                (override));
    MOCK_METHOD(int, playMediaLibCollection,
                (unsigned int, const char*, unsigned long long, MediaLibCollectionType, int), (override));
    MOCK_METHOD(int, playMediaLibSpecial, (unsigned int, const char*, int), (override));
    MOCK_METHOD(int, startNowPlayingUpdate,
                (unsigned int, android::sp<iAP2ItemAttributeMask>&, android::sp<iAP2MediaPlaybackMask>&),
                (override));
    MOCK_METHOD(int, stopNowPlayingUpdate, (unsigned int), (override));
    MOCK_METHOD(int, setNowPlayingInfo, (unsigned int, unsigned int, unsigned int), (override));
    MOCK_METHOD(int, startPowerUpdate, (unsigned int, android::sp<iAP2PowerUpdateMask>&), (override));
    MOCK_METHOD(int, stopPowerUpdate, (unsigned int), (override));
    MOCK_METHOD(int, powerSourceUpdate, (unsigned int, unsigned int, bool), (override));
    MOCK_METHOD(int, startUSBDeviceModeAudio, (unsigned int), (override));
    MOCK_METHOD(int, stopUSBDeviceModeAudio, (unsigned int), (override));
    MOCK_METHOD(int, requestWiFiInformation, (unsigned int), (override));
    MOCK_METHOD(int, accessoryWiFiConfigInforamtion,
                (unsigned int, const char*, const char*, WiFiSecurityType, unsigned char), (override));
    MOCK_METHOD(int, getEASessionCount, (unsigned int), (override));
    MOCK_METHOD(int, getEASessionId, (unsigned int, int, int*, int*), (override));
    MOCK_METHOD(int, registerEASessionChannel, (unsigned int, unsigned int, unsigned int, unsigned int),
                (override));
    MOCK_METHOD(int, unregisterEASessionChannel, (unsigned int, unsigned int, unsigned int, unsigned int),
                (override));
    MOCK_METHOD(int, EASessionSendDataReady, (unsigned int, unsigned int, unsigned int), (override));
    MOCK_METHOD(int, updateEAPStatus, (unsigned int, unsigned int, unsigned int), (override));
    MOCK_METHOD(int, fileTransferRecvInit, (unsigned int, unsigned int, unsigned long long), (override));
    MOCK_METHOD(int, fileTransferRecvStart, (unsigned int, unsigned int), (override));
    MOCK_METHOD(int, fileTransferRecvPause, (unsigned int, unsigned int), (override));
    MOCK_METHOD(int, fileTransferRecvCancel, (unsigned int, unsigned int), (override));
    MOCK_METHOD(int, registerFileTransferChannel, (unsigned int, unsigned int, unsigned int, unsigned int),
                (override));
    MOCK_METHOD(int, unregisterFileTransferChannel, (unsigned int, unsigned int, unsigned int, unsigned int),
                (override));
    MOCK_METHOD(int, BTComponentInformation, (unsigned int, BTComInfo_s*, unsigned int), (override));
    MOCK_METHOD(int, StartBTConnectionUpdate, (unsigned int, unsigned int*, unsigned int), (override));
    MOCK_METHOD(int, StopBTConnectionUpdate, (unsigned int), (override));
    MOCK_METHOD(int, StartRouteGuidanceUpdate, (unsigned int, int*, int, unsigned int), (override));
    MOCK_METHOD(int, StopRouteGuidanceUpdate, (unsigned int, int*, int), (override));
    MOCK_METHOD(int, StartAppDiscoveryUpdates,
                (unsigned int, unsigned int, unsigned short, unsigned short, unsigned int, unsigned short),
                (override));
    MOCK_METHOD(int, StopAppDiscoveryUpdates, (unsigned int), (override));
    MOCK_METHOD(int, RequestAppDiscoveryAppIcons, (unsigned int, const char*), (override));
    MOCK_METHOD(int, StartCallStateUpdates, (unsigned int, const StartCallStateUpdateParam&), (override));
    MOCK_METHOD(int, StopCallStateUpdates, (unsigned int), (override));
    MOCK_METHOD(int, StartCommunicationsUpdates, (unsigned int, const StartCommunicationsUpdatesParam*),
                (override));
    MOCK_METHOD(int, StopCommunicationsUpdates, (unsigned int), (override));
    MOCK_METHOD(int, AcceptCall, (unsigned int, int, const char*), (override));
    MOCK_METHOD(int, EndCall, (unsigned int, int, const char*), (override));
    MOCK_METHOD(int, InitiateCall, (unsigned int, InitiateCallParam*), (override));
    MOCK_METHOD(int, SwapCalls, (unsigned int), (override));
    MOCK_METHOD(int, MergeCalls, (unsigned int), (override));
    MOCK_METHOD(int, HoldStatusUpdate, (unsigned int, bool, const char*), (override));
    MOCK_METHOD(int, MuteStatusUpdate, (unsigned int, bool), (override));
    MOCK_METHOD(int, SendDTMF, (unsigned int, int, const char*), (override));
    MOCK_METHOD(int, CarPlayStartSession,
                (unsigned int, CPStartSessionWiredAttributes*, CPStartSessionWirelessAttributes*,
                 unsigned int, const char*, const char*, const char*),
                (override));
    MOCK_METHOD(int, BluetoothPairingAccessoryInformation,
                (unsigned int, unsigned short, unsigned char (*)[16], unsigned char (*)[16]), (override));
    MOCK_METHOD(int, BluetoothPairingStatus, (unsigned int, unsigned short, unsigned int, const char*),
                (override));
    MOCK_METHOD(int, StartDestinationInformation, (unsigned int, unsigned int), (override));
    MOCK_METHOD(int, StopDestinationInformation, (unsigned int), (override));
    MOCK_METHOD(int, DestinationInformationStatus, (unsigned int, const char*, unsigned int), (override));
    MOCK_METHOD(int, StartAssistiveTouch, (unsigned int), (override));
    MOCK_METHOD(int, StopAssistiveTouch, (unsigned int), (override));
    MOCK_METHOD(int, StartAssistiveTouchInformation, (unsigned int), (override));
    MOCK_METHOD(int, StopAssistiveTouchInformation, (unsigned int), (override));
    MOCK_METHOD(int, setProperty, (AppleiAP2TransportMode, const std::string&, const std::string&),
                (override));
    MOCK_METHOD(const char*, getVersion, (), (override));
    MOCK_METHOD(int, CarPlayAvailableDigitalCarKeys, (unsigned int, std::vector<std::string>&), (override));
};

// Made once, in the kit's library: every source file that did it again would take seconds longer.
extern template class MockAppleiAP2Requests<android::BnInterface<IAppleiAP2Manager>>;
extern template class MockAppleiAP2Requests<AppleiAP2ManagerImplItf>;

/// In place of the manager. A binder of this process, so asBinder() and asInterface() lead back to it, and it
/// may be published with addService() for code that looks the service up.
class MockAppleiAP2Manager : public MockAppleiAP2Requests<android::BnInterface<IAppleiAP2Manager>> {
  public:
    MOCK_METHOD(int, setNotifier, (const android::sp<IAppleiAP2ManagerNotifier>&), (override));
    MOCK_METHOD(int, clearNotifier, (), (override));
};

/// In place of a service, behind a BnAppleiAP2Manager.
class MockAppleiAP2ManagerImpl : public MockAppleiAP2Requests<AppleiAP2ManagerImplItf> {
  public:
    /// By which the test raises events; the stub hands it over when it is made. Not an expectation, because
    /// every stub does it.
    android::sp<AppleiAP2ManagerNotifierItf> broadcaster;

    int addNotifier(const android::sp<AppleiAP2ManagerNotifierItf>& notifier) override {
        broadcaster = notifier;
        return 0;
    }
    MOCK_METHOD(int, dump, (const android::Vector<android::String16>&, android::String8&), (override));
};

}  // namespace accessory::testkit
