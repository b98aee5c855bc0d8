// Requests about the accessory, transports, sessions and applications, through the program.
#include <atomic>
#include <memory>

#include "tests/simulator/SimulatorClient.h"

namespace accessory::simulator::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST_F(QuietSimulator, AttachesTheDevicesOfATransportThatStartsUp) {
    EXPECT_EQ(manager.startup(kTransportUSBHost), kDone);
    EXPECT_EQ(manager.startup(kTransportUSBHost), kWrongState);
    for (const char* event : {"attach(5)", "deviceInfoUpdate(5, \"Quiet phone\")",
                              "deviceLanguageUpdate(5, \"en\")", "deviceTimeUpdate(5, 1767225600, 0, 0)",
                              "deviceUUIDUpdate(5, \"00000000-0000-0000-0000-000000000001\")",
                              "DeviceTransportIdentifierNotification(5, null, null)"})
        EXPECT_TRUE(client.hears(event)) << event;
    EXPECT_EQ(manager.shutdown(kTransportUSBHost), kDone);
    EXPECT_TRUE(client.hears("detach(5)"));
    EXPECT_EQ(manager.shutdown(kTransportUSBHost), kWrongState);
    EXPECT_EQ(manager.startup(static_cast<AppleiAP2TransportMode>(4)), kBadArgument);
    EXPECT_EQ(manager.startup(static_cast<AppleiAP2TransportMode>(-1)), kBadArgument);
}

TEST_F(QuietSimulator, NamesWhatIsAttached) {
    attach();
    EXPECT_EQ(manager.startup(kTransportBluetooth), kDone);
    unsigned int ids[10] = {};
    unsigned int count = 0;
    EXPECT_EQ(manager.getAccessoryIds(ids, &count), kDone);
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(ids[0], 5u);
    EXPECT_EQ(ids[1], 6u);
    EXPECT_EQ(client.accessories().getDeviceCount(), 2);
    EXPECT_EQ(client.accessories().getFeature(5), 77);
    EXPECT_EQ(client.accessories().getFeature(4), 0);
    EXPECT_STREQ(client.accessories().getPath(6).string(), "/devices/other");
    EXPECT_STREQ(client.accessories().getPath(4).string(), "");
    EXPECT_EQ(client.accessories().getAccessoryId(android::String8("/devices/quiet")), 5);
    EXPECT_EQ(client.accessories().getAccessoryId(android::String8("/devices/none")), kNotFound);
}

TEST_F(QuietSimulator, KeepsWhatIsSet) {
    unsigned char address[] = {1, 2, 3, 4, 5, 6};
    EXPECT_EQ(manager.setName("Car"), kDone);
    EXPECT_EQ(manager.setSerialNumber("S-1"), kDone);
    EXPECT_EQ(manager.setDisplayName("My car"), kDone);
    EXPECT_EQ(manager.setBluetoothAddr(address, 6), kDone);
    EXPECT_EQ(manager.setBluetoothAddr(address, 5), kBadArgument);
    EXPECT_EQ(manager.setConfigPath(kTransportWiFi, "/etc/wifi"), kDone);
    EXPECT_EQ(manager.setProperty(kTransportBluetooth, "power", "low"), kDone);
    const std::string dump = client.dump();
    for (const char* line :
         {"set: name = \"Car\"", "set: serialNumber = \"S-1\"", "set: displayName = \"My car\"",
          "set: bluetoothAddr = \"01:02:03:04:05:06\"", "set: configPath of transport 3 = \"/etc/wifi\"",
          "set: power of transport 2 = \"low\"", "waits for a startup", "requests served: 8"})
        EXPECT_THAT(dump, HasSubstr(line));
    EXPECT_STREQ(manager.getVersion(), "quiet 2.3");
}

TEST_F(QuietSimulator, AnswersWhatADeviceSupports) {
    attach();
    EXPECT_STREQ(manager.getSupportFeature(kPhone, "carPlay"), "wired");
    EXPECT_EQ(manager.getSupportFeature(kPhone, "flying"), nullptr);
    EXPECT_EQ(manager.getSupportFeature(kNobody, "carPlay"), nullptr);
}

TEST_F(QuietSimulator, OpensAndClosesASession) {
    attach();
    EXPECT_EQ(manager.start(kPhone), kDone);
    EXPECT_TRUE(client.hears("notify(5, 1)"));
    EXPECT_EQ(manager.start(kPhone), kWrongState);
    EXPECT_EQ(manager.stop(kPhone), kDone);
    EXPECT_TRUE(client.hears("notify(5, 2)"));
    EXPECT_EQ(manager.stop(kPhone), kWrongState);
}

TEST_F(QuietSimulator, ListsLaunchesAndShowsApplications) {
    attach();
    const char* apps[10] = {};
    unsigned int count = 0;
    EXPECT_EQ(manager.getAPPIds(kPhone, apps, &count), kDone);
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(manager.launchAPP(kPhone, "com.example.fuel", kLaunchSilently), kDone);
    EXPECT_TRUE(client.hears("notify(5, 3)"));
    EXPECT_TRUE(client.hears("EASessionStart(5, 7, 1)"));
    EXPECT_EQ(manager.launchAPP(kPhone, "com.example.fuel", static_cast<AppLaunchMethod>(2)), kBadArgument);
    EXPECT_EQ(manager.launchAPP(kPhone, "nothing", kLaunchSilently), kNotFound);
    EXPECT_EQ(manager.StartAppDiscoveryUpdates(kPhone, 0, 0, 0, 0, 0), kDone);
    EXPECT_TRUE(client.hears(StartsWith("AppDiscoveryUpdate(5, 2, [{0 \"com.example.music\" \"Music\" 0")));
    EXPECT_EQ(manager.RequestAppDiscoveryAppIcons(kPhone, "com.example.music"), kDone);
    EXPECT_TRUE(
        client.hears(StartsWith("AppDiscoveryAppIcon(5, \"com.example.music\", true, 1, [781 bytes")));
    EXPECT_EQ(manager.StopAppDiscoveryUpdates(kPhone), kDone);
    EXPECT_EQ(manager.StopAppDiscoveryUpdates(kPhone), kWrongState);
}

TEST_F(QuietSimulator, TakesControlsAndLocation) {
    attach();
    EXPECT_EQ(manager.startHID(kPhone), kDone);
    EXPECT_TRUE(client.hears("hidComponentUpdate(5, 0, true)"));
    const uint8_t descriptor[] = {1, 2};
    HIDReportAttributes attributes;
    attributes.componentId = 3;
    attributes.reportDescriptor = descriptor;
    attributes.reportDescriptorLen = 2;
    EXPECT_EQ(manager.startHID(kPhone, &attributes), kDone);
    EXPECT_TRUE(client.hears("hidComponentUpdate(5, 3, true)"));
    unsigned char report[] = {1};
    EXPECT_EQ(manager.accHIDReport(kPhone, report, 1), kDone);
    EXPECT_THAT(client.dump(), HasSubstr("player: playing, track 1 of 3 \"One\""));
    EXPECT_EQ(manager.stopHID(kPhone), kDone);
    EXPECT_TRUE(client.hears("hidComponentUpdate(5, 3, false)"));
    EXPECT_EQ(manager.updateLocation(kPhone, report, 1), kWrongState);
}

TEST_F(QuietSimulator, AllowsRequestsFromWithinAnEvent) {
    android::sp<iAP2PowerUpdateMask> mask = new iAP2PowerUpdateMask();
    mask->mask = iAP2PowerUpdateMask::kChargeLevel;
    const auto status = std::make_shared<std::atomic<int>>(99);
    // Events may come until the client is gone, which is after the test.
    client.recorder()->meanwhile = [this, status, mask]() mutable {
        if (*status == 99) *status = manager.startPowerUpdate(kPhone, mask);
    };
    EXPECT_EQ(manager.startup(kTransportUSBHost), kDone);
    EXPECT_TRUE(client.hears(StartsWith("powerUpdate(5")));
    EXPECT_EQ(*status, kDone);
}

/// Every request that names a device, of one that is not attached.
TEST_F(QuietSimulator, AnswersThatADeviceIsNotThere) {
    unsigned char bytes[32] = {};
    int words[2] = {};
    unsigned int unsignedWords[2] = {};
    unsigned long long items[1] = {};
    unsigned int count = 0;
    const char* apps[10] = {};
    BTComInfo_s component{};
    HIDReportAttributes attributes;
    attributes.reportDescriptor = bytes;
    attributes.reportDescriptorLen = 1;
    InitiateCallParam call;
    StartCommunicationsUpdatesParam communications;
    CPStartSessionWiredAttributes wired{""};
    auto* const block = reinterpret_cast<unsigned char(*)[16]>(bytes);
    std::vector<std::string> keys = {"k"};
    android::sp<MediaLibUpdateInfo> info = new MediaLibUpdateInfo();
    android::sp<iAP2PowerUpdateMask> power = new iAP2PowerUpdateMask();
    android::sp<iAP2ItemAttributeMask> itemMask = new iAP2ItemAttributeMask();
    android::sp<iAP2MediaPlaybackMask> playbackMask = new iAP2MediaPlaybackMask();
    const std::vector<std::pair<const char*, int>> answers = {
        {"start", manager.start(kNobody)},
        {"stop", manager.stop(kNobody)},
        {"getAPPIds", manager.getAPPIds(kNobody, apps, &count)},
        {"launchAPP", manager.launchAPP(kNobody, "x", kLaunchSilently)},
        {"startHID", manager.startHID(kNobody)},
        {"startHID", manager.startHID(kNobody, &attributes)},
        {"stopHID", manager.stopHID(kNobody)},
        {"dispatch", manager.dispatchMediaPlaybackRemoteEvent(kNobody, 0, 0)},
        {"accHIDReport", manager.accHIDReport(kNobody, bytes, 1)},
        {"updateLocation", manager.updateLocation(kNobody, bytes, 1)},
        {"OOBBTPAccInfo", manager.OOBBTPAccInfo(kNobody, 0)},
        {"OOBBTPCompletionInfo", manager.OOBBTPCompletionInfo(kNobody, 0)},
        {"startMediaLibInformation", manager.startMediaLibInformation(kNobody)},
        {"stopMediaLibInformation", manager.stopMediaLibInformation(kNobody)},
        {"startMediaLibUpdates", manager.startMediaLibUpdates(kNobody, info)},
        {"stopMediaLibUpdates", manager.stopMediaLibUpdates(kNobody, "LIB")},
        {"playMediaLibCurrentSelection", manager.playMediaLibCurrentSelection(kNobody, "LIB")},
        {"playMediaLibItems", manager.playMediaLibItems(kNobody, "LIB", items, 1, 0)},
        {"playMediaLibCollection", manager.playMediaLibCollection(kNobody, "LIB", 1, kCollectionAlbum, 0)},
        {"playMediaLibSpecial", manager.playMediaLibSpecial(kNobody, "LIB", 0)},
        {"startNowPlayingUpdate", manager.startNowPlayingUpdate(kNobody, itemMask, playbackMask)},
        {"stopNowPlayingUpdate", manager.stopNowPlayingUpdate(kNobody)},
        {"setNowPlayingInfo", manager.setNowPlayingInfo(kNobody, 0, 0)},
        {"startPowerUpdate", manager.startPowerUpdate(kNobody, power)},
        {"stopPowerUpdate", manager.stopPowerUpdate(kNobody)},
        {"powerSourceUpdate", manager.powerSourceUpdate(kNobody, 1, true)},
        {"startUSBDeviceModeAudio", manager.startUSBDeviceModeAudio(kNobody)},
        {"stopUSBDeviceModeAudio", manager.stopUSBDeviceModeAudio(kNobody)},
        {"requestWiFiInformation", manager.requestWiFiInformation(kNobody)},
        {"accessoryWiFi", manager.accessoryWiFiConfigInforamtion(kNobody, "a", "b", kWiFiWPA, 6)},
        {"getEASessionCount", manager.getEASessionCount(kNobody)},
        {"getEASessionId", manager.getEASessionId(kNobody, 0, &words[0], &words[1])},
        {"registerEASessionChannel", manager.registerEASessionChannel(kNobody, 1, 2, 3)},
        {"unregisterEASessionChannel", manager.unregisterEASessionChannel(kNobody, 1, 2, 3)},
        {"EASessionSendDataReady", manager.EASessionSendDataReady(kNobody, 1, 2)},
        {"updateEAPStatus", manager.updateEAPStatus(kNobody, 1, 2)},
        {"fileTransferRecvInit", manager.fileTransferRecvInit(kNobody, 1, 0)},
        {"fileTransferRecvStart", manager.fileTransferRecvStart(kNobody, 1)},
        {"fileTransferRecvPause", manager.fileTransferRecvPause(kNobody, 1)},
        {"fileTransferRecvCancel", manager.fileTransferRecvCancel(kNobody, 1)},
        {"registerFileTransferChannel", manager.registerFileTransferChannel(kNobody, 1, 2, 3)},
        {"unregisterFileTransferChannel", manager.unregisterFileTransferChannel(kNobody, 1, 2, 3)},
        {"BTComponentInformation", manager.BTComponentInformation(kNobody, &component, 1)},
        {"StartBTConnectionUpdate", manager.StartBTConnectionUpdate(kNobody, unsignedWords, 2)},
        {"StopBTConnectionUpdate", manager.StopBTConnectionUpdate(kNobody)},
        {"StartRouteGuidanceUpdate", manager.StartRouteGuidanceUpdate(kNobody, words, 2, 0)},
        {"StopRouteGuidanceUpdate", manager.StopRouteGuidanceUpdate(kNobody, words, 2)},
        {"StartAppDiscoveryUpdates", manager.StartAppDiscoveryUpdates(kNobody, 0, 0, 0, 0, 0)},
        {"StopAppDiscoveryUpdates", manager.StopAppDiscoveryUpdates(kNobody)},
        {"RequestAppDiscoveryAppIcons", manager.RequestAppDiscoveryAppIcons(kNobody, "x")},
        {"StartCallStateUpdates", manager.StartCallStateUpdates(kNobody, {})},
        {"StopCallStateUpdates", manager.StopCallStateUpdates(kNobody)},
        {"StartCommunicationsUpdates", manager.StartCommunicationsUpdates(kNobody, &communications)},
        {"StopCommunicationsUpdates", manager.StopCommunicationsUpdates(kNobody)},
        {"AcceptCall", manager.AcceptCall(kNobody, 0, nullptr)},
        {"EndCall", manager.EndCall(kNobody, 0, nullptr)},
        {"InitiateCall", manager.InitiateCall(kNobody, &call)},
        {"SwapCalls", manager.SwapCalls(kNobody)},
        {"MergeCalls", manager.MergeCalls(kNobody)},
        {"HoldStatusUpdate", manager.HoldStatusUpdate(kNobody, true, nullptr)},
        {"MuteStatusUpdate", manager.MuteStatusUpdate(kNobody, true)},
        {"SendDTMF", manager.SendDTMF(kNobody, 1, nullptr)},
        {"CarPlayStartSession", manager.CarPlayStartSession(kNobody, &wired, nullptr, 0, "", "", "")},
        {"PairingAccessory", manager.BluetoothPairingAccessoryInformation(kNobody, 1, block, block)},
        {"BluetoothPairingStatus", manager.BluetoothPairingStatus(kNobody, 1, 0, nullptr)},
        {"StartDestinationInformation", manager.StartDestinationInformation(kNobody, 0)},
        {"StopDestinationInformation", manager.StopDestinationInformation(kNobody)},
        {"DestinationInformationStatus", manager.DestinationInformationStatus(kNobody, "x", 0)},
        {"StartAssistiveTouch", manager.StartAssistiveTouch(kNobody)},
        {"StopAssistiveTouch", manager.StopAssistiveTouch(kNobody)},
        {"StartAssistiveTouchInformation", manager.StartAssistiveTouchInformation(kNobody)},
        {"StopAssistiveTouchInformation", manager.StopAssistiveTouchInformation(kNobody)},
        {"CarPlayAvailableDigitalCarKeys", manager.CarPlayAvailableDigitalCarKeys(kNobody, keys)},
    };
    for (const auto& [request, answer] : answers)
        EXPECT_EQ(answer, kNoSuchAccessory) << request;
}

}  // namespace
}  // namespace accessory::simulator::test
