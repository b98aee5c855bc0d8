// What is left to chance, and the seed that decides it.
#include "tests/simulator/SimulatorClient.h"

namespace accessory::simulator::test {
namespace {

/// The event with the link key that a simulator with that seed makes up.
std::string linkKeyOf(const std::string& seed) {
    SimulatorProcess process({"pairing-carplay", "--speed", "100", "--seed", seed});
    EXPECT_TRUE(process.ready());
    SimulatorClient client;
    EXPECT_EQ(client.manager().startup(kTransportBluetooth), kDone);
    EXPECT_TRUE(client.hears("startOOBBTP(3)"));
    EXPECT_EQ(client.manager().OOBBTPAccInfo(3, 0), kDone);
    std::string event;
    const auto keep = [&event](const std::string& heard) {
        if (heard.rfind("OOBBTPLinkKeyInfo", 0) == 0) event = heard;
        return !event.empty();
    };
    EXPECT_TRUE(client.hears(testing::Truly(keep)));
    return event;
}

TEST(Seed, DecidesWhatIsLeftToChance) {
    const std::string once = linkKeyOf("4");
    EXPECT_EQ(once, linkKeyOf("4"));
    EXPECT_NE(once, linkKeyOf("5"));
}

}  // namespace
}  // namespace accessory::simulator::test
