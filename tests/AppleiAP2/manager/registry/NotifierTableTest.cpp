// The registry itself: adding, removing, finding, each with its lines, and what fails only without memory.
#include <sys/wait.h>

#include <csignal>
#include <cstdlib>

#include "tests/AppleiAP2/manager/registry/FailingLists.h"
#include "tests/AppleiAP2/manager/registry/RegistryFixture.h"

namespace accessory::test {
namespace {

using android::sp;

class NotifierTable : public RegistryFixture {
  protected:
    void SetUp() override { log.clear(); }

    const LocalClient first{};
    const LocalClient second{};
    const LocalClient third{};
};

TEST_F(NotifierTable, AddsANotifierAndLogsBothStates) {
    EXPECT_EQ(registry->addNotifier(200, first.notifier), 0);
    EXPECT_THAT(log.lines(), are({lookedUp(0, "-#", 200), added(1, 200)}));
    EXPECT_EQ(registry->find(200), first.notifier);
}

TEST_F(NotifierTable, AddsNotifiersBeforeBetweenAndBehindOthersWithoutAComplaint) {
    EXPECT_EQ(registry->addNotifier(200, first.notifier), 0);
    EXPECT_EQ(registry->addNotifier(300, second.notifier), 0);
    EXPECT_EQ(registry->addNotifier(100, third.notifier), 0);
    EXPECT_EQ(registry->addNotifier(250, third.notifier), 0);
    EXPECT_THAT(log.lines(),
                are({lookedUp(0, "-#", 200), added(1, 200), lookedUp(1, "-#", 300), added(2, 300),
                     lookedUp(2, "-#", 100), added(3, 100), lookedUp(3, "-#", 250), added(4, 250)}));
}

TEST_F(NotifierTable, KeepsTheFirstNotifierOfAProcess) {
    registry->addNotifier(100, third.notifier);
    registry->addNotifier(200, first.notifier);
    log.clear();
    EXPECT_EQ(registry->addNotifier(200, second.notifier), -1);
    EXPECT_THAT(log.lines(), are({lookedUp(2, "1", 200), alreadyAdded(200)}));
    EXPECT_EQ(registry->find(200), first.notifier);
    EXPECT_EQ(second.notifier->getStrongCount(), 1) << "the refused notifier is held";
}

TEST_F(NotifierTable, RefusesTheSameNotifierOfTheSameProcessToo) {
    registry->addNotifier(200, first.notifier);
    EXPECT_EQ(registry->addNotifier(200, first.notifier), -1);
    EXPECT_EQ(first.notifier->getStrongCount(), 2);
}

TEST_F(NotifierTable, HoldsANotifierUntilItIsRemoved) {
    registry->addNotifier(200, first.notifier);
    EXPECT_EQ(first.notifier->getStrongCount(), 2);
    registry->removeNotifier(200);
    EXPECT_EQ(first.notifier->getStrongCount(), 1);
}

TEST_F(NotifierTable, RemovesANotifierFromAnyPlaceAndLogsTheState) {
    for (const int pid : {100, 200, 300})
        registry->addNotifier(pid, first.notifier);
    log.clear();
    EXPECT_EQ(registry->removeNotifier(200), 0);
    EXPECT_EQ(registry->removeNotifier(300), 0);
    EXPECT_EQ(registry->removeNotifier(100), 0);
    EXPECT_THAT(log.lines(), are({removed(2, 1, 200), removed(1, 1, 300), removed(0, 0, 100)}));
    EXPECT_EQ(registry->find(200), nullptr);
}

TEST_F(NotifierTable, HasNothingToRemoveForAProcessThatIsNotThere) {
    registry->addNotifier(200, first.notifier);
    log.clear();
    EXPECT_EQ(registry->removeNotifier(201), -1);
    EXPECT_THAT(log.lines(), are({alreadyRemoved(201)}));
    EXPECT_EQ(registry->find(200), first.notifier);
}

TEST_F(NotifierTable, TakesAProcessAgainOnceItWasRemoved) {
    registry->addNotifier(200, first.notifier);
    registry->removeNotifier(200);
    EXPECT_EQ(registry->removeNotifier(200), -1);
    log.clear();
    EXPECT_EQ(registry->addNotifier(200, second.notifier), 0);
    EXPECT_THAT(log.lines(), are({lookedUp(0, "-#", 200), added(1, 200)}));
    EXPECT_EQ(registry->find(200), second.notifier);
}

TEST_F(NotifierTable, FindsNothingForAProcessThatIsNotThere) {
    EXPECT_EQ(registry->find(200), nullptr);
    registry->addNotifier(200, nullptr);
    EXPECT_EQ(registry->find(200), nullptr);
    EXPECT_EQ(registry->find(-200), nullptr);
}

TEST_F(NotifierTable, OrdersSignedNumbers) {
    const std::vector<int> unordered = {5, -3, INT32_MAX, INT32_MIN, 0};
    for (const int pid : unordered)
        EXPECT_EQ(registry->addNotifier(pid, first.notifier), 0);
    std::string expected = "notifier size[5]\n";
    for (const int pid : {INT32_MIN, -3, 0, 5, INT32_MAX})
        expected += entryOf(first.notifier, pid);
    EXPECT_EQ(listing(), expected);
}

TEST_F(NotifierTable, LogsARemovalThatFailsAndReturnsZero) {
    registry->addNotifier(200, first.notifier);
    log.clear();
    {
        const FailingLists lists(FailingLists::kNever, 0);
        EXPECT_EQ(registry->removeNotifier(200), 0);
    }
    EXPECT_THAT(log.lines(), are({error("didn't find adapt notifier,ret:-75"), removed(1, 0, 200)}));
}

TEST(NotifierTableDeathTest, EndsTheProcessWhenAnInsertionFails) {
    const auto add = [] {
        setenv("ACCESSORY_TEST_LOG", "1", 1);
        const sp<AppleiAP2ManagerNotifier> registry =
            new AppleiAP2ManagerNotifier(new BnAppleiAP2Manager(new QuietService));
        const LocalClient client{};
        const FailingLists lists(0);
        registry->addNotifier(200, client.notifier);
    };
    EXPECT_EXIT(
        add(), testing::KilledBySignal(SIGABRT),
        "E/IAppleiAP2Manager: mNotifier add failed(.|\n)*"
        "AppleiAP2/IAppleiAP2Manager\\.cpp:[0-9]+: .*accessory::AppleiAP2ManagerNotifier::addNotifier\\("
        "int, .*\\): Assertion `0' failed\\.");
}

}  // namespace
}  // namespace accessory::test
