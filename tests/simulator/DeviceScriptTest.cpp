// A device by itself: attaching, telling who it is, sessions, files, pairing, controls, places and power.
#include <gmock/gmock.h>

#include "tests/simulator/Script.h"

namespace accessory::simulator::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(DeviceScript, TellsWhoItIsWhenItIsAttached) {
    Script script(R"("language": "de", "uuid": "U-1", "time": {"seconds": 50, "zoneMinutes": -90},
                     "usbIdentifier": "usb-1", "carPlay": {"wired": true, "wiredIdentifier": "w"})");
    EXPECT_THAT(
        script.play(1),
        ElementsAre("0 attach(1)", "0 deviceInfoUpdate(1, \"Phone\")", "0 deviceLanguageUpdate(1, \"de\")",
                    "0 deviceTimeUpdate(1, 50, -90, 0)", "0 deviceUUIDUpdate(1, \"U-1\")",
                    "0 DeviceTransportIdentifierNotification(1, \"usb-1\", null)",
                    "0 CarPlayAvailability(1, wired \"w\", wireless no)"));
}

TEST(DeviceScript, ComesAndGoes) {
    Script script(R"("present": false)");
    script.at(1, [](Device& device) { device.setPresent(true); });
    script.at(2, [](Device& device) { device.setPresent(true); });
    script.at(3, [](Device& device) { device.setPresent(false); });
    const std::vector<std::string> lines = script.play(4);
    EXPECT_THAT(about("attach(", lines), ElementsAre("1 attach(1)"));
    EXPECT_THAT(about("detach(", lines), ElementsAre("3 detach(1)"));
    EXPECT_THAT(script.description(), HasSubstr("device 1 \"Phone\": away"));
}

TEST(DeviceScript, ForgetsWhatWasAskedForWhenItGoes) {
    Script script;
    script.at(1, [](Device& device) { EXPECT_EQ(device.battery.start(0x20), kDone); });
    script.at(2, [](Device& device) { device.setPresent(false); });
    script.at(3, [](Device& device) { device.setPresent(true); });
    script.at(4, [](Device& device) {
        PowerState state = device.battery.state();
        state.chargeLevel = 1;
        device.battery.set(state);
    });
    EXPECT_THAT(about("powerUpdate", script.play(5)),
                ElementsAre("1 powerUpdate(1, iAP2PowerUpdate{chargeLevel: 80})"));
}

TEST(DeviceScript, OpensAndClosesItsSession) {
    Script script;
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.closeSession(), kWrongState);
        EXPECT_EQ(device.openSession(), kDone);
        EXPECT_EQ(device.openSession(), kWrongState);
        EXPECT_EQ(device.battery.start(1), kDone);
    });
    script.at(2, [](Device& device) {
        EXPECT_EQ(device.closeSession(), kDone);
        EXPECT_EQ(device.battery.stop(), kWrongState);
    });
    EXPECT_THAT(about("notify", script.play(3)), ElementsAre("1 notify(1, 1)", "2 notify(1, 2)"));
}

TEST(DeviceScript, TellsOnlyAskedPowerFieldsThatChanged) {
    Script script(R"("power": {"chargeLevel": 50, "current": 500})");
    script.at(1, [](Device& device) { device.battery.start(0x21); });
    script.at(2, [](Device& device) { EXPECT_EQ(device.battery.source(2100, true), kDone); });
    script.at(3, [](Device& device) { EXPECT_EQ(device.battery.source(2100, false), kDone); });
    script.at(100, [](Device& device) { EXPECT_EQ(device.battery.stop(), kDone); });
    EXPECT_THAT(about("powerUpdate", script.play(200)),
                ElementsAre("1 powerUpdate(1, iAP2PowerUpdate{currentFromAccessory: 500, chargeLevel: 50})",
                            "2 powerUpdate(1, iAP2PowerUpdate{currentFromAccessory: 2100})",
                            "60 powerUpdate(1, iAP2PowerUpdate{chargeLevel: 49})"));
}

TEST(DeviceScript, RunsExternalAccessorySessions) {
    Script script;
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.sessions.open(5), 1);
        EXPECT_EQ(device.sessions.open(6), 2);
        EXPECT_EQ(device.sessions.count(), 2);
        int protocol = 0;
        int session = 0;
        EXPECT_EQ(device.sessions.identify(1, &protocol, &session), kDone);
        EXPECT_EQ(protocol, 6);
        EXPECT_EQ(session, 2);
        EXPECT_EQ(device.sessions.identify(2, &protocol, &session), kNotFound);
        EXPECT_EQ(device.sessions.identify(0, nullptr, &session), kBadArgument);
    });
    script.at(2, [](Device& device) {
        EXPECT_EQ(device.sessions.sendReady(2, 10), kWrongState);
        EXPECT_EQ(device.sessions.registerChannel(2, 0, 0), kDone);
        EXPECT_EQ(device.sessions.registerChannel(2, 0, 0), kWrongState);
        EXPECT_EQ(device.sessions.registerChannel(3, 0, 0), kNotFound);
        EXPECT_EQ(device.sessions.sendReady(2, 10), kDone);
        device.sessions.receive(5, 70);
        device.sessions.receive(6, 80);
    });
    script.at(3, [](Device& device) {
        EXPECT_EQ(device.sessions.unregisterChannel(2), kDone);
        EXPECT_EQ(device.sessions.unregisterChannel(2), kWrongState);
        EXPECT_EQ(device.sessions.status(6, 1), kDone);
        EXPECT_EQ(device.sessions.status(6, 0), kDone);
        EXPECT_EQ(device.sessions.count(), 1);
    });
    EXPECT_THAT(about("EASession", script.play(4)),
                ElementsAre("1 EASessionStart(1, 5, 1)", "1 EASessionStart(1, 6, 2)",
                            "2 EASessionRecvDataReady(1, 2, 10)", "2 EASessionRecvDataReady(1, 2, 80)",
                            "3 EASessionStop(1, 2)"));
}

TEST(DeviceScript, DeliversAnOfferedFileWithAPause) {
    Script script;
    script.at(1, [](Device& device) {
        device.transfers.offer(7, 10'000, 1000);
        EXPECT_EQ(device.transfers.start(7), kWrongState);
        EXPECT_EQ(device.transfers.prepare(7), kDone);
        EXPECT_EQ(device.transfers.prepare(8), kNotFound);
        EXPECT_EQ(device.transfers.start(7), kDone);
    });
    script.at(5, [](Device& device) { EXPECT_EQ(device.transfers.pause(7), kDone); });
    script.at(20, [](Device& device) { EXPECT_EQ(device.transfers.start(7), kDone); });
    script.at(30, [](Device& device) { EXPECT_EQ(device.transfers.cancel(7), kWrongState); });
    EXPECT_THAT(about("fileTransfer", script.play(40)),
                ElementsAre("1 fileTransferSetup(1, setup(7, 0, 10000, 0, 0, 0, null))",
                            "1 fileTransferStart(1, 7)", "5 fileTransferPause(1, 7)",
                            "20 fileTransferStart(1, 7)", "26 fileTransferRecvFinish(1, 7)"));
}

TEST(DeviceScript, DeliversArtworkAndStopsWhenCancelled) {
    Script script(R"("library": {"id": "L", "tracks": [{"title": "T", "artwork": 40}]})");
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.transfers.prepare(0), kNotFound);
        EXPECT_EQ(device.transfers.prepare(40), kDone);
        EXPECT_EQ(device.transfers.registerChannel(40), kDone);
        EXPECT_EQ(device.transfers.registerChannel(40), kWrongState);
        EXPECT_EQ(device.transfers.unregisterChannel(41), kNotFound);
        EXPECT_EQ(device.transfers.start(40), kDone);
        EXPECT_EQ(device.transfers.cancel(40), kDone);
    });
    EXPECT_THAT(about("fileTransfer", script.play(40)),
                ElementsAre("1 fileTransferSetup(1, setup(40, 1, 30000, 0, 0, 0, null))",
                            "1 fileTransferStart(1, 40)", "1 fileTransferCancel(1, 40)"));
}

TEST(DeviceScript, PairsOutOfBandStepByStep) {
    Script script(R"("bluetoothAddress": "01:02:03:04:05:06")");
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.bluetooth.accessoryInfo(), kWrongState);
        device.bluetooth.beginOutOfBand();
        EXPECT_EQ(device.bluetooth.completionInfo(), kWrongState);
        EXPECT_EQ(device.bluetooth.accessoryInfo(), kDone);
        EXPECT_EQ(device.bluetooth.completionInfo(), kDone);
    });
    const std::vector<std::string> lines = about("OOBBTP", script.play(2));
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0], "1 startOOBBTP(1)");
    EXPECT_THAT(lines[1],
                testing::MatchesRegex(R"(1 OOBBTPLinkKeyInfo\(1, <[0-9a-f:]{47}>, <01:02:03:04:05:06>\))"));
    EXPECT_EQ(lines[2], "1 stopOOBBTP(1)");
}

TEST(DeviceScript, PairsInBand) {
    Script script(R"("bluetoothAddress": "01:02:03:04:05:06")");
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.bluetooth.pairingInformation(9, true), kWrongState);
        device.bluetooth.beginPairing(9);
        EXPECT_EQ(device.bluetooth.pairingInformation(8, true), kWrongState);
        EXPECT_EQ(device.bluetooth.pairingInformation(9, false), kBadArgument);
        EXPECT_EQ(device.bluetooth.pairingInformation(9, true), kDone);
        EXPECT_EQ(device.bluetooth.pairingStatus(9, 4), kDone);
        EXPECT_EQ(device.bluetooth.pairingStatus(9, 4), kWrongState);
    });
    EXPECT_THAT(
        about("Pairing", script.play(2)),
        ElementsAre("1 StartBluetoothPairing(1, 9, <01:02:03:04:05:06>)", "1 StopBluetoothPairing(1, 9, 4)"));
}

TEST(DeviceScript, TellsConnectionsOfAskedComponentsOnly) {
    Script script;
    script.at(1, [](Device& device) {
        device.bluetooth.setConnection(2, 1);
        EXPECT_EQ(device.bluetooth.startConnections({2, 3}), kDone);
        device.bluetooth.setConnection(4, 1);
        device.bluetooth.setConnection(3, 1);
        EXPECT_EQ(device.bluetooth.stopConnections(), kDone);
        device.bluetooth.setConnection(3, 0);
        EXPECT_EQ(device.bluetooth.stopConnections(), kWrongState);
    });
    EXPECT_THAT(about("BTConnection", script.play(2)),
                ElementsAre("1 BTConnectionUpdate(1, 2, 1)", "1 BTConnectionUpdate(1, 3, 0)",
                            "1 BTConnectionUpdate(1, 3, 1)"));
}

TEST(DeviceScript, StartsCarPlayTheWayThatIsAvailable) {
    Script script(R"("carPlay": {"wireless": true, "wirelessIdentifier": "mac"}, "digitalKeys": ["a", "b"])");
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.carPlay.start(false, false), kBadArgument);
        EXPECT_EQ(device.carPlay.start(true, false), kWrongState);
        EXPECT_EQ(device.carPlay.start(true, true), kDone);
        EXPECT_EQ(device.carPlay.start(true, true), kWrongState);
        EXPECT_EQ(device.carPlay.availableKeys({"b", "c"}), kDone);
    });
    const std::vector<std::string> lines = script.play(2);
    EXPECT_THAT(about("notify", lines), ElementsAre("1 notify(1, 10)"));
    EXPECT_THAT(about("wirelessCP", lines), ElementsAre("1 wirelessCPStateUpdate(1, 1)"));
    EXPECT_THAT(about("Keys", lines), ElementsAre("1 CarPlayMatchedDigitalCarKeys(1, [\"b\"])"));
}

TEST(DeviceScript, HandlesControlsAndAssistiveTouch) {
    Script script(R"("library": {"id": "L", "generate": {"tracks": 3}})");
    script.at(1, [](Device& device) {
        const unsigned char keys[] = {HumanInterface::kPlayKey | HumanInterface::kNextKey};
        EXPECT_EQ(device.humanInterface.report(keys, 1), kWrongState);
        EXPECT_EQ(device.humanInterface.start(4), kDone);
        EXPECT_EQ(device.humanInterface.start(4), kWrongState);
        EXPECT_EQ(device.humanInterface.report(nullptr, 1), kBadArgument);
        EXPECT_EQ(device.humanInterface.report(keys, 1), kDone);
        EXPECT_EQ(device.humanInterface.stop(), kDone);
        EXPECT_EQ(device.humanInterface.stop(), kWrongState);
    });
    script.at(2, [](Device& device) {
        EXPECT_EQ(device.humanInterface.startTouch(), kDone);
        EXPECT_EQ(device.humanInterface.startTouch(), kWrongState);
        EXPECT_EQ(device.humanInterface.startTouchInformation(), kDone);
        EXPECT_EQ(device.humanInterface.stopTouch(), kDone);
        EXPECT_EQ(device.humanInterface.stopTouchInformation(), kDone);
        EXPECT_EQ(device.humanInterface.stopTouchInformation(), kWrongState);
    });
    const std::vector<std::string> lines = script.play(3);
    EXPECT_THAT(about("hidComponent", lines),
                ElementsAre("1 hidComponentUpdate(1, 4, true)", "1 hidComponentUpdate(1, 4, false)"));
    EXPECT_THAT(about("AssistiveTouch", lines),
                ElementsAre("2 AssistiveTouchInformation(1, true)", "2 AssistiveTouchInformation(1, false)"));
    EXPECT_THAT(script.description(), HasSubstr("player: playing, track 2 of 3"));
}

TEST(DeviceScript, AsksForLocationAndSendsDestinations) {
    Script script;
    script.at(1, [](Device& device) {
        const unsigned char sentence[] = "$GPGGA";
        EXPECT_EQ(device.place.update(sentence, 6), kWrongState);
        device.place.startLocation(3, 500);
        EXPECT_EQ(device.place.update(sentence, 6), kDone);
        EXPECT_EQ(device.place.update(nullptr, 6), kBadArgument);
        device.place.stopLocation();
    });
    script.at(2, [](Device& device) {
        Destination destination;
        destination.identifier = "d";
        destination.name = "Lighthouse";
        destination.kind = 3;
        device.place.setDestination(destination);
        EXPECT_EQ(device.place.start(), kDone);
        EXPECT_EQ(device.place.status("x", 1), kNotFound);
        EXPECT_EQ(device.place.status(nullptr, 1), kBadArgument);
        EXPECT_EQ(device.place.status("d", 1), kDone);
        EXPECT_EQ(device.place.stop(), kDone);
        EXPECT_EQ(device.place.stop(), kWrongState);
    });
    const std::vector<std::string> lines = script.play(3);
    EXPECT_THAT(about("Location", lines), ElementsAre("1 startLocation(1, 3, 500)", "1 stopLocation(1)"));
    EXPECT_THAT(about("Destination", lines),
                ElementsAre("2 DestinationInformation(1, destination(\"d\", \"Lighthouse\", "
                            "<00:00:00:00:00:00:00:00>, \"\", 0, 3, \"\", \"\"))"));
    EXPECT_THAT(script.description(), HasSubstr("destination: \"Lighthouse\", status 1"));
}

TEST(DeviceScript, HasDeviceModeAudioWhenItsProfileSaysSo) {
    Script without;
    without.at(1, [](Device& device) { EXPECT_EQ(device.audio.startMode(), kWrongState); });
    EXPECT_THAT(about("Audio", without.play(2)), IsEmpty());
    Script with(R"("usbAudio": {"id": 5, "sampleRates": [16000, 48000]})");
    with.at(1, [](Device& device) {
        EXPECT_EQ(device.audio.startMode(), kDone);
        EXPECT_EQ(device.audio.startMode(), kWrongState);
        EXPECT_EQ(device.audio.setSampleRate(44100), kBadArgument);
        EXPECT_EQ(device.audio.setSampleRate(48000), kDone);
        EXPECT_EQ(device.audio.stopMode(), kDone);
        EXPECT_EQ(device.audio.stopMode(), kWrongState);
    });
    EXPECT_THAT(about("Audio", with.play(2)),
                ElementsAre("1 USBDeviceModeAudioInfo(1, 16000)", "1 USBDeviceModeAudioInfo(1, 48000)"));
}

TEST(DeviceScript, TellsOfItsApplications) {
    Script script(R"("applications": [{"id": "a", "name": "A", "category": 4, "protocol": 9}, {"id": "b"}])");
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.applications.startDiscovery(1), kDone);
        EXPECT_EQ(device.applications.launch("c"), kNotFound);
        EXPECT_EQ(device.applications.launch(nullptr), kBadArgument);
        EXPECT_EQ(device.applications.launch("a"), kDone);
        EXPECT_EQ(device.applications.requestIcon("c"), kNotFound);
        EXPECT_EQ(device.applications.requestIcon("b"), kDone);
        EXPECT_EQ(device.applications.stopDiscovery(), kDone);
        EXPECT_EQ(device.applications.stopDiscovery(), kWrongState);
        const char* ids[10] = {};
        unsigned int count = 0;
        EXPECT_EQ(device.applications.identify(ids, &count), kDone);
        EXPECT_EQ(count, 2u);
        EXPECT_STREQ(ids[1], "b");
    });
    const std::vector<std::string> lines = script.play(2);
    EXPECT_THAT(about("AppDiscoveryUpdate", lines),
                ElementsAre(R"x(1 AppDiscoveryUpdate(1, 1, ["app(4, \"a\", \"A\", 9)"], 0, []))x"));
    EXPECT_THAT(about("Icon", lines),
                ElementsAre(HasSubstr("AppDiscoveryAppIcon(1, \"b\", true, 1, <50:36:20:31:36")));
    EXPECT_THAT(about("EASession", lines), ElementsAre("1 EASessionStart(1, 9, 1)"));
}

}  // namespace
}  // namespace accessory::simulator::test
