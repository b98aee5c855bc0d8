// Faults as a client meets them.
#include <chrono>

#include "tests/simulator/SimulatorClient.h"

namespace accessory::simulator::test {
namespace {

using testing::HasSubstr;

/// A quiet simulator with faults.
class FaultySimulator {
  public:
    explicit FaultySimulator(const std::vector<std::string>& faults) : process(arguments(faults)) {
        EXPECT_TRUE(process.ready()) << process.output();
    }

    SimulatorProcess process;

  private:
    static std::vector<std::string> arguments(const std::vector<std::string>& faults) {
        std::vector<std::string> all = {QUIET_SCENARIO, "--verbose"};
        for (const std::string& fault : faults) {
            all.emplace_back("--fault");
            all.push_back(fault);
        }
        return all;
    }
};

TEST(FaultyService, AnswersWithAStatusAndDoesNothing) {
    FaultySimulator simulator({"setName=error:-7@2"});
    SimulatorClient client;
    EXPECT_EQ(client.manager().setName("one"), 0);
    EXPECT_EQ(client.manager().setName("two"), -7);
    EXPECT_EQ(client.manager().setSerialNumber("three"), 0);
    EXPECT_THAT(client.dump(), testing::AllOf(HasSubstr("name = \"one\""),
                                              HasSubstr("fault setName=error:-7@2: happened 1 times")));
    EXPECT_TRUE(simulator.process.says("AppleiAP2Manager.setName is answered with -7"));
}

TEST(FaultyService, AnswersStringsWithNull) {
    FaultySimulator simulator({"getVersion=error:-1/2"});
    SimulatorClient client;
    EXPECT_STREQ(client.manager().getVersion(), "quiet 2.3");
    EXPECT_EQ(client.manager().getVersion(), nullptr);
    EXPECT_STREQ(client.manager().getVersion(), "quiet 2.3");
}

TEST(FaultyService, RefusesARegistration) {
    FaultySimulator simulator({"AppleUSBAudioManager.setNotifier=error:-12"});
    SimulatorClient client;
    EXPECT_EQ(client.audio().setNotifier(nullptr), -12);
}

TEST(FaultyService, AnswersWithNothing) {
    FaultySimulator simulator({"shutdown=empty"});
    SimulatorClient client;
    EXPECT_EQ(client.manager().shutdown(kTransportWiFi), 0) << "it would be refused";
    EXPECT_EQ(client.audio().shutdown(), 0);
}

TEST(FaultyService, AnswersLate) {
    FaultySimulator simulator({"AccessoryManager.getDeviceCount=delay:300"});
    SimulatorClient client;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(client.accessories().getDeviceCount(), 0);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(300));
}

TEST(FaultyService, DiesInTheMiddleOfACall) {
    FaultySimulator simulator({"setName=die:57@2"});
    SimulatorClient client;
    EXPECT_EQ(client.manager().setName("one"), 0);
    EXPECT_EQ(client.manager().setName("two"), 0)
        << "an unreachable service cannot be told from a good answer";
    EXPECT_EQ(simulator.process.wait(), 57);
    EXPECT_NE(android::IInterface::asBinder(&client.manager())->pingBinder(), android::NO_ERROR);
}

}  // namespace
}  // namespace accessory::simulator::test
