// Scenario files that are as they should be.
#include <gmock/gmock.h>

#include "simulator/scenario/ReadyMade.h"
#include "simulator/scenario/ScenarioReader.h"

namespace accessory::simulator {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

Scenario read(const std::string& text) {
    Scenario scenario;
    EXPECT_THAT(readScenario("test.json", text, &scenario), IsEmpty());
    return scenario;
}

TEST(ScenarioReader, FillsInWhatTheFileDoesNotSay) {
    const Scenario scenario = read(R"({"name": "x", "devices": [{"name": "Phone"}]})");
    EXPECT_EQ(scenario.version, "1.0");
    EXPECT_FALSE(scenario.beginsAtOnce);
    EXPECT_EQ(scenario.duration, milliseconds(0));
    ASSERT_EQ(scenario.devices.size(), 1u);
    EXPECT_EQ(scenario.devices[0].id, 1u);
    EXPECT_EQ(scenario.devices[0].transport, kTransportUSBHost);
    EXPECT_TRUE(scenario.devices[0].present);
}

TEST(ScenarioReader, ReadsADevice) {
    const Scenario scenario = read(R"({ // with comments
        "name": "x", "begin": "at once", "duration": 2.5, "seed": 9, "version": "v",
        "devices": [{"id": 4, "name": "P", "transport": "wifi", "present": false, "feature": -3, "path": "/p",
            "uuid": "U", "language": "de", "time": {"seconds": 7, "zoneMinutes": -60, "daylightMinutes": 60},
            "usbIdentifier": "a", "bluetoothIdentifier": "b", "bluetoothAddress": "01:02:0a:0B:ff:00",
            "supports": {"f": "yes"}, "applications": [{"id": "app", "name": "App", "protocol": 3}],
            "power": {"chargeLevel": 5}, "network": {"carrier": "C"}, "wifi": {"ssid": "s", "passphrase": "p"},
            "usbAudio": {"id": 8, "sampleRates": [16000]}, "carPlay": {"wireless": true},
            "digitalKeys": ["k1", "k2"], "assistiveTouch": true, "answerAfter": 10}]})");
    EXPECT_TRUE(scenario.beginsAtOnce);
    EXPECT_EQ(scenario.duration, milliseconds(2500));
    EXPECT_EQ(scenario.seed, 9u);
    const DeviceProfile& device = scenario.devices.at(0);
    EXPECT_EQ(device.id, 4u);
    EXPECT_EQ(device.transport, kTransportWiFi);
    EXPECT_FALSE(device.present);
    EXPECT_EQ(device.feature, -3);
    EXPECT_EQ(device.clock.zoneMinutes, -60);
    EXPECT_EQ(device.clock.daylightMinutes, 60);
    EXPECT_EQ(device.bluetoothAddress, (MacAddress{1, 2, 10, 11, 255, 0}));
    EXPECT_EQ(device.supports.at("f"), "yes");
    EXPECT_EQ(device.applications.at(0).protocol, 3);
    EXPECT_EQ(device.power.chargeLevel, 5);
    EXPECT_EQ(device.power.currentMilliamps, 500);
    EXPECT_EQ(device.network.carrier, "C");
    EXPECT_EQ(device.wifi.ssid, "s");
    EXPECT_THAT(device.usbAudio.sampleRates, ElementsAre(16000));
    EXPECT_TRUE(device.carPlay.wireless);
    EXPECT_THAT(device.digitalKeys, ElementsAre("k1", "k2"));
    EXPECT_TRUE(device.assistiveTouch);
    EXPECT_EQ(device.answerAfterMs, 10u);
}

TEST(ScenarioReader, ReadsALibraryBehindAGeneratedOne) {
    const Scenario scenario = read(R"({"name": "x", "devices": [{"name": "P", "library": {
        "id": "L", "name": "N", "revision": 4, "radio": true, "generate": {"tracks": 3},
        "tracks": [{"title": "T", "artist": "A", "duration": 5000, "artwork": 7}],
        "playlists": [{"id": 6, "name": "L6", "parent": 2, "tracks": [4, 1]}, {"name": "F", "folder": true}]}}]})");
    const MediaLibrary& library = scenario.devices.at(0).library;
    EXPECT_EQ(library.revision(), "4");
    EXPECT_TRUE(library.radio);
    ASSERT_EQ(library.tracks().size(), 4u);
    EXPECT_EQ(library.tracks()[3]->id, 4u);
    EXPECT_EQ(library.tracks()[3]->albumArtist, "A");
    EXPECT_EQ(library.tracks()[3]->artworkTransferId, 7);
    ASSERT_EQ(library.playlists().size(), 2u);
    EXPECT_THAT(library.playlists()[0].tracks, ElementsAre(4, 1));
    EXPECT_EQ(library.playlists()[1].id, 2u);
}

TEST(ScenarioReader, PutsTheTimelineInTheOrderOfItsTimes) {
    const Scenario scenario = read(R"({"name": "x", "duration": 1, "devices": [{"name": "P"}], "timeline": [
        {"at": 5, "do": "pause"}, {"at": 0.25, "do": "play"}, {"at": 5, "do": "detach"}]})");
    ASSERT_EQ(scenario.timeline.size(), 3u);
    EXPECT_EQ(scenario.timeline[0].action, "play");
    EXPECT_EQ(scenario.timeline[0].at, milliseconds(250));
    EXPECT_EQ(scenario.timeline[1].action, "pause");
    EXPECT_TRUE(scenario.timeline[1].needsAttached);
    EXPECT_FALSE(scenario.timeline[2].needsAttached);
    EXPECT_EQ(scenario.duration, milliseconds(5000));
}

TEST(ScenarioReader, ReadsFaults) {
    const Scenario scenario = read(R"({"name": "x", "devices": [{"name": "P"}], "faults": [
        {"operation": "*", "kind": "delay", "value": 20, "every": 3},
        {"operation": "AppleiAP2Manager.stop", "kind": "die", "value": 2, "call": 1},
        {"operation": "start", "kind": "die"}]})");
    ASSERT_EQ(scenario.faults.size(), 3u);
    EXPECT_EQ(toString(scenario.faults[2]), "start=die:1");
    EXPECT_EQ(toString(scenario.faults[0]), "*=delay:20/3");
    EXPECT_EQ(toString(scenario.faults[1]), "AppleiAP2Manager.stop=die:2@1");
}

TEST(ScenarioReference, NamesSectionsFieldsTypesAndActions) {
    const std::string reference = scenarioReference();
    for (const char* line :
         {R"(begin: one of "startup", "at once", default "startup".)", R"(  transport: one of "usb")",
          "    chargeLevel: a whole number from 0 to 100, default 80.", "        highlighted: a whole number",
          R"(  do "incoming-call": Somebody calls.)", "    rings: a number from 0 to 1000000, default 20.",
          R"(  kind: one of "delay", "error", "empty", "die")"})
        EXPECT_THAT(reference, testing::HasSubstr(line));
}

TEST(ReadyMade, AreFoundByNameAndAreAsTheyShouldBe) {
    const std::vector<std::string> files = listScenarios();
    EXPECT_GE(files.size(), 5u);
    for (const char* name : {"commute", "media-browsing", "pairing-carplay", "big-library", "noisy-device"}) {
        const std::optional<std::string> file = findScenario(name);
        ASSERT_TRUE(file) << name;
        Scenario scenario;
        EXPECT_THAT(readScenarioFile(*file, &scenario), IsEmpty());
        EXPECT_EQ(scenario.name, name);
    }
    EXPECT_FALSE(findScenario("commuter"));
    EXPECT_FALSE(findScenario("./commute.json"));
}

TEST(ReadyMade, ComeFromTheUsersFolderFirst) {
    const std::string own = testing::TempDir() + "own-scenarios";
    ASSERT_EQ(system(("mkdir -p " + own + " && touch " + own + "/commute.json").c_str()), 0);
    setenv("ACCESSORY_SCENARIO_DIR", own.c_str(), 1);
    EXPECT_EQ(findScenario("commute"), own + "/commute.json");
    EXPECT_NE(findScenario("big-library"), std::nullopt);
    unsetenv("ACCESSORY_SCENARIO_DIR");
}

}  // namespace
}  // namespace accessory::simulator
