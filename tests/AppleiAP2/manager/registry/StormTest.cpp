// Hundreds of client processes at once: all register, hear every event once, list, deregister or die, and
// again after that; no registration is lost, doubled or left over.
#include <sys/resource.h>

#include <thread>

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

    /// Lists and raises, without a pause, from a thread of its own: the event that waits for nobody, and
    /// lists that name each client once.
    void listAndRaiseUntil(const std::atomic<bool>& enough) {
        while (!enough) {
            const std::vector<int> pids = pidsIn(listing());
            EXPECT_EQ(std::adjacent_find(pids.begin(), pids.end(), std::greater_equal<>()), pids.end());
            EXPECT_EQ(broadcaster->hidComponentUpdate(7, 1, true), 0);
        }
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

/// The numbers of the attach events in what a client was told.
std::vector<unsigned int> attachesIn(const std::string& told) {
    static const std::string kAttach = "attach(";
    std::vector<unsigned int> numbers;
    for (size_t at = told.find(kAttach); at != std::string::npos; at = told.find(kAttach, at + 1))
        numbers.push_back(static_cast<unsigned int>(std::stoul(told.substr(at + kAttach.size()))));
    return numbers;
}

/// From some event on all of them, up to @p last.
bool areAllUpTo(unsigned int last, const std::vector<unsigned int>& numbers) {
    size_t expected = last - numbers.size();
    return !numbers.empty() && std::all_of(numbers.begin(), numbers.end(),
                                           [&](unsigned int number) { return number == ++expected; });
}

/// All clients register and list; by their places, a fifth of them is killed then and another deregisters.
class StormOfAll : public Storm {
  protected:
    static constexpr size_t kParts = 5;
    static bool dies(size_t place) { return place % kParts == 0; }
    static bool deregisters(size_t place) { return place % kParts == 1; }

    void begin() {
        for (const auto& each : clients) {
            each->begin("set");
            each->begin("dump");
        }
        for (size_t place = 0; place < kClients; ++place) {
            if (deregisters(place)) client(place).begin("clear");
            if (dies(place)) client(place).process.kill(SIGKILL);
        }
    }

    /// Raises events meanwhile. @return the clients that stay.
    std::vector<int> end() {
        std::vector<int> staying;
        for (size_t place = 0; place < kClients; ++place) {
            if (place % 25 == 0) broadcaster->attach(++events);
            if (dies(place)) continue;
            EXPECT_EQ(client(place).ended(), 0);
            EXPECT_GE(client(place).ended(), 1) << "the client itself is on the list";
            if (!deregisters(place)) {
                staying.push_back(client(place).pid());
            } else {
                EXPECT_EQ(client(place).ended(), 0);
            }
        }
        EXPECT_EQ(broadcaster->attach(++events), 0);
        return staying;
    }

    unsigned int events = 0;
};

TEST_F(StormOfAll, KeepsEveryListAndEveryRoundWhole) {
    start(kClients);
    log.clear();
    std::atomic<bool> enough{false};
    std::thread listing([&] { listAndRaiseUntil(enough); });
    begin();
    const std::vector<int> staying = end();
    enough = true;
    listing.join();
    EXPECT_TRUE(eventually([&] { return listed().size() == staying.size() + failedLinks(); }));
    EXPECT_THAT(listed(), testing::IsSupersetOf(staying));
    for (size_t place = 0; place < kClients; ++place) {
        if (dies(place) || deregisters(place)) continue;
        EXPECT_TRUE(areAllUpTo(events, attachesIn(client(place).told()))) << place;
    }
}

}  // namespace
}  // namespace accessory::test
