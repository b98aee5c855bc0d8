// The death recipient: its lines, what it removes, and the entry of its own that it leaves behind.
#include "tests/AppleUSBAudio/AudioFixture.h"

namespace accessory::test {
namespace {

using android::sp;

class AudioDeath : public AudioFixture {
  protected:
    void SetUp() override { log.clear(); }

    const RemoteAudioClient client{};
    const Line enter = info("binderDied enter");
    const Line out = info("binderDied out");
    const Line notRemoved = check("binderDied", "!mManger->mNotifier->removeNotifier(mPid)");
};

TEST_F(AudioDeath, RemovesTheClientFromTheRegistryAndLogsThreeLines) {
    stub->setNotifier(client.notifier);
    log.clear();
    client.remote->die();
    EXPECT_THAT(log.linesWith(kAudioTag), are({enter, died(own), out}));
    EXPECT_EQ(registry->find(own), nullptr);
    EXPECT_EQ(listing(), "notifier size[0]\n");
}

TEST_F(AudioDeath, LeavesTheRecipientBehind) {
    stub->setNotifier(client.notifier);
    client.remote->die();
    EXPECT_NE(client.remote->linked.at(0).promote(), nullptr);
}

TEST_F(AudioDeath, LeavesARecipientThatARegistryEntryOfTheSameProcessFinds) {
    stub->setNotifier(client.notifier);
    client.remote->die();
    const RemoteAudioClient next{};
    registry->addNotifier(own, next.notifier);
    log.clear();
    EXPECT_EQ(stub->clearNotifier(), 0);
    EXPECT_THAT(logged(), are({removing(own)}));
    EXPECT_EQ(next.remote->unlinked.at(0), client.remote->linked.at(0));
}

TEST_F(AudioDeath, LetsTheNextRegistrationOfTheProcessReplaceTheRecipient) {
    stub->setNotifier(client.notifier);
    client.remote->die();
    const RemoteAudioClient next{};
    log.clear();
    EXPECT_EQ(stub->setNotifier(next.notifier), 0);
    EXPECT_THAT(logged(), are({registering(own, user), lookedUp(0, "-#", own)}));
    EXPECT_EQ(client.remote->linked.at(0).promote(), nullptr) << "the old recipient is still held";
    EXPECT_NE(next.remote->linked.at(0).promote(), nullptr);
    EXPECT_EQ(stub->clearNotifier(), 0);
    EXPECT_EQ(next.remote->unlinked.at(0), next.remote->linked.at(0));
    EXPECT_EQ(registry->find(own), nullptr);
}

TEST_F(AudioDeath, MakesClearingFindNothing) {
    stub->setNotifier(client.notifier);
    client.remote->die();
    log.clear();
    EXPECT_EQ(stub->clearNotifier(), 0);
    EXPECT_THAT(logged(), are({removing(own),
                               warning("current pid:" + std::to_string(own) + " notifier has not be set")}));
}

TEST_F(AudioDeath, OfAProcessThatIsNotRegisteredIsLogged) {
    const sp<AppleUSBAudioNotifierDeathRecipient> recipient =
        new AppleUSBAudioNotifierDeathRecipient(stub, 4711);
    recipient->binderDied(nullptr);
    EXPECT_THAT(logged(), are({enter, died(4711), alreadyRemoved(4711), notRemoved, out}));
}

TEST_F(AudioDeath, ToldTwiceFindsNothingTheSecondTime) {
    stub->setNotifier(client.notifier);
    client.remote->die();
    log.clear();
    client.remote->die();
    EXPECT_THAT(logged(), are({enter, died(own), alreadyRemoved(own), notRemoved, out}));
}

TEST_F(AudioDeath, DoesNotLookAtWhoDied) {
    const RemoteAudioClient stranger{};
    stub->setNotifier(client.notifier);
    client.remote->linked.at(0).promote()->binderDied(stranger.remote);
    EXPECT_EQ(registry->find(own), nullptr);
}

TEST_F(AudioDeath, OfTheSecondOfTwoLogsTheRegistrysOddLine) {
    registry->addNotifier(1, client.notifier);
    stub->setNotifier(client.notifier);
    log.clear();
    client.remote->die();
    EXPECT_THAT(logged(), are({enter, died(own), removedElsewhere(), out}));
}

TEST_F(AudioDeath, RecipientHoldsTheStubAndIsNotTraced) {
    const int32_t before = stub->getStrongCount();
    {
        const sp<AppleUSBAudioNotifierDeathRecipient> recipient =
            new AppleUSBAudioNotifierDeathRecipient(stub, 1);
        EXPECT_EQ(stub->getStrongCount(), before + 1);
    }
    EXPECT_EQ(stub->getStrongCount(), before);
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

}  // namespace
}  // namespace accessory::test
