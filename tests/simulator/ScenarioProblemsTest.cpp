// Scenario files that are not as they should be: every message, and the line that it names.
#include <gmock/gmock.h>

#include "simulator/scenario/ScenarioReader.h"

namespace accessory::simulator {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::vector<std::string> problemsOf(const std::string& text) {
    Scenario scenario;
    return readScenario("f.json", text, &scenario);
}

/// The problems of a scenario with one device that has these fields besides its name, on line 2.
std::vector<std::string> deviceProblems(const std::string& fields) {
    return problemsOf("{\"name\": \"x\", \"devices\": [\n{\"name\": \"P\", " + fields + "}]}");
}

/// The problems of one timeline entry, on line 2.
std::vector<std::string> stepProblems(const std::string& step) {
    return problemsOf("{\"name\": \"x\", \"devices\": [{\"name\": \"P\"}], \"timeline\": [\n" + step + "]}");
}

TEST(ScenarioProblems, NameTheLineOfASyntaxError) {
    EXPECT_THAT(problemsOf("{\n\"name\": \"x\",\n\"devices\" []\n}"),
                testing::Contains(StartsWith("f.json:3: Missing ':' after object member name")));
    EXPECT_THAT(problemsOf("[]"), ElementsAre(HasSubstr("f.json:1: the file holds no object; expected {")));
    EXPECT_THAT(problemsOf(""), ElementsAre(StartsWith("f.json:1: Syntax error")));
}

TEST(ScenarioProblems, NameAFileThatIsNestedTooDeeply) {
    EXPECT_THAT(problemsOf(std::string(2000, '[')),
                ElementsAre(HasSubstr("f.json:1: the file is nested too deeply")));
}

TEST(ScenarioProblems, NameADuplicateKey) {
    EXPECT_THAT(problemsOf("{\"name\": \"x\",\n\"name\": \"y\"}"),
                testing::Contains(StartsWith("f.json:2: Duplicate key: 'name'")));
}

TEST(ScenarioProblems, AreReportedTogetherInTheOrderOfTheLines) {
    EXPECT_THAT(
        problemsOf("{\n\"nam\": 1,\n\"duration\": -1,\n\"devices\": [\n{\"id\": \"one\"}]}"),
        ElementsAre(
            "f.json:1: has no \"name\", which is required: What the scenario is called.",
            "f.json:2: nam: is no field here; did you mean \"name\"?",
            "f.json:3: duration: is the number -1; expected a number from 0 to 1000000",
            "f.json:5: devices[0].id: is the text \"one\"; expected a whole number from 1 to 4294967295",
            "f.json:5: devices[0]: has no \"name\", which is required: Told with deviceInfoUpdate()."));
}

TEST(ScenarioProblems, NameTypesAndRanges) {
    EXPECT_THAT(deviceProblems(R"("present": "yes")"),
                ElementsAre("f.json:2: devices[0].present: is the text \"yes\"; expected true or false"));
    EXPECT_THAT(deviceProblems(R"("path": 7)"),
                ElementsAre("f.json:2: devices[0].path: is the number 7; expected a text"));
    EXPECT_THAT(
        deviceProblems(R"("power": {"chargeLevel": 101})"),
        ElementsAre("f.json:2: devices[0].power.chargeLevel: is the number 101; expected a whole number "
                    "from 0 to 100"));
    EXPECT_THAT(deviceProblems(R"("power": 3)"),
                ElementsAre("f.json:2: devices[0].power: is the number 3; expected an object"));
    EXPECT_THAT(deviceProblems(R"("feature": 2.5)"), ElementsAre(HasSubstr("feature: is the number 2.5")));
    EXPECT_THAT(
        deviceProblems(R"("transport": "serial")"),
        ElementsAre(HasSubstr("transport: is the text \"serial\"; expected one of \"usb\", \"usb-device\", "
                              "\"bluetooth\", \"wifi\"")));
    EXPECT_THAT(deviceProblems(R"("digitalKeys": [1])"), ElementsAre(HasSubstr("expected a list of texts")));
    EXPECT_THAT(deviceProblems(R"("applications": {})"),
                ElementsAre(HasSubstr("expected a list of objects")));
    EXPECT_THAT(deviceProblems(R"("applications": [3])"),
                ElementsAre("f.json:2: devices[0].applications[0]: is the number 3; expected an object"));
    EXPECT_THAT(deviceProblems(R"("supports": {"a": null})"),
                ElementsAre(HasSubstr("expected an object of texts")));
    EXPECT_THAT(deviceProblems(R"("usbAudio": {"sampleRates": [1, -1]})"),
                ElementsAre(HasSubstr("sampleRates: holds the number -1; expected a list of numbers")));
    EXPECT_THAT(problemsOf(R"({"name": "", "devices": [{"name": "P"}]})"),
                ElementsAre("f.json:1: name: is empty; expected a text"));
}

TEST(ScenarioProblems, NameWhatDoesNotFitTogether) {
    EXPECT_THAT(problemsOf(R"({"name": "x"})"), ElementsAre(HasSubstr("devices: is empty or missing")));
    EXPECT_THAT(problemsOf(R"({"name": "x", "devices": [{"name": "P"}, {"name": "Q"}]})"),
                ElementsAre(HasSubstr("has two devices of the id 1; expected ids that differ")));
    EXPECT_THAT(deviceProblems(R"("bluetoothAddress": "12:34")"), ElementsAre(HasSubstr("is no address")));
    EXPECT_THAT(deviceProblems(R"("usbAudio": {"id": 3, "sampleRates": []})"),
                ElementsAre(HasSubstr("sampleRates: is empty; expected at least one")));
    EXPECT_THAT(
        deviceProblems(R"("routes": [{"name": "r"}])"),
        ElementsAre(HasSubstr("routes[0].maneuvers: is empty or missing; expected at least the arrival")));
    EXPECT_THAT(
        deviceProblems(
            R"("library": {"id": "L", "tracks": [{"id": 1, "title": "a"}, {"id": 1, "title": "b"}]})"),
        ElementsAre(HasSubstr("library.tracks: has two tracks of the id 1")));
    EXPECT_THAT(deviceProblems(R"("library": {"id": "L", "playlists": [{"name": "p", "tracks": [5]}]})"),
                ElementsAre(HasSubstr("playlists[0].tracks: names a track that the library does not have")));
}

TEST(ScenarioProblems, NameWhatCannotHappen) {
    EXPECT_THAT(
        stepProblems(R"({"do": "explode"})"),
        ElementsAre(AllOf(StartsWith("f.json:2: timeline[0].do: is nothing that can happen; expected one of"),
                          HasSubstr("incoming-call"))));
    EXPECT_THAT(stepProblems(R"({"at": 1})"), ElementsAre(HasSubstr("timeline[0]: has no \"do\"")));
    EXPECT_THAT(stepProblems(R"({"do": "play", "device": 9})"),
                ElementsAre(HasSubstr("timeline[0].device: there is no device 9; expected the id of one")));
    EXPECT_THAT(stepProblems(R"({"do": "incoming-call"})"), ElementsAre(HasSubstr("has no \"from\"")));
    EXPECT_THAT(stepProblems(R"({"do": "launch", "app": "x"})"),
                ElementsAre(HasSubstr("app: is not installed")));
    EXPECT_THAT(stepProblems(R"({"do": "start-route"})"), ElementsAre(HasSubstr("route")));
    EXPECT_THAT(stepProblems(R"({"do": "play-tracks", "tracks": [1]})"),
                ElementsAre(HasSubstr("tracks: is empty or names a track that the library lacks")));
    EXPECT_THAT(stepProblems(R"({"do": "pause", "elapsed": 3})"),
                ElementsAre(HasSubstr("timeline[0].elapsed: is no field here; expected one of \"at\"")));
}

TEST(ScenarioProblems, NameFaultsThatMakeNoSense) {
    const auto faultProblems = [](const std::string& fault) {
        return problemsOf("{\"name\": \"x\", \"devices\": [{\"name\": \"P\"}], \"faults\": [\n" + fault +
                          "]}");
    };
    EXPECT_THAT(faultProblems(R"({"operation": "acceptCall", "kind": "die"})"),
                ElementsAre(HasSubstr("f.json:2: faults[0].operation: names no operation")));
    EXPECT_THAT(faultProblems(R"({"operation": "*", "kind": "delay", "value": -5})"),
                ElementsAre(HasSubstr("faults[0].value: is negative; expected the delay in milliseconds")));
    EXPECT_THAT(faultProblems(R"({"operation": "*", "kind": "explode"})"),
                ElementsAre(HasSubstr("faults[0].kind: is the text \"explode\"; expected one of")));
}

TEST(ScenarioProblems, NameAFileThatCannotBeRead) {
    Scenario scenario;
    EXPECT_THAT(readScenarioFile("/nowhere/x.json", &scenario),
                ElementsAre(StartsWith("/nowhere/x.json: the file cannot be read")));
}

}  // namespace
}  // namespace accessory::simulator
