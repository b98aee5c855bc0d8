// The broadcaster within one process: every event to every client, the order, the lines, and the results.
#include <set>

#include "tests/AppleiAP2/manager/registry/Announcer.h"
#include "tests/AppleiAP2/manager/registry/Messages.h"
#include "tests/AppleiAP2/manager/registry/RegistryFixture.h"

namespace accessory::test {
namespace {

using android::sp;

using Told = std::vector<std::string>;

class Broadcast : public RegistryFixture {
  protected:
    /// Registered out of order, so that only their numbers can order them.
    void registerThree() {
        registry->addNotifier(300, third.notifier);
        registry->addNotifier(100, first.notifier);
        registry->addNotifier(200, second.notifier);
        log.clear();
    }

    void answer(int ofFirst, int ofSecond, int ofThird) {
        first.told->answer = ofFirst;
        second.told->answer = ofSecond;
        third.told->answer = ofThird;
    }

    int raised(const Event& event) { return raise(event, broadcaster); }

    const LocalClient first{};
    const LocalClient second{};
    const LocalClient third{};
};

TEST_F(Broadcast, HasOneMessageForEachOfItsOperations) {
    std::set<std::string> examples;
    std::set<std::string> described;
    for (const Event& event : allEvents())
        examples.insert(event.operation);
    for (const Message& message : messages())
        described.insert(message.operation);
    EXPECT_EQ(described.size(), 45u);
    EXPECT_EQ(examples, described);
}

TEST_F(Broadcast, TellsEveryClientEveryEventWithAllItsArguments) {
    registerThree();
    for (const Event& event : allEvents()) {
        EXPECT_EQ(raised(event), 0) << testing::PrintToString(event);
        EXPECT_EQ(first.told->takeTold(), Told{event.given});
        EXPECT_EQ(second.told->takeTold(), Told{event.given});
        EXPECT_EQ(third.told->takeTold(), Told{event.given});
    }
}

TEST_F(Broadcast, TellsTheClientsInTheOrderOfTheirProcesses) {
    registerThree();
    std::string order;
    first.told->meanwhile = [&] { order += '1'; };
    second.told->meanwhile = [&] { order += '2'; };
    third.told->meanwhile = [&] { order += '3'; };
    for (const Event& event : allEvents()) {
        order.clear();
        raised(event);
        EXPECT_EQ(order, "123") << testing::PrintToString(event);
    }
}

TEST_F(Broadcast, LogsTheRoundAndEachFailureWithItsIndex) {
    registerThree();
    answer(5, -22, 1);
    for (const Event& event : allEvents()) {
        const Message& message = messageOf(event.operation);
        EXPECT_EQ(raised(event), message.returnsLast ? 1 : 0) << event.operation;
        EXPECT_THAT(
            logged(),
            are(roundOf(message, 3, {failed(message, 0, 5), failed(message, 1, -22), failed(message, 2, 1)})))
            << event.operation;
    }
}

TEST_F(Broadcast, LogsOnlyTheRoundWhenAllClientsSucceed) {
    registerThree();
    for (const Event& event : allEvents()) {
        raised(event);
        EXPECT_THAT(logged(), are(roundOf(messageOf(event.operation), 3, {}))) << event.operation;
    }
}

TEST_F(Broadcast, GoesOnBehindAFailingClientBetweenTwoGoodOnes) {
    registerThree();
    answer(0, -7, 0);
    for (const Event& event : allEvents()) {
        const Message& message = messageOf(event.operation);
        EXPECT_EQ(raised(event), 0) << event.operation;
        EXPECT_THAT(logged(), are(roundOf(message, 3, {failed(message, 1, -7)}))) << event.operation;
        EXPECT_EQ(third.told->takeTold(), Told{event.given});
    }
}

TEST_F(Broadcast, ReturnsTheLastResultOfFiveOperationsAndZeroOfTheOthers) {
    registerThree();
    answer(0, 0, -9);
    std::set<std::string> last;
    for (const Event& event : allEvents()) {
        const int result = raised(event);
        if (result == -9) last.insert(event.operation);
        EXPECT_TRUE(result == 0 || result == -9) << result;
    }
    EXPECT_EQ(last, (std::set<std::string>{"AssistiveTouchInformation", "CarPlayMatchedDigitalCarKeys",
                                           "DestinationInformation", "StartBluetoothPairing",
                                           "StopBluetoothPairing"}));
}

TEST_F(Broadcast, HidesAnEarlierFailureBehindALaterSuccess) {
    registerThree();
    answer(-9, 0, 0);
    for (const Event& event : allEvents())
        EXPECT_EQ(raised(event), 0) << event.operation;
}

TEST_F(Broadcast, StopsAtANullNotifier) {
    registry->addNotifier(100, first.notifier);
    registry->addNotifier(200, nullptr);
    registry->addNotifier(300, third.notifier);
    log.clear();
    answer(4, 0, 0);
    for (const Event& event : allEvents()) {
        const Message& message = messageOf(event.operation);
        EXPECT_EQ(raised(event), -1) << event.operation;
        EXPECT_THAT(logged(), are(roundOf(message, 3,
                                          {failed(message, 0, 4), check(event.operation, "notifier.get()")})))
            << event.operation;
        EXPECT_EQ(first.told->takeTold(), Told{event.given});
    }
    EXPECT_EQ(third.told->takeTold(), Told{});
}

TEST_F(Broadcast, StopsAtANullNotifierInTheFirstPlace) {
    registry->addNotifier(1, nullptr);
    registry->addNotifier(300, third.notifier);
    for (const Event& event : allEvents())
        EXPECT_EQ(raised(event), -1) << event.operation;
    EXPECT_EQ(third.told->takeTold(), Told{});
}

TEST_F(Broadcast, ToNobodyReturnsZeroAndLogsTheRound) {
    for (const Event& event : allEvents()) {
        EXPECT_EQ(raised(event), 0) << event.operation;
        EXPECT_THAT(logged(), are(roundOf(messageOf(event.operation), 0, {}))) << event.operation;
    }
}

TEST_F(Broadcast, ReachesWhoIsRegisteredNow) {
    registerThree();
    registry->removeNotifier(200);
    EXPECT_EQ(broadcaster->attach(7), 0);
    EXPECT_EQ(first.told->takeTold(), Told{"attach(7)"});
    EXPECT_EQ(second.told->takeTold(), Told{});
    EXPECT_EQ(third.told->takeTold(), Told{"attach(7)"});
}

TEST_F(Broadcast, ReachesAClientThatIsRegisteredForTwoProcessesTwice) {
    registry->addNotifier(100, first.notifier);
    registry->addNotifier(200, first.notifier);
    EXPECT_EQ(broadcaster->detach(9), 0);
    EXPECT_EQ(first.told->takeTold(), (Told{"detach(9)", "detach(9)"}));
}

/// Clears what it is given, as a client may with what it received.
class Greedy : public BnAppleiAP2ManagerNotifier {
  public:
    Greedy() : BnAppleiAP2ManagerNotifier(new Recorder) {}
    int mediaLibUpdateDataReady(unsigned int, sp<iAP2MediaLibData> data) override {
        received = data.get();
        data.clear();
        return 0;
    }
    const void* received = nullptr;
};

TEST_F(Broadcast, GivesEachClientAReferenceOfItsOwnToALibraryUpdate) {
    const sp<Greedy> greedy = new Greedy;
    const sp<Greedy> next = new Greedy;
    registry->addNotifier(100, greedy);
    registry->addNotifier(200, next);
    const sp<iAP2MediaLibData> data = new IiAP2MediaLibData;
    EXPECT_EQ(broadcaster->mediaLibUpdateDataReady(7, data), 0);
    EXPECT_EQ(greedy->received, data.get());
    EXPECT_EQ(next->received, data.get());
    EXPECT_EQ(data->getStrongCount(), 1);
}

TEST_F(Broadcast, HandsANullDestinationOn) {
    // A proxy answers -1 for it without a transaction, and that is the last result.
    const RemoteClient remote{};
    registry->addNotifier(100, remote.notifier);
    EXPECT_EQ(broadcaster->DestinationInformation(7, nullptr), -1);
    EXPECT_TRUE(remote.remote->requests.empty());
    EXPECT_THAT(logged(), testing::Contains(failed(messageOf("DestinationInformation"), 0, -1)));
}

}  // namespace
}  // namespace accessory::test
