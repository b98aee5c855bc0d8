// The examples that people copy from, as processes of their own: what they print, and how they end.
#include <gmock/gmock.h>

#include <csignal>
#include <sstream>

#include "tests/simulator/SimulatorProcess.h"

namespace accessory::test {
namespace {

using Process = simulator::test::SimulatorProcess;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr int kKilled = 128 + SIGKILL;

/// An example, with what it prints.
class Example : public Process {
  public:
    explicit Example(const std::string& name) : Process(EXAMPLES + name, {}) {}

    /// Waits until all of @p lines are there, in whatever order.
    void expectLines(const std::vector<std::string>& lines) {
        for (const std::string& line : lines)
            ASSERT_TRUE(says(line + '\n')) << "no line '" << line << "' in: " << output();
    }

    /// Of what it has printed, the lines that tell of the sound. The log comes between them.
    std::vector<std::string> soundLines() const {
        std::vector<std::string> lines;
        std::istringstream all(output());
        for (std::string line; std::getline(all, line);)
            if (line.rfind("endpoint ", 0) == 0 || line == "silence") lines.push_back(line);
        return lines;
    }
};

TEST(Examples, SmallestServiceAnswersTheSmallestClient) {
    Example service("accessory_service");
    ASSERT_TRUE(service.says("serving accessory.AccessoryManager as process "));
    Example client("accessory_client");
    ASSERT_TRUE(client.says("waiting for the service to end\n")) << client.output();
    EXPECT_THAT(client.output(), HasSubstr("3 accessories are attached\n"
                                           "accessory 1: feature 0x21, path /devices/usb1/1-1\n"
                                           "accessory 2: feature 0x05, path /devices/usb1/1-2\n"
                                           "accessory 7: feature 0x40, path /devices/bluetooth/hci0\n"
                                           "an unknown path has the identifier -1\n"
                                           "an unknown accessory has the path ''\n"));
    EXPECT_THAT(client.output(), HasSubstr("accessory 7 at /devices/bluetooth/hci0\n"));
    service.signal(SIGKILL);
    EXPECT_EQ(service.wait(), kKilled);
    EXPECT_EQ(client.wait(), 0);
    EXPECT_THAT(client.output(), HasSubstr("the service has ended; a ping answers -32\n"));
}

TEST(Examples, SmallestClientSaysThatThereIsNoService) {
    Example client("accessory_client");
    EXPECT_EQ(client.wait(), 1);
    EXPECT_THAT(client.output(), HasSubstr("no accessory service here; start accessory_service first\n"));
}

TEST(Examples, ServiceWithEventsTellsItsClientsWhatARequestHasChanged) {
    Example service("usb_audio_service");
    ASSERT_TRUE(service.says("serving accessory.AppleUSBAudioManager\n"));
    Process client(ACCESSORYCTL, {"watch", "attach", "--count", "1"});
    ASSERT_TRUE(client.says("watching accessory.AppleUSBAudioManager")) << client.output();
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(Process(ACCESSORYCTL, {"call", "AppleUSBAudioManager.startup"}).wait(), 0);
    }
    EXPECT_TRUE(client.says("IAppleUSBAudioManagerNotifier.attach accessoryId=1")) << client.output();
    EXPECT_EQ(client.wait(), 0);
    EXPECT_EQ(Process(ACCESSORYCTL, {"call", "AppleUSBAudioManager.play", "1"}).wait(), 0);
}

/// The commute, twelve times as fast as life. Its timeline begins when an application starts the phones up.
class OnTheWay : public testing::Test {
  protected:
    OnTheWay() { EXPECT_TRUE(simulator.ready()) << simulator.output(); }

    Process simulator{{"commute", "--speed", "12"}};
};

TEST_F(OnTheWay, NowPlayingShowsTheTitle) {
    Example example("now_playing");
    example.expectLines({"phone 1 plays First Light"});
}

TEST(Examples, NowPlayingAsksAPhoneThatComesLater) {
    Process simulator({LATE_PHONE, "--speed", "5"});
    ASSERT_TRUE(simulator.ready()) << simulator.output();
    Example example("now_playing");
    example.expectLines({"phone 2 plays Ring Road"});
}

TEST(Examples, ReturningClientAsksPhonesOfTheNextServiceToo) {
    Example client("returning_client");
    Process first({LATE_PHONE, "--speed", "5"});
    client.expectLines({"phone 1 is at 62 %", "phone 2 is at 80 %"});
    first.signal(SIGKILL);
    EXPECT_EQ(first.wait(), kKilled);
    client.expectLines({"the service has ended; waiting for the next"});
    Process second({TWO_PHONES});
    client.expectLines({"phone 1 is at 80 %"});
}

TEST_F(OnTheWay, MediaApplicationShowsMusicLibraryAndCallAndLeavesInGoodOrder) {
    Example example("media_application");
    example.expectLines({"phone 1 is here", "its library is 'Ann's music'",
                         "now playing: First Light, by Clara Holm", "Ben Falk rings"});
    EXPECT_THAT(example.output(), testing::ContainsRegex("library: [0-9]+ entries so far, 100 %\n"));
    example.signal(SIGTERM);
    EXPECT_EQ(example.wait(), 0);
    EXPECT_THAT(example.output(), HasSubstr("\nbye\n"));
}

TEST_F(OnTheWay, MediaApplicationNoticesTheEndOfTheService) {
    Example example("media_application");
    example.expectLines({"phone 1 is here"});
    simulator.signal(SIGKILL);
    EXPECT_EQ(simulator.wait(), kKilled);
    EXPECT_EQ(example.wait(), 0);
    EXPECT_THAT(example.output(), HasSubstr("the service has ended\n"));
}

TEST_F(OnTheWay, NavigationShowsTheWayAndItsLanesAndLeavesInGoodOrder) {
    Example navigation("navigation_application");
    Example media("media_application");  // starts the phones up
    navigation.expectLines({"phone 1: waiting for a route", "to Office, 8 Harbour Square", "on Mill Lane",
                            "on High Street", "3 lanes: Use the two left lanes"});
    EXPECT_THAT(navigation.output(), testing::ContainsRegex("in [0-9]+ m: Turn right onto High Street\n"));
    navigation.signal(SIGINT);
    EXPECT_EQ(navigation.wait(), 0);
    EXPECT_THAT(navigation.output(), HasSubstr("\nbye\n"));
}

TEST(Examples, AudioRouterPlaysTheEndpointThatCameLastAndGoesBackToTheOneBefore) {
    Process simulator({TWO_PHONES, "--speed", "5"});
    ASSERT_TRUE(simulator.ready()) << simulator.output();
    Example router("audio_router");
    ASSERT_TRUE(router.says("silence\n")) << router.output();
    EXPECT_THAT(router.soundLines(),
                ElementsAre("endpoint 1001 plays", "endpoint 1002 plays", "endpoint 1001 plays", "silence"));
    EXPECT_THAT(router.output(), HasSubstr("phone 1 offers audio\n"));
    EXPECT_THAT(router.output(), HasSubstr("phone 2 offers audio\n"));
    router.signal(SIGTERM);
    EXPECT_EQ(router.wait(), 0);
    EXPECT_THAT(router.output(), HasSubstr("\nbye\n"));
}

}  // namespace
}  // namespace accessory::test
