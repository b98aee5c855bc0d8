// Clients in processes of their own: requests, registration, order, both events, and deaths.
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <algorithm>
#include <memory>
#include <thread>

#include "tests/AppleUSBAudio/AudioClient.h"
#include "tests/AppleUSBAudio/AudioFixture.h"
#include "tests/AppleiAP2/manager/registry/DumpOutput.h"

namespace accessory::test {
namespace {

using android::sp;
using testing::Contains;
using testing::Not;

/// No two services of one test run share a name.
std::string freshName() {
    static int count = 0;
    return "audio" + std::to_string(++count);
}

Line failure() { return check("attach", "!notifier->attach(accessoryId)"); }

class AudioClients : public AudioFixture {
  protected:
    AudioClients() {
        EXPECT_EQ(android::defaultServiceManager()->addService(android::String16(name.c_str()), stub), 0);
        android::ProcessState::self()->startThreadPool();
    }

    /// Starts so many clients; they are kept in ascending order of their processes.
    void start(int count) {
        for (int i = 0; i < count; ++i)
            clients.push_back(std::make_unique<AudioClient>(name));
        std::sort(clients.begin(), clients.end(),
                  [](const auto& left, const auto& right) { return left->pid() < right->pid(); });
        log.clear();
    }

    void startAndRegister(int count) {
        start(count);
        for (const auto& client : clients)
            EXPECT_EQ(client->setNotifier(), 0);
        log.clear();
    }

    AudioClient& client(size_t place) { return *clients.at(place); }

    /// The numbers in the list that a dump shows.
    std::vector<int> listed() {
        EXPECT_EQ(stub->dump(output.in(), dumpArguments({"notifier"})), 0);
        const std::string text = output.only();
        std::vector<int> pids;
        for (size_t at = text.find("pid["); at != std::string::npos; at = text.find("pid[", at + 1))
            pids.push_back(std::stoi(text.substr(at + 4)));
        EXPECT_NE(text.find("notifier size[" + std::to_string(pids.size()) + "]\n"), std::string::npos)
            << text;
        return pids;
    }

    std::vector<int> pidsOf(std::initializer_list<size_t> places) {
        std::vector<int> pids;
        for (const size_t place : places)
            pids.push_back(client(place).pid());
        return pids;
    }

    Line calling(uint32_t code, int pid) const {
        return error("Calling MSG[" + std::to_string(code) + "]: PID=" + std::to_string(pid) +
                     ", UID=" + std::to_string(user));
    }

    const std::string name = freshName();
    std::vector<std::unique_ptr<AudioClient>> clients;
    const DumpOutput output;
};

TEST_F(AudioClients, CallEveryOperationAndGetItsAnswer) {
    start(1);
    service->answer = -77;
    service->setIds({9, 0xffffffff, 3}, 3);
    EXPECT_EQ(client(0).callAll(), "-77 -77 -77 -77 -77 -77 -77 -77 -77 ids 9 4294967295 3");
    EXPECT_EQ(service->told(),
              "startup()|shutdown()|getIds()|setVolume(1, 2)|setSampleRate(3, "
              "4)|start(5)|stop(6)|play(7)|pause(8)|");
    Lines lines;
    for (const uint32_t code : {3u, 4u, 5u, 7u, 6u, 8u, 9u, 10u, 11u})
        lines.push_back(calling(code, client(0).pid()));
    EXPECT_THAT(logged(), are(lines));
}

TEST_F(AudioClients, RegisterUnderTheirOwnProcessesWithTheLinesOfTheirPlaces) {
    start(3);
    const Line recipientElsewhere =
        check("setNotifier", "!mNotifierDeathRecipients.add(pid, mDeathRecipient)");
    const int low = client(0).pid();
    const int middle = client(1).pid();
    const int high = client(2).pid();
    EXPECT_EQ(client(1).setNotifier(), 0);
    EXPECT_THAT(logged(), are({calling(1, middle), registering(middle, user), lookedUp(0, "-#", middle)}));
    EXPECT_EQ(client(2).setNotifier(), 0);
    EXPECT_THAT(logged(), are({calling(1, high), registering(high, user), lookedUp(1, "-#", high),
                               addedElsewhere(), recipientElsewhere}));
    EXPECT_EQ(client(0).setNotifier(), 0);
    EXPECT_THAT(logged(), are({calling(1, low), registering(low, user), lookedUp(2, "-#", low)}));
    EXPECT_EQ(listed(), pidsOf({0, 1, 2}));
}

TEST_F(AudioClients, AreToldBothEventsInTheOrderOfTheirProcesses) {
    startAndRegister(3);
    std::thread event([this] { EXPECT_EQ(broadcaster->attach(AudioClient::kWait), 0); });
    for (size_t place = 0; place < 3; ++place) {
        client(place).awaitWaiting();
        for (size_t later = place + 1; later < 3; ++later)
            EXPECT_EQ(client(later).told(), "");
        client(place).release();
    }
    event.join();
    EXPECT_EQ(broadcaster->detach(8), 0);
    for (const auto& each : clients)
        EXPECT_EQ(each->told(), "attach(" + std::to_string(AudioClient::kWait) + ")|detach(8)|");
}

TEST_F(AudioClients, ThatReturnFiveCauseOneLineEach) {
    startAndRegister(3);
    client(1).answer(5);
    EXPECT_EQ(broadcaster->attach(7), 0);
    EXPECT_THAT(logged(), are({info("attach enter"), failure(), info("attach out")}));
    EXPECT_EQ(client(2).told(), "attach(7)|");
}

TEST_F(AudioClients, GetBadValueForANullNotifierUnlessTheyAreRegistered) {
    start(1);
    EXPECT_EQ(client(0).setNull(), -22);
    EXPECT_EQ(listed(), std::vector<int>{});
    EXPECT_EQ(client(0).setNotifier(), 0);
    EXPECT_EQ(client(0).setNull(), 0);
    EXPECT_EQ(broadcaster->attach(7), 0);
    EXPECT_EQ(client(0).told(), "attach(7)|");
}

TEST_F(AudioClients, KeepTheirFirstNotifierWhenTheyRegisterTwice) {
    startAndRegister(1);
    EXPECT_EQ(client(0).setAnotherNotifier(), 0);
    EXPECT_THAT(logged(), Contains(alreadyAdded(client(0).pid())));
    EXPECT_EQ(broadcaster->attach(7), 0);
    EXPECT_EQ(client(0).told(), "attach(7)|");
}

TEST_F(AudioClients, SucceedToDeregisterWithoutARegistration) {
    start(1);
    const int pid = client(0).pid();
    EXPECT_EQ(client(0).clearNotifier(), 0);
    EXPECT_THAT(logged(), are({calling(2, pid), removing(pid),
                               warning("current pid:" + std::to_string(pid) + " notifier has not be set")}));
}

TEST_F(AudioClients, DeregisterFromAnyPlaceWithTheRegistrysOddLineAlone) {
    startAndRegister(3);
    const int middle = client(1).pid();
    EXPECT_EQ(client(1).clearNotifier(), 0);
    EXPECT_THAT(logged(), are({calling(2, middle), removing(middle), removedElsewhere()}));
    const int low = client(0).pid();
    EXPECT_EQ(client(0).clearNotifier(), 0);
    EXPECT_THAT(logged(), are({calling(2, low), removing(low)}));
    EXPECT_EQ(listed(), pidsOf({2}));
}

TEST_F(AudioClients, AreForgottenWhenTheyAreKilled) {
    startAndRegister(3);
    const int pid = client(1).pid();
    client(1).kill();
    EXPECT_TRUE(log.arrives(info("binderDied out")));
    EXPECT_THAT(logged(),
                are({info("binderDied enter"), died(pid), removedElsewhere(), info("binderDied out")}));
    EXPECT_EQ(listed(), pidsOf({0, 2}));
    EXPECT_EQ(broadcaster->attach(7), 0);
    EXPECT_EQ(client(0).told() + client(2).told(), "attach(7)|attach(7)|");
}

TEST_F(AudioClients, LeaveARecipientBehindThatTakesTheFirstPlace) {
    startAndRegister(1);
    const int dead = client(0).pid();
    client(0).kill();
    EXPECT_TRUE(log.arrives(info("binderDied out")));
    AudioClient next(name);
    if (next.pid() < dead) GTEST_SKIP() << "process numbers have begun anew";
    log.clear();
    EXPECT_EQ(next.setNotifier(), 0);
    EXPECT_THAT(logged(),
                are({calling(1, next.pid()), registering(next.pid(), user), lookedUp(0, "-#", next.pid()),
                     check("setNotifier", "!mNotifierDeathRecipients.add(pid, mDeathRecipient)")}));
    EXPECT_EQ(next.clearNotifier(), 0);
}

TEST_F(AudioClients, DieInTheMiddleOfAnEventWithoutStoppingIt) {
    startAndRegister(3);
    std::thread event([this] { EXPECT_EQ(broadcaster->attach(AudioClient::kWait), 0); });
    client(0).awaitWaiting();
    client(0).release();
    client(1).awaitWaiting();
    const int pid = client(1).pid();
    client(1).process.kill(SIGKILL);
    client(2).awaitWaiting();
    client(2).release();
    event.join();
    client(1).process.wait();
    EXPECT_TRUE(log.arrives(info("binderDied out")));
    EXPECT_THAT(logged(), Not(Contains(failure())));
    EXPECT_EQ(registry->find(pid), nullptr);
    EXPECT_EQ(listed(), pidsOf({0, 2}));
}

TEST_F(AudioClients, ThatDeregisteredDieUnnoticed) {
    startAndRegister(2);
    EXPECT_EQ(client(0).clearNotifier(), 0);
    const int quiet = client(0).pid();
    client(0).kill();
    client(1).kill();
    EXPECT_TRUE(log.arrives(died(client(1).pid())));
    EXPECT_TRUE(log.arrives(info("binderDied out")));
    EXPECT_THAT(logged(), Not(Contains(died(quiet))));
}

TEST_F(AudioClients, RegisterAndDeregisterByTheDozenAtOnce) {
    constexpr size_t kMany = 24;
    start(static_cast<int>(kMany));
    for (const auto& each : clients)
        each->begin("set");
    for (const auto& each : clients)
        EXPECT_EQ(each->ended(), 0);
    std::vector<int> pids;
    for (const auto& each : clients)
        pids.push_back(each->pid());
    EXPECT_EQ(listed(), pids);
    EXPECT_EQ(broadcaster->attach(7), 0);
    for (const auto& each : clients)
        EXPECT_EQ(each->told(), "attach(7)|");
    for (size_t place = 0; place < kMany; place += 2)
        client(place).begin("clear");
    for (size_t place = 1; place < kMany; place += 2)
        client(place).process.kill(SIGKILL);
    for (size_t place = 0; place < kMany; place += 2)
        EXPECT_EQ(client(place).ended(), 0);
    EXPECT_TRUE(eventually([this] { return listing() == "notifier size[0]\n"; }));
}

TEST_F(AudioClients, GiveZeroFromTheirProxiesInTheServiceWhenTheyAreGone) {
    startAndRegister(1);
    const sp<IAppleUSBAudioManagerNotifier> proxy = registry->find(client(0).pid());
    client(0).kill();
    log.clear();
    EXPECT_EQ(proxy->attach(7), 0);
    EXPECT_EQ(proxy->detach(7), 0);
    EXPECT_THAT(log.linesWith(kAudioNotifierTag), testing::IsEmpty());
}

}  // namespace
}  // namespace accessory::test
