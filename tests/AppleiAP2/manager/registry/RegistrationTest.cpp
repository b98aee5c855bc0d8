// setNotifier() and clearNotifier() of the stub, for this process: each step and each line.
#include "tests/AppleiAP2/manager/registry/FailingLists.h"
#include "tests/AppleiAP2/manager/registry/RegistryFixture.h"

namespace accessory::test {
namespace {

constexpr char kRecipient[] = "AppleiAP2NotifierDeathRecipient";

class Registration : public RegistryFixture {
  protected:
    Registration() { log.clear(); }

    /// What was logged, without the traces of a recipient's end, which comes when the last reference goes.
    std::vector<LogLine> loggedWithoutRecipientsEnd() {
        std::vector<LogLine> lines;
        for (const LogLine& line : logged()) {
            if (line.text.find("[~AppleiAP2NotifierDeathRecipient]") == std::string::npos)
                lines.push_back(line);
        }
        return lines;
    }

    Line removing() const { return error("remove notifier " + std::to_string(own)); }

    const RemoteClient client{};
    MortalRemote& remote = *client.remote;
};

TEST_F(Registration, RegistersLinksAndLogsEachStep) {
    EXPECT_EQ(stub->setNotifier(client.notifier), 0);
    EXPECT_THAT(logged(), are({in(kManagerUnit, "setNotifier"), lookedUp(0, "-#", own), added(1, own),
                               in(kManagerUnit, kRecipient), out(kManagerUnit, kRecipient),
                               out(kManagerUnit, "setNotifier")}));
    EXPECT_EQ(registry->find(own), client.notifier);
    EXPECT_EQ(remote.linked.size(), 1u);
    EXPECT_TRUE(remote.plain);
}

TEST_F(Registration, KeepsTheRecipientAliveForTheRegistration) {
    stub->setNotifier(client.notifier);
    ASSERT_EQ(remote.linked.size(), 1u);
    EXPECT_NE(remote.linked[0].promote(), nullptr);
    stub->clearNotifier();
    EXPECT_EQ(remote.linked[0].promote(), nullptr);
}

TEST_F(Registration, KeepsTheFirstNotifierWhenAProcessRegistersTwice) {
    stub->setNotifier(client.notifier);
    log.clear();
    const RemoteClient again{};
    EXPECT_EQ(stub->setNotifier(again.notifier), 0);
    EXPECT_THAT(logged(), are({in(kManagerUnit, "setNotifier"), lookedUp(1, "0", own), alreadyAdded(own),
                               out(kManagerUnit, "setNotifier")}));
    EXPECT_EQ(registry->find(own), client.notifier);
    EXPECT_EQ(again.remote->linked.size(), 0u);
    EXPECT_EQ(remote.linked.size(), 1u);
}

TEST_F(Registration, RefusesANullNotifierAndLeavesTheRegistryAlone) {
    EXPECT_EQ(stub->setNotifier(nullptr), -22);
    EXPECT_THAT(logged(), are({in(kManagerUnit, "setNotifier"), check("setNotifier", "notifier.get()"),
                               out(kManagerUnit, "setNotifier")}));
    EXPECT_EQ(listing(), "notifier size[0]\n");
}

TEST_F(Registration, AnswersNullLikeAnySecondNotifier) {
    EXPECT_EQ(stub->setNotifier(client.notifier), 0);
    log.clear();
    EXPECT_EQ(stub->setNotifier(nullptr), 0);
    EXPECT_THAT(logged(), are({in(kManagerUnit, "setNotifier"), lookedUp(1, "0", own), alreadyAdded(own),
                               out(kManagerUnit, "setNotifier")}));
    EXPECT_EQ(registry->find(own), client.notifier);
}

TEST_F(Registration, StaysWithoutDeathWatchWhenTheLinkFails) {
    for (const int status : {-38, -32, 1}) {
        remote.linkStatus = status;
        EXPECT_EQ(stub->setNotifier(client.notifier), 0);
        EXPECT_THAT(logged(), are({in(kManagerUnit, "setNotifier"), lookedUp(0, "-#", own), added(1, own),
                                   in(kManagerUnit, kRecipient), out(kManagerUnit, kRecipient),
                                   statusCheck("setNotifier"), out(kManagerUnit, "setNotifier")}));
        EXPECT_EQ(registry->find(own), client.notifier);
        EXPECT_EQ(stub->clearNotifier(), 0);
        log.clear();
    }
}

TEST_F(Registration, CannotLinkToAnObjectOfThisProcess) {
    const LocalClient local{};
    EXPECT_EQ(stub->setNotifier(local.notifier), 0);
    EXPECT_THAT(logged(), testing::Contains(statusCheck("setNotifier")));
    EXPECT_EQ(registry->find(own), local.notifier);
    EXPECT_EQ(stub->clearNotifier(), 0);
    EXPECT_THAT(logged(), testing::Not(testing::Contains(check("clearNotifier", kUnlinked))));
}

TEST_F(Registration, LogsARecipientThatCannotBeKeptAndLinksItAnyway) {
    {
        const FailingLists lists(1);
        EXPECT_EQ(stub->setNotifier(client.notifier), 0);
    }
    EXPECT_THAT(logged(), testing::Contains(error("mNotifierDeathRecipients.add error")).Times(1));
    EXPECT_EQ(remote.linked.size(), 1u);
    EXPECT_EQ(registry->find(own), client.notifier);
}

TEST_F(Registration, IsTakenBackWithTheLineOfAFailedUnlinkWhenTheUnlinkSucceeds) {
    stub->setNotifier(client.notifier);
    log.clear();
    EXPECT_EQ(stub->clearNotifier(), 0);
    EXPECT_THAT(loggedWithoutRecipientsEnd(),
                are({removing(), check("clearNotifier", kUnlinked), removed(0, 0, own)}));
    EXPECT_EQ(registry->find(own), nullptr);
    ASSERT_EQ(remote.unlinked.size(), 1u);
    EXPECT_EQ(remote.unlinked[0], remote.linked.at(0));
    EXPECT_TRUE(remote.plain);
}

TEST_F(Registration, IsTakenBackSilentlyWhenTheUnlinkFails) {
    for (const int status : {-2, -32, 1}) {
        stub->setNotifier(client.notifier);
        remote.unlinkStatus = status;
        log.clear();
        EXPECT_EQ(stub->clearNotifier(), 0);
        EXPECT_THAT(loggedWithoutRecipientsEnd(), are({removing(), removed(0, 0, own)})) << status;
        EXPECT_EQ(registry->find(own), nullptr);
    }
}

TEST_F(Registration, CannotBeTakenBackWhenThereIsNone) {
    EXPECT_EQ(stub->clearNotifier(), -1);
    EXPECT_THAT(logged(), are({removing(), error("current pid notifier is NULL")}));
}

TEST_F(Registration, CannotBeTakenBackTwice) {
    stub->setNotifier(client.notifier);
    EXPECT_EQ(stub->clearNotifier(), 0);
    log.clear();
    EXPECT_EQ(stub->clearNotifier(), -1);
    EXPECT_THAT(logged(), are({removing(), error("current pid notifier is NULL")}));
    EXPECT_EQ(remote.unlinked.size(), 1u);
}

TEST_F(Registration, CannotBeTakenBackWhenTheRegistryHoldsANullNotifier) {
    registry->addNotifier(own, nullptr);
    log.clear();
    EXPECT_EQ(stub->clearNotifier(), -1);
    EXPECT_THAT(logged(), are({removing(), error("current pid notifier is NULL")}));
    EXPECT_EQ(registry->removeNotifier(own), 0) << "the entry is left in place";
}

TEST_F(Registration, StaysWhenItsRecipientIsMissing) {
    registry->addNotifier(own, client.notifier);
    log.clear();
    EXPECT_EQ(stub->clearNotifier(), -1);
    EXPECT_THAT(logged(), are({removing(), error("can't find notifier death recipients in list,error")}));
    EXPECT_EQ(registry->find(own), client.notifier);
    EXPECT_TRUE(remote.unlinked.empty());
}

TEST_F(Registration, LogsARegistryEntryThatVanishedMeanwhile) {
    stub->setNotifier(client.notifier);
    remote.onUnlink = [this] { registry->removeNotifier(own); };
    log.clear();
    EXPECT_EQ(stub->clearNotifier(), 0);
    EXPECT_THAT(loggedWithoutRecipientsEnd(),
                are({removing(), removed(0, 0, own), check("clearNotifier", kUnlinked), alreadyRemoved(own),
                     statusCheck("clearNotifier")}));
}

TEST_F(Registration, LogsARecipientThatCannotBeRemovedAndGoesOn) {
    stub->setNotifier(client.notifier);
    log.clear();
    {
        const FailingLists lists(FailingLists::kNever, 0);
        EXPECT_EQ(stub->clearNotifier(), 0);
    }
    EXPECT_THAT(loggedWithoutRecipientsEnd(),
                are({removing(), check("clearNotifier", kUnlinked),
                     check("clearNotifier", "! mNotifierDeathRecipients.removeItem(pid)"),
                     error("didn't find adapt notifier,ret:-75"), removed(1, 0, own)}));
}

TEST_F(Registration, TracesTheEndOfARecipient) {
    stub->setNotifier(client.notifier);
    log.clear();
    stub->clearNotifier();
    EXPECT_THAT(logged(),
                testing::IsSupersetOf(Lines{in(kManagerUnit, "~AppleiAP2NotifierDeathRecipient"),
                                            out(kManagerUnit, "~AppleiAP2NotifierDeathRecipient")}));
}

TEST_F(Registration, ComesAndGoesAgainAndAgain) {
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(stub->setNotifier(client.notifier), 0);
        EXPECT_EQ(broadcaster->attach(7), 0);
        EXPECT_EQ(stub->clearNotifier(), 0);
        EXPECT_EQ(broadcaster->attach(8), 0);
    }
    EXPECT_EQ(remote.requests.size(), 3u);
    EXPECT_EQ(remote.linked.size(), 3u);
    EXPECT_EQ(remote.unlinked.size(), 3u);
}

}  // namespace
}  // namespace accessory::test
