// The death recipient: each line, both tables emptied, and deaths of clients that are not registered.
#include "tests/AppleiAP2/manager/registry/FailingLists.h"
#include "tests/AppleiAP2/manager/registry/RegistryFixture.h"

namespace accessory::test {
namespace {

using android::sp;

class Death : public RegistryFixture {
  protected:
    Death() { log.clear(); }

    std::vector<LogLine> linesOfDeath(int pid) {
        const sp<AppleiAP2NotifierDeathRecipient> recipient = new AppleiAP2NotifierDeathRecipient(stub, pid);
        log.clear();
        recipient->binderDied(nullptr);
        return logged();
    }

    const RemoteClient client{};
};

const std::string kFunction = "binderDied";

TEST_F(Death, OfARegisteredClientRemovesItFromTheRegistry) {
    stub->setNotifier(client.notifier);
    EXPECT_THAT(linesOfDeath(own),
                testing::AllOf(testing::SizeIs(testing::Ge(4u)), testing::Contains(died(own)),
                               testing::Contains(removed(0, 0, own))));
    EXPECT_EQ(registry->find(own), nullptr);
    EXPECT_EQ(listing(), "notifier size[0]\n");
}

TEST_F(Death, LogsItsStepsInOrder) {
    stub->setNotifier(client.notifier);
    const sp<android::IBinder::DeathRecipient> linked = client.remote->linked.at(0).promote();
    ASSERT_NE(linked, nullptr);
    log.clear();
    linked->binderDied(client.remote);
    EXPECT_THAT(logged(), are({in(kManagerUnit, kFunction), died(own), removed(0, 0, own),
                               out(kManagerUnit, kFunction)}));
}

TEST_F(Death, DropsTheRecipientOnceTheRuntimeLetsGoOfIt) {
    stub->setNotifier(client.notifier);
    client.remote->die();
    EXPECT_EQ(client.remote->linked.at(0).promote(), nullptr);
}

TEST_F(Death, LetsTheProcessRegisterAndDeregisterAfresh) {
    stub->setNotifier(client.notifier);
    client.remote->die();
    const RemoteClient next{};
    EXPECT_EQ(stub->clearNotifier(), -1);
    EXPECT_EQ(stub->setNotifier(next.notifier), 0);
    EXPECT_EQ(registry->find(own), next.notifier);
    EXPECT_EQ(stub->clearNotifier(), 0);
    EXPECT_EQ(next.remote->unlinked.size(), 1u);
}

TEST_F(Death, LeavesNoRecipientBehindForARegistryEntryOfTheSameProcess) {
    stub->setNotifier(client.notifier);
    client.remote->die();
    registry->addNotifier(own, client.notifier);
    log.clear();
    EXPECT_EQ(stub->clearNotifier(), -1);
    EXPECT_THAT(logged(), testing::Contains(error("can't find notifier death recipients in list,error")));
}

TEST_F(Death, OfAProcessThatIsNotRegisteredIsLoggedAtEveryStep) {
    EXPECT_THAT(linesOfDeath(4711),
                are({in(kManagerUnit, kFunction), died(4711), alreadyRemoved(4711), statusCheck(kFunction),
                     error("mNotifierDeathRecipients.removeItem 4711,error"), out(kManagerUnit, kFunction)}));
}

TEST_F(Death, OfAnotherProcessLeavesARegistrationAlone) {
    stub->setNotifier(client.notifier);
    linesOfDeath(own + 1);
    EXPECT_EQ(registry->find(own), client.notifier);
    EXPECT_NE(client.remote->linked.at(0).promote(), nullptr);
}

TEST_F(Death, OfAProcessWithoutARecipientIsLogged) {
    registry->addNotifier(4711, client.notifier);
    EXPECT_THAT(linesOfDeath(4711),
                are({in(kManagerUnit, kFunction), died(4711), removed(0, 0, 4711),
                     error("mNotifierDeathRecipients.removeItem 4711,error"), out(kManagerUnit, kFunction)}));
}

TEST_F(Death, ToldTwiceFindsNothingTheSecondTime) {
    stub->setNotifier(client.notifier);
    const sp<android::IBinder::DeathRecipient> linked = client.remote->linked.at(0).promote();
    linked->binderDied(nullptr);
    log.clear();
    linked->binderDied(nullptr);
    EXPECT_THAT(logged(),
                are({in(kManagerUnit, kFunction), died(own), alreadyRemoved(own), statusCheck(kFunction),
                     error("mNotifierDeathRecipients.removeItem " + std::to_string(own) + ",error"),
                     out(kManagerUnit, kFunction)}));
}

TEST_F(Death, DoesNotLookAtWhoDied) {
    const RemoteClient stranger{};
    stub->setNotifier(client.notifier);
    client.remote->linked.at(0).promote()->binderDied(stranger.remote);
    EXPECT_EQ(registry->find(own), nullptr);
}

TEST_F(Death, GoesOnWhenARemovalFails) {
    stub->setNotifier(client.notifier);
    const sp<android::IBinder::DeathRecipient> linked = client.remote->linked.at(0).promote();
    log.clear();
    {
        const FailingLists lists(FailingLists::kNever, 0);
        linked->binderDied(nullptr);
    }
    EXPECT_THAT(logged(), are({in(kManagerUnit, kFunction), died(own),
                               error("didn't find adapt notifier,ret:-75"), removed(1, 0, own),
                               error("mNotifierDeathRecipients.removeItem " + std::to_string(own) + ",error"),
                               out(kManagerUnit, kFunction)}));
}

TEST_F(Death, RecipientHoldsTheStubAndTracesItsOwnLife) {
    const int32_t before = stub->getStrongCount();
    log.clear();
    {
        const sp<AppleiAP2NotifierDeathRecipient> recipient = new AppleiAP2NotifierDeathRecipient(stub, 1);
        EXPECT_EQ(stub->getStrongCount(), before + 1);
    }
    EXPECT_EQ(stub->getStrongCount(), before);
    const std::string name = "AppleiAP2NotifierDeathRecipient";
    EXPECT_THAT(logged(), are({in(kManagerUnit, name), out(kManagerUnit, name), in(kManagerUnit, "~" + name),
                               out(kManagerUnit, "~" + name)}));
}

}  // namespace
}  // namespace accessory::test
