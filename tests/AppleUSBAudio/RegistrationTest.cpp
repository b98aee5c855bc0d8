// setNotifier() and clearNotifier() of the stub, for this process: each step and each line.
#include <binder/IPCThreadState.h>
#include <sys/wait.h>

#include "tests/AppleUSBAudio/AudioFixture.h"
#include "tests/AppleiAP2/manager/registry/FailingLists.h"

namespace accessory::test {
namespace {

using android::sp;

class AudioRegistration : public AudioFixture {
  protected:
    const RemoteAudioClient client{};
    MortalRemote& remote = *client.remote;

    void SetUp() override { log.clear(); }

    Line nothingSet() const {
        return warning("current pid:" + std::to_string(own) + " notifier has not be set");
    }
    Line noRecipient() const {
        return error("can't find notifier:" + std::to_string(own) + " death recipients in list,error");
    }
};

TEST_F(AudioRegistration, RegistersAndLinksWithTwoLinesAndNoTrace) {
    EXPECT_EQ(stub->setNotifier(client.notifier), 0);
    EXPECT_THAT(logged(), are({registering(own, user), lookedUp(0, "-#", own)}));
    EXPECT_EQ(registry->find(own), client.notifier);
    ASSERT_EQ(remote.linked.size(), 1u);
    EXPECT_NE(remote.linked[0].promote(), nullptr);
    EXPECT_TRUE(remote.plain);
}

TEST_F(AudioRegistration, KeepsTheFirstNotifierWhenAProcessRegistersTwice) {
    stub->setNotifier(client.notifier);
    log.clear();
    const RemoteAudioClient again{};
    EXPECT_EQ(stub->setNotifier(again.notifier), 0);
    EXPECT_THAT(log.linesWith(kAudioTag),
                are({registering(own, user), lookedUp(1, "0", own), alreadyAdded(own)}));
    EXPECT_EQ(registry->find(own), client.notifier);
    EXPECT_EQ(again.remote->linked.size(), 0u);
    EXPECT_EQ(remote.linked.size(), 1u);
}

TEST_F(AudioRegistration, RefusesANullNotifierAndLeavesTheRegistryAlone) {
    EXPECT_EQ(stub->setNotifier(nullptr), -22);
    EXPECT_THAT(logged(), are({registering(own, user), check("setNotifier", "notifier.get()")}));
    EXPECT_EQ(listing(), "notifier size[0]\n");
}

TEST_F(AudioRegistration, AnswersNullLikeAnySecondNotifier) {
    EXPECT_EQ(stub->setNotifier(client.notifier), 0);
    log.clear();
    EXPECT_EQ(stub->setNotifier(nullptr), 0);
    EXPECT_THAT(logged(), are({registering(own, user), lookedUp(1, "0", own), alreadyAdded(own)}));
    EXPECT_EQ(registry->find(own), client.notifier);
}

TEST_F(AudioRegistration, StaysWithoutDeathWatchWhenTheLinkFails) {
    for (const int status : {-38, -32, 1}) {
        remote.linkStatus = status;
        log.clear();
        EXPECT_EQ(stub->setNotifier(client.notifier), 0);
        EXPECT_THAT(logged(), are({registering(own, user), lookedUp(0, "-#", own),
                                   check("setNotifier", "!binder->linkToDeath(mDeathRecipient)")}));
        EXPECT_EQ(registry->find(own), client.notifier);
        EXPECT_EQ(stub->clearNotifier(), 0);
    }
}

TEST_F(AudioRegistration, LogsARecipientThatCannotBeKeptAndLinksItAnyway) {
    {
        const FailingLists lists(1);
        EXPECT_EQ(stub->setNotifier(client.notifier), 0);
    }
    EXPECT_THAT(logged(), are({registering(own, user), lookedUp(0, "-#", own),
                               check("setNotifier", "!mNotifierDeathRecipients.add(pid, mDeathRecipient)")}));
    EXPECT_EQ(remote.linked.size(), 1u);
}

TEST_F(AudioRegistration, IsTakenBackWithOneLine) {
    stub->setNotifier(client.notifier);
    log.clear();
    EXPECT_EQ(stub->clearNotifier(), 0);
    EXPECT_THAT(log.linesWith(kAudioTag), are({removing(own)}));
    EXPECT_EQ(registry->find(own), nullptr);
    ASSERT_EQ(remote.unlinked.size(), 1u);
    EXPECT_EQ(remote.unlinked[0], remote.linked.at(0));
    EXPECT_EQ(remote.linked[0].promote(), nullptr) << "the recipient is still held";
    EXPECT_TRUE(remote.plain);
}

TEST_F(AudioRegistration, LogsAnUnlinkThatFailsAndGoesOn) {
    for (const int status : {-2, -32, 1}) {
        stub->setNotifier(client.notifier);
        remote.unlinkStatus = status;
        log.clear();
        EXPECT_EQ(stub->clearNotifier(), 0);
        EXPECT_THAT(logged(),
                    are({removing(own), check("clearNotifier", "!binder->unlinkToDeath(mDeathRecipient)")}));
        EXPECT_EQ(registry->find(own), nullptr);
    }
}

TEST_F(AudioRegistration, SucceedsToBeTakenBackWhenThereIsNone) {
    EXPECT_EQ(stub->clearNotifier(), 0);
    EXPECT_THAT(logged(), are({removing(own), nothingSet()}));
    stub->setNotifier(client.notifier);
    EXPECT_EQ(stub->clearNotifier(), 0);
    log.clear();
    EXPECT_EQ(stub->clearNotifier(), 0);
    EXPECT_THAT(logged(), are({removing(own), nothingSet()}));
    EXPECT_EQ(remote.unlinked.size(), 1u);
}

TEST_F(AudioRegistration, SucceedsToBeTakenBackWhenTheRegistryHoldsANullNotifier) {
    registry->addNotifier(own, nullptr);
    log.clear();
    EXPECT_EQ(stub->clearNotifier(), 0);
    EXPECT_THAT(logged(), are({removing(own), nothingSet()}));
    EXPECT_EQ(registry->removeNotifier(own), 0) << "the entry is left in place";
}

TEST_F(AudioRegistration, StaysWhenItsRecipientIsMissing) {
    registry->addNotifier(own, client.notifier);
    log.clear();
    EXPECT_EQ(stub->clearNotifier(), -1);
    EXPECT_THAT(logged(), are({removing(own), noRecipient()}));
    EXPECT_EQ(registry->find(own), client.notifier);
    EXPECT_TRUE(remote.unlinked.empty());
}

TEST_F(AudioRegistration, LogsARegistryEntryThatVanishedMeanwhile) {
    stub->setNotifier(client.notifier);
    remote.onUnlink = [this] { registry->removeNotifier(own); };
    log.clear();
    EXPECT_EQ(stub->clearNotifier(), 0);
    EXPECT_THAT(logged(), are({removing(own), alreadyRemoved(own),
                               check("clearNotifier", "!mNotifier->removeNotifier(pid)")}));
}

TEST_F(AudioRegistration, SaysNothingOfARecipientThatCannotBeRemoved) {
    stub->setNotifier(client.notifier);
    log.clear();
    {
        const FailingLists lists(FailingLists::kNever, 0);
        EXPECT_EQ(stub->clearNotifier(), 0);
    }
    EXPECT_THAT(logged(), are({removing(own), removedElsewhere()})) << "the registry's own line alone";
}

TEST_F(AudioRegistration, ComesAndGoesAgainAndAgain) {
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(stub->setNotifier(client.notifier), 0);
        EXPECT_EQ(broadcaster->attach(7), 0);
        EXPECT_EQ(stub->clearNotifier(), 0);
        EXPECT_EQ(broadcaster->attach(8), 0);
    }
    EXPECT_EQ(remote.requests.size(), 3u);
    EXPECT_EQ(remote.unlinked.size(), 3u);
}

/// Ends the process with 0 when both operations refuse a thread without a state and do nothing.
[[noreturn]] void registerWithoutAThreadState() {
    const sp<BnAppleUSBAudioManager> stub = keptStub(new AudioService);
    const RemoteAudioClient client{};
    android::IPCThreadState::shutdown();
    LogCatcher log;
    const Line refusal = error("IPCThreadState intance is NULL");
    if (stub->setNotifier(client.notifier) != -1) _exit(1);
    if (log.lines().size() != 1 || !refusal.Matches(log.lines()[0])) _exit(2);
    if (!client.remote->linked.empty() || client.notifier->getStrongCount() != 1) _exit(3);
    log.clear();
    if (stub->clearNotifier() != -1) _exit(4);
    if (log.lines().size() != 1 || !refusal.Matches(log.lines()[0])) _exit(5);
    _exit(0);
}

TEST(AudioRegistrationDeathTest, FailsOnAThreadWithoutAState) {
    EXPECT_EXIT(registerWithoutAThreadState(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace accessory::test
