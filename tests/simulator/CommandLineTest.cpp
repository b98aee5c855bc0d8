// The command line: tasks that end at once, and mistakes.
#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "tests/simulator/SimulatorProcess.h"

namespace accessory::simulator::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct Ended {
    int status;
    std::string output;
};

Ended run(const std::vector<std::string>& arguments) {
    SimulatorProcess process(arguments);
    const int status = process.wait();
    return {status, process.output()};
}

TEST(CommandLine, HelpsAndTellsItsVersion) {
    const Ended help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* option : {"--list", "--check", "--speed", "--loop", "--seed", "--verbose", "--fault",
                               "--exit", "--unattended", "--describe-scenario", "--ready-fd", "--version"})
        EXPECT_THAT(help.output, HasSubstr(option));
    EXPECT_THAT(run({"--version"}).output, StartsWith("accessory-simulator 0."));
}

TEST(CommandLine, ListsTheReadyMadeScenarios) {
    const Ended list = run({"--list"});
    EXPECT_EQ(list.status, 0);
    for (const char* name :
         {"commute ", "media-browsing ", "pairing-carplay ", "big-library ", "noisy-device "})
        EXPECT_THAT(list.output, HasSubstr(name));
    EXPECT_THAT(list.output, testing::Not(HasSubstr("broken")));
}

TEST(CommandLine, DescribesScenarios) {
    const Ended description = run({"--describe-scenario"});
    EXPECT_EQ(description.status, 0);
    EXPECT_THAT(description.output, HasSubstr("timeline: a list of objects."));
}

TEST(CommandLine, ChecksAScenario) {
    const Ended good = run({"--check", QUIET_SCENARIO});
    EXPECT_EQ(good.status, 0);
    EXPECT_EQ(good.output, QUIET_SCENARIO " is a good scenario.\n");
    const std::string path = testing::TempDir() + "broken.json";
    std::ofstream(path) << "{\n\"name\": 3\n}";
    const Ended check = run({"--check", path});
    EXPECT_EQ(check.status, 3);
    EXPECT_THAT(check.output, HasSubstr(path + ":2: name: is the number 3; expected a text"));
    EXPECT_EQ(run({path}).status, 3);
    remove(path.c_str());
}

TEST(CommandLine, SaysWhatIsWrongAndWhatToType) {
    const std::pair<std::vector<std::string>, const char*> mistakes[] = {
        {{"--sped", "2"}, "--sped"},
        {{"--speed", "fast"}, "--speed"},
        {{"--speed", "-1"}, "--speed"},
        {{"--seed", "x"}, "--seed"},
        {{"--loop", "--exit"}, "--exit"},
        {{"--fault", "nothing"}, "'nothing' is no fault; expected operation=kind"},
        {{"--fault", "startUp=die"}, "there is no operation 'startUp'"},
        {{"--ready-fd", "0"}, "--ready-fd"},
    };
    for (const auto& [arguments, culprit] : mistakes) {
        const Ended ended = run(arguments);
        EXPECT_EQ(ended.status, 2) << arguments[0];
        EXPECT_THAT(ended.output, StartsWith("accessory-simulator: "));
        EXPECT_THAT(ended.output, HasSubstr(culprit));
        EXPECT_THAT(ended.output, HasSubstr("Type: accessory-simulator --help"));
    }
}

/// What bash offers for the last of @p words, one a line.
std::string offered(const std::string& words) {
    const std::string script = "PATH=$(dirname " SIMULATOR
                               "):$PATH; compopt() { :; }; source " SIMULATOR_COMPLETION
                               "/accessory-simulator.bash; COMP_WORDS=(accessory-simulator " +
                               words +
                               "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _accessory_simulator; "
                               "printf '%s\\n' \"${COMPREPLY[@]}\"";
    SimulatorProcess bash("/bin/bash", {"-c", script});
    EXPECT_EQ(bash.wait(), 0) << bash.output();
    return bash.output();
}

TEST(CommandLine, IsCompletedByTheShell) {
    EXPECT_EQ(offered("co"), "commute\n");
    EXPECT_EQ(offered("commute --s"), "--speed\n--seed\n");
    EXPECT_EQ(offered("--check ''"), "\n");
    const std::string help = run({"--help"}).output;
    std::istringstream options(offered("--"));
    for (std::string option; std::getline(options, option);)
        EXPECT_THAT(help, HasSubstr(option));
}

TEST(CommandLine, SaysThatAScenarioIsUnknown) {
    const Ended ended = run({"comute"});
    EXPECT_EQ(ended.status, 3) << "a service manager would start it again and again";
    EXPECT_THAT(ended.output,
                HasSubstr("there is no scenario 'comute'; expected a file, or one of those that"));
}

}  // namespace
}  // namespace accessory::simulator::test
