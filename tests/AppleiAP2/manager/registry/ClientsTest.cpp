// Clients in processes of their own: registration, order, every event, and deaths.
#include <thread>

#include "tests/AppleiAP2/manager/registry/ClientsFixture.h"
#include "tests/AppleiAP2/manager/registry/Messages.h"

namespace accessory::test {
namespace {

using android::sp;
using testing::Contains;
using testing::Not;

constexpr char kRemovedElsewhere[] = "! mNotifierDeathRecipients.removeItem(pid)";

TEST_F(Clients, RegisterUnderTheirOwnProcesses) {
    start(3);
    for (const size_t place : {2u, 0u, 1u})
        EXPECT_EQ(client(place).setNotifier(), 0);
    EXPECT_EQ(listed(), pidsOf({0, 1, 2}));
    EXPECT_EQ(service->dumps, 0);
}

TEST_F(Clients, AreToldEveryEventInTheOrderOfTheirProcesses) {
    startAndRegister(3);
    for (const Event& event : allEvents()) {
        const Message& message = messageOf(event.operation);
        log.clear();
        EXPECT_EQ(raise(event, broadcaster), message.returnsLast ? client(2).pid() : 0) << event.operation;
        Lines failures;
        for (size_t place = 0; place < 3; ++place)
            failures.push_back(failed(message, place, client(place).pid()));
        EXPECT_THAT(logged(), are(roundOf(message, 3, failures))) << event.operation;
        for (size_t place = 0; place < 3; ++place)
            EXPECT_EQ(client(place).told(), event.told + "|");
    }
}

TEST_F(Clients, AreToldOnlyWhileRegistered) {
    startAndRegister(2);
    for (const auto& each : clients)
        each->answer(0);
    EXPECT_EQ(client(0).clearNotifier(), 0);
    EXPECT_EQ(broadcaster->attach(7), 0);
    EXPECT_EQ(client(0).told(), "");
    EXPECT_EQ(client(1).told(), "attach(7)|");
    EXPECT_EQ(client(0).setNotifier(), 0);
    EXPECT_EQ(broadcaster->detach(8), 0);
    EXPECT_EQ(client(0).told(), "detach(8)|");
    EXPECT_EQ(client(1).told(), "detach(8)|");
}

TEST_F(Clients, KeepTheirFirstNotifierWhenTheyRegisterTwice) {
    startAndRegister(1);
    EXPECT_EQ(client(0).setAnotherNotifier(), 0);
    EXPECT_THAT(logged(), Contains(alreadyAdded(client(0).pid())));
    EXPECT_EQ(broadcaster->attach(7), 0);
    EXPECT_EQ(client(0).told(), "attach(7)|");
    EXPECT_EQ(listed(), pidsOf({0}));
}

TEST_F(Clients, CannotDeregisterWithoutARegistration) {
    start(1);
    log.clear();
    EXPECT_EQ(client(0).clearNotifier(), -1);
    EXPECT_THAT(logged(), are({error("remove notifier " + std::to_string(client(0).pid())),
                               error("current pid notifier is NULL")}));
}

TEST_F(Clients, CannotDeregisterAnother) {
    startAndRegister(1);
    RegisteringClient stranger(name);
    stranger.awaitReady();
    EXPECT_EQ(stranger.clearNotifier(), -1);
    EXPECT_EQ(listed(), pidsOf({0}));
}

TEST_F(Clients, LogTheRemovalOfARecipientFromAnyPlaceButTheFirst) {
    startAndRegister(3);
    EXPECT_EQ(client(1).clearNotifier(), 0);
    EXPECT_THAT(logged(), testing::IsSupersetOf(Lines{check("clearNotifier", kUnlinked),
                                                      check("clearNotifier", kRemovedElsewhere),
                                                      removed(2, 1, client(1).pid())}));
    EXPECT_EQ(client(0).clearNotifier(), 0);
    EXPECT_THAT(logged(), testing::AllOf(Contains(check("clearNotifier", kUnlinked)),
                                         Not(Contains(check("clearNotifier", kRemovedElsewhere)))));
    EXPECT_EQ(client(2).clearNotifier(), 0);
    EXPECT_THAT(logged(), Not(Contains(check("clearNotifier", kRemovedElsewhere))));
    EXPECT_EQ(listed(), std::vector<int>{});
}

TEST_F(Clients, LogOnlyPlainStatesWhenTheyRegister) {
    start(2);
    log.clear();
    EXPECT_EQ(client(0).setNotifier(), 0);
    EXPECT_EQ(client(1).setNotifier(), 0);
    for (const LogLine& line : logged())
        EXPECT_EQ(line.priority, ANDROID_LOG_DEBUG) << line.text;
}

TEST_F(Clients, AreForgottenWhenTheyAreKilled) {
    startAndRegister(3);
    const int pid = client(1).pid();
    client(1).kill();
    awaitDeath(pid);
    EXPECT_THAT(logged(), testing::IsSupersetOf(Lines{in(kManagerUnit, "binderDied"), died(pid),
                                                      removed(2, 1, pid), out(kManagerUnit, "binderDied")}));
    EXPECT_EQ(listed(), pidsOf({0, 2}));
    EXPECT_EQ(registry->addNotifier(
                  pid, sp<IAppleiAP2ManagerNotifier>(new BnAppleiAP2ManagerNotifier(new Recorder))),
              0);
    EXPECT_EQ(registry->removeNotifier(pid), 0);
    EXPECT_EQ(broadcaster->attach(7), 0);
    EXPECT_EQ(client(0).told() + client(2).told(), "attach(7)|attach(7)|");
}

TEST_F(Clients, LeaveNoRecipientBehindWhenTheyAreKilled) {
    startAndRegister(1);
    client(0).kill();
    EXPECT_TRUE(log.arrives(out(kManagerUnit, "~AppleiAP2NotifierDeathRecipient")));
    EXPECT_THAT(logged(),
                Not(Contains(testing::Field("text", &LogLine::text,
                                            testing::HasSubstr("mNotifierDeathRecipients.removeItem")))));
}

TEST_F(Clients, AreForgottenWhenTheyEndInGoodOrder) {
    startAndRegister(1);
    const int pid = client(0).pid();
    client(0).process.send("bye");
    client(0).process.wait();
    awaitDeath(pid);
    EXPECT_EQ(listed(), std::vector<int>{});
}

TEST_F(Clients, ThatDeregisteredDieUnnoticed) {
    startAndRegister(2);
    EXPECT_EQ(client(0).clearNotifier(), 0);
    const int quiet = client(0).pid();
    client(0).kill();
    client(1).kill();
    awaitDeath(client(1).pid());
    EXPECT_THAT(logged(), Not(Contains(died(quiet))));
}

TEST_F(Clients, DieInTheMiddleOfAnEventWithoutStoppingIt) {
    startAndRegister(3);
    for (const auto& each : clients)
        each->answer(0);
    client(0).answer(5);
    std::thread event([this] { EXPECT_EQ(broadcaster->notify(7, RegisteringClient::kWait), 0); });
    client(0).awaitWaiting();
    client(0).release();
    client(1).awaitWaiting();
    const int pid = client(1).pid();
    client(1).process.kill(SIGKILL);
    client(2).awaitWaiting();
    client(2).release();
    event.join();
    client(1).process.wait();
    awaitDeath(pid);
    const std::string told = "notify(7, " + std::to_string(RegisteringClient::kWait) + ")|";
    EXPECT_EQ(client(0).told(), told);
    EXPECT_EQ(client(2).told(), told);
    const std::vector<LogLine> lines = logged();
    EXPECT_THAT(lines, Contains(failed(messageOf("notify"), 0, 5)));
    EXPECT_THAT(lines, Contains(removed(2, 1, pid)));
    EXPECT_EQ(listed(), pidsOf({0, 2}));
}

TEST_F(Clients, AllDieInTheMiddleOfAnEvent) {
    startAndRegister(3);
    std::thread event([this] { EXPECT_EQ(broadcaster->notify(7, RegisteringClient::kWait), 0); });
    client(0).awaitWaiting();
    for (const auto& each : clients)
        each->process.kill(SIGKILL);
    event.join();
    for (const auto& each : clients) {
        each->process.wait();
        EXPECT_TRUE(log.arrives(died(each->pid())));
    }
    EXPECT_TRUE(eventually([this] { return listing() == "notifier size[0]\n"; }));
}

TEST_F(Clients, WaitToDeregisterUntilAnEventHasEnded) {
    startAndRegister(2);
    client(1).neverWait();
    std::thread event([this] { EXPECT_EQ(broadcaster->notify(7, RegisteringClient::kWait), 0); });
    client(0).awaitWaiting();
    client(1).begin("clear");
    EXPECT_TRUE(log.arrives(error("remove notifier " + std::to_string(client(1).pid()))));
    client(0).release();
    event.join();
    EXPECT_EQ(client(1).ended(), 0);
    EXPECT_EQ(client(1).told(), "notify(7, " + std::to_string(RegisteringClient::kWait) + ")|");
    EXPECT_EQ(listed(), pidsOf({0}));
}

TEST_F(Clients, FindTheStubUsableAfterManyDeaths) {
    for (int round = 0; round < 5; ++round) {
        RegisteringClient passing(name);
        passing.awaitReady();
        EXPECT_EQ(passing.setNotifier(), 0);
        passing.kill();
        EXPECT_TRUE(log.arrives(died(passing.pid())));
    }
    EXPECT_TRUE(eventually([this] { return listing() == "notifier size[0]\n"; }));
}

}  // namespace
}  // namespace accessory::test
