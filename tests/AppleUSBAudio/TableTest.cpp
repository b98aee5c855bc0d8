// The registry itself: adding, removing, finding, each with its lines, odd ones included.
#include "tests/AppleUSBAudio/AudioFixture.h"
#include "tests/AppleiAP2/manager/registry/FailingLists.h"

namespace accessory::test {
namespace {

class AudioTable : public AudioFixture {
  protected:
    const LocalAudioClient first{};
    const LocalAudioClient second{};

    void SetUp() override { log.clear(); }
};

TEST_F(AudioTable, AddsTheFirstNotifierWithOneLine) {
    EXPECT_EQ(registry->addNotifier(200, first.notifier), 0);
    EXPECT_THAT(log.lines(), are({lookedUp(0, "-#", 200)}));
    EXPECT_EQ(registry->find(200), first.notifier);
}

TEST_F(AudioTable, LogsAFailureForEveryNotifierThatIsNotAddedInFront) {
    EXPECT_EQ(registry->addNotifier(200, first.notifier), 0);
    EXPECT_EQ(registry->addNotifier(300, first.notifier), 0);
    EXPECT_EQ(registry->addNotifier(100, first.notifier), 0);
    EXPECT_EQ(registry->addNotifier(250, second.notifier), 0);
    EXPECT_THAT(log.lines(), are({lookedUp(0, "-#", 200), lookedUp(1, "-#", 300), addedElsewhere(),
                                  lookedUp(2, "-#", 100), lookedUp(3, "-#", 250), addedElsewhere()}));
    EXPECT_EQ(registry->find(250), second.notifier);
    EXPECT_EQ(listing(), "notifier size[4]\n" + entryOf(first.notifier, 100) + entryOf(first.notifier, 200) +
                             entryOf(second.notifier, 250) + entryOf(first.notifier, 300));
}

TEST_F(AudioTable, KeepsTheFirstNotifierOfAProcess) {
    registry->addNotifier(100, first.notifier);
    registry->addNotifier(200, first.notifier);
    log.clear();
    EXPECT_EQ(registry->addNotifier(200, second.notifier), -1);
    EXPECT_THAT(log.lines(), are({lookedUp(2, "1", 200), alreadyAdded(200)}));
    EXPECT_EQ(registry->find(200), first.notifier);
    EXPECT_EQ(second.notifier->getStrongCount(), 1) << "the refused notifier is held";
}

TEST_F(AudioTable, LogsAnInsertionThatFailsAndReturnsZero) {
    {
        const FailingLists lists(0);
        EXPECT_EQ(registry->addNotifier(200, first.notifier), 0);
    }
    EXPECT_THAT(log.lines(), are({lookedUp(0, "-#", 200), addedElsewhere()}));
    EXPECT_EQ(registry->find(200), nullptr);
}

TEST_F(AudioTable, RemovesFromTheFrontSilently) {
    registry->addNotifier(100, first.notifier);
    registry->addNotifier(200, first.notifier);
    log.clear();
    EXPECT_EQ(registry->removeNotifier(100), 0);
    EXPECT_EQ(registry->removeNotifier(200), 0);
    EXPECT_THAT(log.lines(), testing::IsEmpty());
    EXPECT_EQ(first.notifier->getStrongCount(), 1);
}

TEST_F(AudioTable, LogsAFailureForEveryRemovalThatIsNotFromTheFront) {
    for (const int pid : {100, 200, 300})
        registry->addNotifier(pid, first.notifier);
    log.clear();
    EXPECT_EQ(registry->removeNotifier(200), 0);
    EXPECT_EQ(registry->removeNotifier(300), 0);
    EXPECT_THAT(log.lines(), are({removedElsewhere(), removedElsewhere()}));
    EXPECT_EQ(listing(), "notifier size[1]\n" + entryOf(first.notifier, 100));
}

TEST_F(AudioTable, LogsARemovalThatFailsAndReturnsZero) {
    registry->addNotifier(200, first.notifier);
    log.clear();
    {
        const FailingLists lists(FailingLists::kNever, 0);
        EXPECT_EQ(registry->removeNotifier(200), 0);
    }
    EXPECT_THAT(log.lines(), are({removedElsewhere()}));
}

TEST_F(AudioTable, HasNothingToRemoveForAProcessThatIsNotThere) {
    registry->addNotifier(200, first.notifier);
    log.clear();
    EXPECT_EQ(registry->removeNotifier(201), -1);
    EXPECT_THAT(log.lines(), are({alreadyRemoved(201)}));
    EXPECT_EQ(registry->find(200), first.notifier);
}

TEST_F(AudioTable, FindsNothingForAProcessThatIsNotThere) {
    EXPECT_EQ(registry->find(200), nullptr);
    registry->addNotifier(200, nullptr);
    EXPECT_EQ(registry->find(200), nullptr);
}

TEST_F(AudioTable, OrdersSignedNumbers) {
    for (const int pid : {5, -3, INT32_MAX, INT32_MIN, 0})
        EXPECT_EQ(registry->addNotifier(pid, first.notifier), 0);
    std::string expected = "notifier size[5]\n";
    for (const int pid : {INT32_MIN, -3, 0, 5, INT32_MAX})
        expected += entryOf(first.notifier, pid);
    EXPECT_EQ(listing(), expected);
}

}  // namespace
}  // namespace accessory::test
