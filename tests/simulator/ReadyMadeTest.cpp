// The ready-made scenarios, to their ends, with nobody but the simulator itself.
#include <gmock/gmock.h>

#include <algorithm>

#include "tests/simulator/SimulatorProcess.h"

namespace accessory::simulator::test {
namespace {

using testing::HasSubstr;

/// What a scenario shows from its beginning to its end.
std::string transcriptOf(const std::string& scenario, const std::vector<std::string>& more = {}) {
    std::vector<std::string> arguments = {scenario, "--speed", "0", "--unattended", "--exit", "--verbose"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    SimulatorProcess process(arguments);
    EXPECT_EQ(process.wait(), 0) << process.output();
    const std::string& output = process.output();
    // What is before differs from run to run: it names the process.
    return output.substr(output.find("ready\n"));
}

/// Without the library's own log, which has the time of day in it.
std::string eventsOf(const std::string& transcript) {
    std::string events;
    for (size_t start = 0, end = 0; (end = transcript.find('\n', start)) != std::string::npos;
         start = end + 1) {
        const std::string line = transcript.substr(start, end - start + 1);
        if (line.rfind("    ", 0) == 0) events += line;
    }
    return events;
}

class ReadyMadeScenario : public testing::TestWithParam<const char*> {};

TEST_P(ReadyMadeScenario, RunsToItsEnd) {
    const std::string transcript = transcriptOf(GetParam());
    EXPECT_THAT(transcript, HasSubstr("attach("));
    EXPECT_THAT(transcript, HasSubstr("timeline the end"));
    EXPECT_THAT(transcript, HasSubstr("\nServed 0 requests and raised "));
}

TEST_P(ReadyMadeScenario, IsTheSameEveryTime) {
    const std::string once = eventsOf(transcriptOf(GetParam()));
    EXPECT_GT(once.size(), 1000u);
    EXPECT_EQ(once, eventsOf(transcriptOf(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(All, ReadyMadeScenario,
                         testing::Values("commute", "media-browsing", "pairing-carplay", "big-library",
                                         "noisy-device"),
                         [](const auto& info) {
                             std::string name = info.param;
                             name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
                             return name;
                         });

TEST(Commute, HasMusicGuidanceLanesAndACall) {
    const std::string transcript = transcriptOf("commute");
    for (const char* event :
         {R"(title: "First Light")", R"(title: "Ring Road")",
          R"(maneuverDescription: "Turn right onto High Street")",
          R"(laneGuidanceDescription: "Use the two left lanes")", "routeGuidanceState: 5",
          "routeGuidanceState: 2", R"(CallStateUpdate(1, {1: "+44 20 7946 0123", 2: "Ben Falk", 3: 2)",
          "3: 4", "3: 0", "CommunicationsUpdate(1, {1: 2})", "EASessionStart(1, 7, 1)"})
        EXPECT_THAT(transcript, HasSubstr(event));
}

TEST(BigLibrary, StreamsAHundredPages) {
    const std::string transcript = transcriptOf("big-library");
    size_t pages = 0;
    for (size_t at = 0; (at = transcript.find("mediaLibUpdateDataReady", at)) != std::string::npos; ++at)
        ++pages;
    EXPECT_EQ(pages, 100u);
    EXPECT_THAT(transcript, HasSubstr("updateProgress: 100"));
    EXPECT_THAT(transcript, HasSubstr("{id: 10000,"));
}

}  // namespace
}  // namespace accessory::simulator::test
