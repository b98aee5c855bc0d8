// Requests about sessions, files, Bluetooth, guidance, CarPlay, places and assistive touch, through the
// program.
#include "tests/simulator/SimulatorClient.h"

namespace accessory::simulator::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST_F(QuietSimulator, RunsAnExternalAccessorySession) {
    attach();
    EXPECT_EQ(manager.getEASessionCount(kPhone), 0);
    EXPECT_EQ(manager.launchAPP(kPhone, "com.example.fuel", kLaunchWithAlert), kDone);
    EXPECT_TRUE(client.hears("EASessionStart(5, 7, 1)"));
    EXPECT_EQ(manager.getEASessionCount(kPhone), 1);
    int protocol = 0;
    int session = 0;
    EXPECT_EQ(manager.getEASessionId(kPhone, 0, &protocol, &session), kDone);
    EXPECT_EQ(protocol, 7);
    EXPECT_EQ(session, 1);
    EXPECT_EQ(manager.getEASessionId(kPhone, 1, &protocol, &session), kNotFound);
    EXPECT_EQ(manager.EASessionSendDataReady(kPhone, 1, 64), kWrongState);
    EXPECT_EQ(manager.registerEASessionChannel(kPhone, 1, 2, 3), kDone);
    EXPECT_EQ(manager.EASessionSendDataReady(kPhone, 1, 64), kDone);
    EXPECT_TRUE(client.hears("EASessionRecvDataReady(5, 1, 64)"));
    EXPECT_EQ(manager.unregisterEASessionChannel(kPhone, 1, 2, 3), kDone);
    EXPECT_EQ(manager.unregisterEASessionChannel(kPhone, 9, 2, 3), kNotFound);
    EXPECT_EQ(manager.updateEAPStatus(kPhone, 7, 0), kDone);
    EXPECT_TRUE(client.hears("EASessionStop(5, 1)"));
}

TEST_F(QuietSimulator, DeliversAFile) {
    attach();
    EXPECT_EQ(manager.fileTransferRecvInit(kPhone, 100, 0), kNotFound);
    EXPECT_EQ(manager.fileTransferRecvInit(kPhone, 101, 0), kDone);
    EXPECT_TRUE(client.hears("fileTransferSetup(5, {101 1 30000 0 0 null 0 0})"));
    EXPECT_EQ(manager.registerFileTransferChannel(kPhone, 101, 2, 3), kDone);
    EXPECT_EQ(manager.registerFileTransferChannel(kPhone, 101, 2, 3), kWrongState);
    EXPECT_EQ(manager.fileTransferRecvStart(kPhone, 101), kDone);
    EXPECT_TRUE(client.hears("fileTransferStart(5, 101)"));
    EXPECT_TRUE(client.hears("fileTransferRecvFinish(5, 101)"));
    EXPECT_EQ(manager.fileTransferRecvPause(kPhone, 101), kWrongState);
    EXPECT_EQ(manager.fileTransferRecvCancel(kPhone, 101), kWrongState);
    EXPECT_EQ(manager.unregisterFileTransferChannel(kPhone, 101, 2, 3), kDone);
}

TEST_F(QuietSimulator, TellsOfBluetoothConnections) {
    attach();
    unsigned int components[] = {3, 4};
    BTComInfo_s infos[2] = {};
    EXPECT_EQ(manager.BTComponentInformation(kPhone, infos, 2), kDone);
    EXPECT_EQ(manager.StartBTConnectionUpdate(kPhone, components, 2), kDone);
    EXPECT_TRUE(client.hears("BTConnectionUpdate(5, 3, 0)"));
    EXPECT_TRUE(client.hears("BTConnectionUpdate(5, 4, 0)"));
    EXPECT_THAT(client.dump(), HasSubstr("Bluetooth components of the head unit: 2"));
    EXPECT_EQ(manager.StopBTConnectionUpdate(kPhone), kDone);
    EXPECT_EQ(manager.StopBTConnectionUpdate(kPhone), kWrongState);
    EXPECT_EQ(manager.OOBBTPAccInfo(kPhone, 0), kWrongState);
    EXPECT_EQ(manager.OOBBTPCompletionInfo(kPhone, 0), kWrongState);
}

TEST_F(QuietSimulator, StartsAndStopsRouteGuidance) {
    attach();
    int displays[] = {3, 4};
    EXPECT_EQ(manager.StartRouteGuidanceUpdate(kPhone, displays, 2, 0x3), kDone);
    EXPECT_TRUE(client.hears("RouteGuidanceUpdates(5, {0x3 0:[3 4]})"));
    EXPECT_EQ(manager.StopRouteGuidanceUpdate(kPhone, displays, 1), kDone);
    EXPECT_EQ(manager.StopRouteGuidanceUpdate(kPhone, nullptr, 0), kDone);
    EXPECT_EQ(manager.StopRouteGuidanceUpdate(kPhone, nullptr, 0), kWrongState);
}

TEST_F(QuietSimulator, StartsCarPlayAndMatchesKeys) {
    attach();
    CPStartSessionWiredAttributes wired{"a"};
    CPStartSessionWirelessAttributes wireless;
    wireless.string1 = wireless.string2 = wireless.string3 = "";
    EXPECT_EQ(manager.CarPlayStartSession(kPhone, nullptr, nullptr, 0, "", "", ""), kBadArgument);
    EXPECT_EQ(manager.CarPlayStartSession(kPhone, nullptr, &wireless, 0, "", "", ""), kWrongState);
    EXPECT_EQ(manager.CarPlayStartSession(kPhone, &wired, nullptr, 0, "", "", ""), kDone);
    EXPECT_TRUE(client.hears("notify(5, 10)"));
    std::vector<std::string> keys = {"k0", "k1"};
    EXPECT_EQ(manager.CarPlayAvailableDigitalCarKeys(kPhone, keys), kDone);
    EXPECT_TRUE(client.hears("CarPlayMatchedDigitalCarKeys(5, {\"k1\"})"));
}

TEST_F(QuietSimulator, SwitchesAssistiveTouchAndAsksForPlaces) {
    attach();
    EXPECT_EQ(manager.StartAssistiveTouchInformation(kPhone), kDone);
    EXPECT_TRUE(client.hears("AssistiveTouchInformation(5, false)"));
    EXPECT_EQ(manager.StartAssistiveTouch(kPhone), kDone);
    EXPECT_TRUE(client.hears("AssistiveTouchInformation(5, true)"));
    EXPECT_EQ(manager.StopAssistiveTouch(kPhone), kDone);
    EXPECT_EQ(manager.StopAssistiveTouch(kPhone), kWrongState);
    EXPECT_EQ(manager.StopAssistiveTouchInformation(kPhone), kDone);
    EXPECT_EQ(manager.StartDestinationInformation(kPhone, 0), kDone);
    EXPECT_EQ(manager.DestinationInformationStatus(kPhone, "d", 0), kNotFound);
    EXPECT_EQ(manager.StopDestinationInformation(kPhone), kDone);
    EXPECT_EQ(manager.StopDestinationInformation(kPhone), kWrongState);
}

/// What comes from the timeline and is answered by requests.
TEST(Pairing, GoesThroughBothWays) {
    SimulatorProcess process({"pairing-carplay", "--speed", "20"});
    ASSERT_TRUE(process.ready());
    SimulatorClient client;
    IAppleiAP2Manager& manager = client.manager();
    ASSERT_EQ(manager.startup(kTransportBluetooth), kDone);
    ASSERT_TRUE(client.hears("StartBluetoothPairing(3, 17, [b8 27 eb 00 00 03])"));
    unsigned char blocks[2][16] = {};
    EXPECT_EQ(manager.BluetoothPairingAccessoryInformation(3, 18, blocks, blocks), kWrongState);
    EXPECT_EQ(manager.BluetoothPairingAccessoryInformation(3, 17, blocks, nullptr), kBadArgument);
    EXPECT_EQ(manager.BluetoothPairingAccessoryInformation(3, 17, blocks, blocks), kDone);
    EXPECT_EQ(manager.BluetoothPairingStatus(3, 17, 0, nullptr), kDone);
    EXPECT_TRUE(client.hears("StopBluetoothPairing(3, 17, 0)"));
    ASSERT_TRUE(client.hears("startOOBBTP(3)"));
    EXPECT_EQ(manager.OOBBTPAccInfo(3, 1), kDone);
    EXPECT_TRUE(
        client.hears(testing::AllOf(StartsWith("OOBBTPLinkKeyInfo(3, ["), HasSubstr("b8 27 eb 00 00 03"))));
    EXPECT_EQ(manager.OOBBTPCompletionInfo(3, 1), kDone);
    EXPECT_TRUE(client.hears("stopOOBBTP(3)"));
    EXPECT_EQ(manager.StartDestinationInformation(3, 0), kDone);
    EXPECT_TRUE(
        client.hears(testing::AllOf(StartsWith("DestinationInformation(3, {255 \"dest-1\" \"Lighthouse\""))));
    EXPECT_EQ(manager.DestinationInformationStatus(3, "dest-1", 2), kDone);
    ASSERT_TRUE(client.hears("startLocation(3, 3, 1000)"));
    EXPECT_EQ(manager.updateLocation(3, reinterpret_cast<const unsigned char*>("$GP"), 3), kDone);
    EXPECT_THAT(client.dump(), HasSubstr("1 updates received, last \"$GP\""));
}

}  // namespace
}  // namespace accessory::simulator::test
