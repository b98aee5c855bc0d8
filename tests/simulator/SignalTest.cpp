// How the program ends, and how it says that it is there.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/simulator/SimulatorClient.h"

namespace accessory::simulator::test {
namespace {

using testing::HasSubstr;

TEST(Signal, EndsTheProgramCleanly) {
    for (const int number : {SIGINT, SIGTERM}) {
        SimulatorProcess process({"commute"});
        ASSERT_TRUE(process.ready());
        process.signal(number);
        EXPECT_EQ(process.wait(), 0);
    }
}

TEST(Signal, EndsItWhileEventsAreRaised) {
    SimulatorProcess process({"commute", "--unattended", "--loop", "--speed", "1000", "--verbose"});
    ASSERT_TRUE(process.says("the end"));
    process.signal(SIGTERM);
    EXPECT_EQ(process.wait(), 0);
}

/// The sockets in the runtime folder.
std::vector<std::string> socketsIn(const std::string& folder) {
    std::vector<std::string> sockets;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.is_socket()) sockets.push_back(entry.path().filename().string());
    }
    return sockets;
}

TEST(Signal, LeavesNoSocketInTheRuntimeFolder) {
    std::string folder = testing::TempDir() + "simulator-XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    const std::string own = getenv("BINDER_RUNTIME_DIR");
    setenv("BINDER_RUNTIME_DIR", folder.c_str(), 1);
    SimulatorProcess process({"commute"});
    setenv("BINDER_RUNTIME_DIR", own.c_str(), 1);
    ASSERT_TRUE(process.ready());
    EXPECT_EQ(socketsIn(folder).size(), 1U);
    process.signal(SIGTERM);
    EXPECT_EQ(process.wait(), 0);
    EXPECT_THAT(socketsIn(folder), testing::IsEmpty());
    std::filesystem::remove_all(folder);
}

TEST(Welcome, LeavesOutADescriptionThatIsNotThere) {
    const std::string path = testing::TempDir() + "bare.json";
    std::ofstream(path) << R"({"name": "bare", "devices": [{"id": 1, "name": "x"}]})";
    SimulatorProcess process({path});
    ASSERT_TRUE(process.ready());
    EXPECT_THAT(process.output(), testing::StartsWith("Scenario \"bare\"\nHosting "));
    remove(path.c_str());
}

TEST(Welcome, TellsWhatIsHostedAndHowToLookAtIt) {
    SimulatorProcess process({"commute"});
    ASSERT_TRUE(process.ready());
    for (const char* text :
         {"Scenario \"commute\"", "accessory.AccessoryManager, accessory.AppleiAP2Manager and",
          "The timeline begins with the first startup()", "accessoryctl watch",
          "accessoryctl dump AppleiAP2Manager"})
        EXPECT_THAT(process.output(), HasSubstr(text));
    EXPECT_THAT(process.output(), testing::Not(HasSubstr("\033")));
}

TEST(Welcome, GoesToADescriptorToo) {
    const std::string path = testing::TempDir() + "simulator-ready";
    // The shell opens the descriptor, as a script would.
    const std::string command = std::string(SIMULATOR) +
                                " commute --speed 0 --unattended --exit --ready-fd 9 9> " + path +
                                " > /dev/null 2>&1 && grep -x ready " + path + " > /dev/null";
    EXPECT_EQ(system(command.c_str()), 0);
    unlink(path.c_str());
}

TEST(TwoSimulators, CannotHaveTheSameNames) {
    SimulatorProcess first({"commute"});
    ASSERT_TRUE(first.ready());
    SimulatorProcess second({"commute"});
    EXPECT_EQ(second.wait(), 4);
    EXPECT_THAT(second.output(), HasSubstr("another process hosts accessory.AccessoryManager in"));
    EXPECT_THAT(second.output(), HasSubstr("BINDER_RUNTIME_DIR"));
}

TEST(RuntimeFolder, ThatOthersMayWriteToIsRefused) {
    const std::string folder = testing::TempDir() + "open-to-all";
    mkdir(folder.c_str(), 0777);
    chmod(folder.c_str(), 0777);
    const std::string own = getenv("BINDER_RUNTIME_DIR");
    setenv("BINDER_RUNTIME_DIR", folder.c_str(), 1);
    SimulatorProcess process({"commute"});
    setenv("BINDER_RUNTIME_DIR", own.c_str(), 1);
    EXPECT_EQ(process.wait(), 1);
    EXPECT_THAT(process.output(), HasSubstr("cannot be published in"));
    EXPECT_THAT(process.output(), HasSubstr("expected a folder of your own with mode 0700"));
    rmdir(folder.c_str());
}

}  // namespace
}  // namespace accessory::simulator::test
