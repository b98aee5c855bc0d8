// Hundreds of client processes at once: all register, hear every event once, deregister or die, and again
// after that; no registration is lost, doubled or left over.
#include <sys/resource.h>

#include "tests/AppleiAP2/manager/registry/ClientsFixture.h"

namespace accessory::test {
namespace {

constexpr size_t kClients = 500;

class Storm : public Clients {
  protected:
    /// A client takes a handful of descriptors here: connections both ways, its conversation with the test.
    static void SetUpTestSuite() {
        rlimit limit{};
        ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
        limit.rlim_cur = limit.rlim_max;
        ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
        ASSERT_GE(limit.rlim_cur, kClients * 8) << "raise the hard limit: ulimit -Hn";
    }

    std::vector<int> all() {
        std::vector<int> pids;
        for (const auto& each : clients)
            pids.push_back(each->pid());
        return pids;
    }

    void allRegister() {
        for (const auto& each : clients)
            each->begin("set");
        for (const auto& each : clients)
            EXPECT_EQ(each->ended(), 0);
    }

    /// How often a registration's link to the client's death failed.
    size_t failedLinks() {
        const std::vector<LogLine> lines = log.linesWith(kManagerTag);
        return static_cast<size_t>(std::count_if(lines.begin(), lines.end(), [](const LogLine& line) {
            return line.text.rfind("setNotifier ", 0) == 0 &&
                   line.text.find("check return value failed") != std::string::npos;
        }));
    }

    bool isEmptyInTime() {
        return eventually([this] { return listing() == "notifier size[0]\n"; });
    }
};

TEST_F(Storm, OfRegistrationsLosesNoneAndDoublesNone) {
    start(kClients);
    allRegister();
    EXPECT_EQ(listed(), all());
    EXPECT_EQ(broadcaster->attach(7), 0);
    EXPECT_EQ(broadcaster->hidComponentUpdate(7, 1, true), 0);
    for (const auto& each : clients)
        EXPECT_EQ(each->told(), "attach(7)|hidComponentUpdate(7, 1, true)|");
}

TEST_F(Storm, OfDeregistrationsAndDeathsLeavesNothingBehind) {
    start(kClients);
    allRegister();
    for (size_t place = 0; place < kClients; place += 2)
        client(place).begin("clear");
    for (size_t place = 1; place < kClients; place += 2)
        client(place).process.kill(SIGKILL);
    for (size_t place = 0; place < kClients; place += 2) {
        const int result = client(place).ended();
        EXPECT_EQ(result, 0);
    }
    EXPECT_TRUE(isEmptyInTime());
}

// A client that dies between its entry into the register and the link to its death stays registered: the
// failed link is logged, and nothing is undone. Only such clients may be listed beside the living ones.
TEST_F(Storm, OfRegistrationsGoesOnWhileEventsAreRaisedAndClientsDie) {
    start(kClients);
    log.clear();
    for (const auto& each : clients)
        each->begin("set");
    for (size_t place = 0; place < kClients; place += 10)
        client(place).process.kill(SIGKILL);
    for (unsigned int event = 0; event < 5; ++event)
        EXPECT_EQ(broadcaster->attach(event), 0);
    std::vector<int> living;
    for (size_t place = 0; place < kClients; ++place) {
        if (place % 10 == 0) continue;
        EXPECT_EQ(client(place).ended(), 0);
        living.push_back(client(place).pid());
    }
    EXPECT_TRUE(eventually([&] { return listed().size() == living.size() + failedLinks(); }));
    EXPECT_THAT(listed(), testing::IsSupersetOf(living));
}

}  // namespace
}  // namespace accessory::test
