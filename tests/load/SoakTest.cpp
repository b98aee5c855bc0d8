// An everyday mixture for as long as wanted: clients of all managers come, register, ask, hear events, leave
// or are killed; one service lives through all of it and one is killed again and again. The steady service
// does not grow, and sleeps when there is nothing to do.
#include <gtest/gtest.h>

#include <deque>
#include <iostream>
#include <memory>
#include <random>
#include <sstream>

#include "tests/load/EverydayService.h"
#include "tests/load/Load.h"
#include "tests/load/ProcessWatch.h"
#include "tests/platform/TestService.h"
#include "tests/support/ChildProcess.h"

namespace accessory::load {
namespace {

using accessory::test::ChildProcess;
using simulator::test::Sample;
using std::chrono::steady_clock;

constexpr size_t kClients = 8;
/// One in so many steps kills the mortal service; half of the others kill a client.
constexpr unsigned int kStepsOfALife = 30;

class LoadSoak : public testing::Test {
  protected:
    LoadSoak() {
        startMortal();
        EXPECT_EQ(steady.expectLine(), "ready");
        referencesBefore = clientsOf().references;
        while (clients.size() < kClients)
            clients.push_back(newClient());
    }

    struct Clients {
        size_t ofManager = 0;
        size_t ofAudio = 0;
        int references = 0;
    };

    Clients clientsOf() {
        Clients found;
        std::istringstream(answerOf(steady, "clients")) >> found.ofManager >> found.ofAudio >>
            found.references;
        return found;
    }

    /// Whether nobody is registered any more, and nothing of those who were is left.
    bool isDeserted() {
        const Clients now = clientsOf();
        return now.ofManager == 0 && now.ofAudio == 0 && now.references == referencesBefore;
    }

    static std::string answerOf(ChildProcess& child, const std::string& order) {
        child.send(order);
        return child.expectLine(kLongPatience);
    }

    std::unique_ptr<ChildProcess> newClient() {
        auto client = std::make_unique<ChildProcess>("everydayClient",
                                                     accessory::test::RoleArguments{steadyName, mortalName});
        EXPECT_EQ(client->expectLine(kLongPatience), "ready");
        return client;
    }

    void startMortal() {
        mortal =
            std::make_unique<ChildProcess>("everydayService", accessory::test::RoleArguments{mortalName});
        EXPECT_EQ(mortal->expectLine(kLongPatience), "ready");
        answerOf(*mortal, "loud");
    }

    void killMortal() {
        mortal->kill();
        mortal->wait();
        startMortal();
        ++restarts;
    }

    void killOne(std::unique_ptr<ChildProcess>& client) {
        client->kill();
        client->wait();
        client = newClient();
        ++killed;
    }

    /// @return the last rounds that it heard.
    std::string dismiss(ChildProcess& client) {
        std::string rounds = answerOf(client, "leave");
        client.send("bye");
        EXPECT_TRUE(testing::ExitedWithCode(0)(client.wait()));
        return rounds;
    }

    void letOneLeave(std::unique_ptr<ChildProcess>& client) {
        requests += std::stoull(answerOf(*client, "rest"));
        dismiss(*client);
        client = newClient();
        ++left;
    }

    void step() {
        const unsigned int choice = random();
        std::unique_ptr<ChildProcess>& client = clients[choice / kStepsOfALife % kClients];
        if (choice % kStepsOfALife == 0) return killMortal();
        choice % 2 == 0 ? killOne(client) : letOneLeave(client);
    }

    void liveFor(std::chrono::seconds time) {
        const auto begin = steady_clock::now();
        while (steady_clock::now() - begin < time && !HasFailure()) {
            step();
            const bool isWarm = steady_clock::now() - begin > time / 4;
            isWarm ? watch.sample() : Sample();
            rest(std::chrono::milliseconds(50));
        }
    }

    /// No more requests and events. @return the rounds of events there were.
    unsigned int becomeQuiet() {
        for (const auto& client : clients)
            requests += std::stoull(answerOf(*client, "rest"));
        answerOf(*mortal, "quiet");
        return static_cast<unsigned int>(std::stoul(answerOf(steady, "quiet")));
    }

    std::vector<pid_t> everybody() const {
        std::vector<pid_t> pids{steady.pid(), mortal->pid()};
        for (const auto& client : clients)
            pids.push_back(client->pid());
        return pids;
    }

    const std::string steadyName = accessory::test::uniqueServiceName();
    const std::string mortalName = accessory::test::uniqueServiceName();
    ChildProcess steady{"everydayService", {steadyName}};
    std::unique_ptr<ChildProcess> mortal;
    std::deque<std::unique_ptr<ChildProcess>> clients;
    ProcessWatch watch{steady.pid()};
    std::mt19937 random{20'000};
    int referencesBefore = 0;
    uint64_t requests = 0;
    int killed = 0;
    int left = 0;
    int restarts = 0;
};

TEST_F(LoadSoak, OfAllInterfacesLosesNothingDoesNotGrowAndSleepsAfterwards) {
    answerOf(steady, "loud");
    liveFor(loadTime());
    ASSERT_FALSE(HasFailure());
    const unsigned int rounds = becomeQuiet();
    std::cout << loadTime().count() << " s: " << rounds << " rounds of events, " << requests
              << " requests of clients that left; " << killed << " clients killed, " << left << " left, "
              << restarts << " times a service was killed\n";
    watch.expectSteadyMemory();
    expectSleep(everybody());
    const std::string last = std::to_string(kFirstRound + rounds - 1);
    const std::string ofBothManagers = std::string(last).append(" ").append(last);
    for (const auto& client : clients)
        EXPECT_EQ(dismiss(*client), ofBothManagers);
    EXPECT_TRUE(accessory::test::eventually([this] { return isDeserted(); }));
}

}  // namespace
}  // namespace accessory::load
