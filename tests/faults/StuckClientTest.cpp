// A client that does not answer an event, because it sleeps or is stopped: who waits for it, who does not,
// that the log names it, and that everything goes on when it does, or when it ends.
#include <functional>
#include <thread>

#include "tests/AppleiAP2/manager/registry/ClientsFixture.h"
#include "tests/faults/SlowLines.h"

namespace accessory::test {
namespace {

using testing::HasSubstr;

enum class Stuck { kAsleep, kStopped };
enum class End { kGoesOn, kIsKilled };

struct Case {
    const char* name;
    Stuck stuck;
    End end;
};

constexpr char kTold[] = "notify(7, 57005)|";

/// Three clients, of which the one in the middle is stuck in an event from the beginning of a test on.
class StuckClient : public Clients, public testing::WithParamInterface<Case> {
  protected:
    static constexpr size_t kBefore = 0;
    static constexpr size_t kStuck = 1;
    static constexpr size_t kBehind = 2;

    void SetUp() override {
        startAndRegister(3);
        client(kBefore).neverWait();
        client(kBehind).neverWait();
        if (GetParam().stuck == Stuck::kStopped) client(kStuck).process.stop();
        mEvent = std::thread([this] { EXPECT_EQ(broadcaster->notify(7, RegisteringClient::kWait), 0); });
        if (GetParam().stuck == Stuck::kAsleep) client(kStuck).awaitWaiting();
        ASSERT_TRUE(isToldOf(log, client(kStuck).pid()));
    }

    void TearDown() override {
        letItGoOn();
        for (std::thread& thread : beside)
            thread.join();
    }

    /// Lets the stuck client go on, or end, and waits for the end of the event.
    void letItGoOn() {
        if (!mEvent.joinable()) return;
        RegisteringClient& stuck = client(kStuck);
        const bool stopped = GetParam().stuck == Stuck::kStopped;
        if (GetParam().end == End::kIsKilled) {
            stuck.kill();
        } else if (stopped) {
            stuck.process.kill(SIGCONT);
            stuck.awaitWaiting();
            stuck.release();
        } else {
            stuck.release();
        }
        mEvent.join();
    }

    /// Runs @p action beside the test, which waits for its end.
    void besides(std::function<void()> action) { beside.emplace_back(std::move(action)); }

    /// Time passes: the log tells once more of the wait.
    void awaitAnotherLine() {
        const auto told = static_cast<size_t>(slowLines(log).size());
        EXPECT_TRUE(eventually([&] { return slowLines(log).size() > told; }));
    }

    /// Those that are registered when all is over.
    std::vector<int> inTheEnd(std::vector<int> others) {
        if (GetParam().end == End::kGoesOn) others.push_back(client(kStuck).pid());
        std::sort(others.begin(), others.end());
        return others;
    }

    testing::AssertionResult isListedInTheEnd(const std::vector<int>& others) {
        return eventually([&] { return listed() == inTheEnd(others); });
    }

    std::vector<std::thread> beside;

  private:
    std::thread mEvent;
};

TEST_P(StuckClient, IsNamedInTheLogUntilTheEventHasEnded) {
    const SlowLine line = slowLines(log).at(0);
    EXPECT_EQ("call 1 of accessory.AppleiAP2ManagerNotifier", line.call);
    EXPECT_EQ(namedInLog(client(kStuck).pid()), line.process);
    letItGoOn();
    const SlowLine last = lastSlowLine(log);
    EXPECT_EQ(line.call, last.call);
    EXPECT_EQ(GetParam().end == End::kIsKilled ? android::DEAD_OBJECT : android::NO_ERROR, last.status);
}

TEST_P(StuckClient, KeepsTheEventFromThoseBehindIt) {
    EXPECT_EQ(client(kBefore).told(), kTold);
    EXPECT_EQ(client(kBehind).told(), "");
    awaitAnotherLine();
    EXPECT_EQ(client(kBehind).told(), "");
    letItGoOn();
    EXPECT_EQ(client(kBehind).told(), kTold);
}

TEST_P(StuckClient, DoesNotHoldUpRequestsOfOthers) {
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(client(kBefore).request(), 0);
        EXPECT_EQ(client(kBehind).request(), 0);
    }
    RegisteringClient stranger(name);
    stranger.awaitReady();
    EXPECT_EQ(stranger.request(), 0);
    EXPECT_EQ(stranger.clearNotifier(), -1) << "who is not registered finds that out without the lock";
    if (GetParam().stuck == Stuck::kAsleep) {
        EXPECT_EQ(client(kStuck).request(), 0) << "on another thread";
    }
}

TEST_P(StuckClient, MakesARegistrationWait) {
    RegisteringClient newcomer(name);
    newcomer.awaitReady();
    newcomer.begin("set");
    EXPECT_TRUE(log.arrives(in(kManagerUnit, "setNotifier")));
    awaitAnotherLine();
    EXPECT_EQ(registry->find(newcomer.pid()), nullptr);
    letItGoOn();
    EXPECT_EQ(newcomer.ended(), 0);
    EXPECT_EQ(newcomer.told(), "");
    EXPECT_TRUE(isListedInTheEnd({client(kBefore).pid(), client(kBehind).pid(), newcomer.pid()}));
}

TEST_P(StuckClient, MakesADeregistrationWaitAfterItsRecipientIsUnlinked) {
    client(kBehind).begin("clear");
    EXPECT_TRUE(log.arrives(check("clearNotifier", "binder->unlinkToDeath(mDeathRecipient)")));
    awaitAnotherLine();
    EXPECT_NE(registry->find(client(kBehind).pid()), nullptr);
    letItGoOn();
    EXPECT_EQ(client(kBehind).ended(), 0);
    EXPECT_EQ(client(kBehind).told(), kTold) << "it was still among those that the event is for";
    EXPECT_TRUE(isListedInTheEnd({client(kBefore).pid()}));
}

TEST_P(StuckClient, MakesOtherEventsWait) {
    besides([this] { EXPECT_EQ(broadcaster->attach(8), 0); });
    EXPECT_TRUE(log.arrives(in(kNotifierUnit, "attach")));
    awaitAnotherLine();
    EXPECT_EQ(client(kBefore).told(), kTold);
    letItGoOn();
    EXPECT_TRUE(log.arrives(out(kNotifierUnit, "attach")));
    EXPECT_EQ(client(kBefore).told(), "attach(8)|");
    EXPECT_EQ(client(kBehind).told(), std::string(kTold) + "attach(8)|");
}

// A client that only sleeps in one callback hears it too, on another thread.
TEST_P(StuckClient, LeavesTheEventThatTakesNoLockToThoseBeforeIt) {
    besides([this] { EXPECT_EQ(broadcaster->hidComponentUpdate(8, 3, true), 0); });
    std::string told;
    EXPECT_TRUE(eventually([&] { return (told += client(kBefore).told()).size() > sizeof(kTold); }));
    EXPECT_EQ(told, std::string(kTold) + "hidComponentUpdate(8, 3, true)|");
    if (GetParam().stuck == Stuck::kAsleep) {
        EXPECT_TRUE(log.arrives(out(kNotifierUnit, "hidComponentUpdate")));
        EXPECT_EQ(client(kBehind).told(), "hidComponentUpdate(8, 3, true)|");
    } else {
        awaitAnotherLine();
        EXPECT_EQ(client(kBehind).told(), "");
    }
}

TEST_P(StuckClient, MakesTheListWaitButNotTheServicesOwnDump) {
    const DumpOutput own;
    EXPECT_EQ(stub->dump(own.in(), {}), 0);
    EXPECT_THAT(own.only(), HasSubstr("quiet\n"));
    std::atomic<bool> begun{false};
    std::atomic<bool> ended{false};
    besides([&] {
        begun = true;
        EXPECT_THAT(listed(), testing::IsSupersetOf(pidsOf({kBefore, kBehind})));
        ended = true;
    });
    EXPECT_TRUE(eventually([&] { return begun.load(); }));
    awaitAnotherLine();
    EXPECT_FALSE(ended);
    letItGoOn();
    EXPECT_TRUE(eventually([&] { return ended.load(); }));
}

TEST_P(StuckClient, KeepsTheDeadInTheRegisterAndTheirEventFromNobody) {
    const int dead = client(kBehind).pid();
    client(kBehind).kill();
    EXPECT_TRUE(log.arrives(died(dead)));
    awaitAnotherLine();
    EXPECT_NE(registry->find(dead), nullptr);
    letItGoOn();
    EXPECT_TRUE(isListedInTheEnd({client(kBefore).pid()}));
    EXPECT_EQ(broadcaster->attach(9), 0);
    EXPECT_THAT(client(kBefore).told(), HasSubstr("attach(9)|"));
}

INSTANTIATE_TEST_SUITE_P(Ways, StuckClient,
                         testing::Values(Case{"AsleepGoesOn", Stuck::kAsleep, End::kGoesOn},
                                         Case{"AsleepIsKilled", Stuck::kAsleep, End::kIsKilled},
                                         Case{"StoppedGoesOn", Stuck::kStopped, End::kGoesOn},
                                         Case{"StoppedIsKilled", Stuck::kStopped, End::kIsKilled}),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace accessory::test
