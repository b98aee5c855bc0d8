// What waits for an event that is under way, and what does not.
#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "tests/AppleiAP2/manager/registry/Announcer.h"
#include "tests/AppleiAP2/manager/registry/Messages.h"
#include "tests/AppleiAP2/manager/registry/RegistryFixture.h"

namespace accessory::test {
namespace {

using android::sp;

/// Holds those who pass until it is opened.
class Gate {
  public:
    ~Gate() { open(); }

    void pass() {
        std::unique_lock lock(mLock);
        ++mWaiting;
        mChanged.notify_all();
        EXPECT_TRUE(mChanged.wait_for(lock, kPatience, [this] { return mOpen; }));
    }
    bool someoneWaits() {
        std::unique_lock lock(mLock);
        return mChanged.wait_for(lock, kPatience, [this] { return mWaiting > 0; });
    }
    void open() {
        const std::lock_guard lock(mLock);
        mOpen = true;
        mChanged.notify_all();
    }

  private:
    std::mutex mLock;
    std::condition_variable mChanged;
    int mWaiting = 0;
    bool mOpen = false;
};

/// A notifier that keeps notify() waiting at a gate and then fails with 77, which is logged under the lock.
class Slow : public BnAppleiAP2ManagerNotifier {
  public:
    Slow(Gate& gate, const sp<Recorder>& recorder) : BnAppleiAP2ManagerNotifier(recorder), mGate(gate) {}
    int notify(unsigned int, unsigned int) override {
        mGate.pass();
        return 77;
    }

  private:
    Gate& mGate;
};

class Serialisation : public RegistryFixture {
  protected:
    void SetUp() override {
        registry->addNotifier(100, slow);
        log.clear();
        event = std::thread([this] { EXPECT_EQ(broadcaster->notify(7, 1), 0); });
        ASSERT_TRUE(gate.someoneWaits());
        log.clear();
    }

    void TearDown() override {
        gate.open();
        if (event.joinable()) event.join();
    }

    /// Runs @p other while the event is under way, lets the event end, and waits for both.
    template <typename Other>
    void during(Other other, const Line* sign = nullptr) {
        std::thread beside(other);
        if (sign != nullptr) {
            EXPECT_TRUE(log.arrives(*sign));
        }
        gate.open();
        beside.join();
        event.join();
    }

    /// The place of the line among those logged; fails the test when there is none.
    size_t placeOf(const Line& wanted) {
        const std::vector<LogLine> lines = log.linesWith(kManagerTag);
        for (size_t i = 0; i < lines.size(); ++i) {
            if (wanted.Matches(lines[i])) return i;
        }
        ADD_FAILURE() << "no such line in " << testing::PrintToString(lines);
        return lines.size();
    }

    Line endOfTheEvent() { return failed(messageOf("notify"), 0, 77); }

    Gate gate;
    const sp<Recorder> told{new Recorder};
    const sp<IAppleiAP2ManagerNotifier> slow{new Slow(gate, told)};
    const LocalClient other{};
    std::thread event;
};

TEST_F(Serialisation, LetsAHidComponentEventRunBesideAnother) {
    EXPECT_EQ(broadcaster->hidComponentUpdate(7, 3, true), 0);
    EXPECT_EQ(told->takeTold(), std::vector<std::string>{"hidComponentUpdate(7, 3, true)"});
}

TEST_F(Serialisation, LetsManyHidComponentEventsRunBesideAnother) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([this] { EXPECT_EQ(broadcaster->hidComponentUpdate(7, 3, true), 0); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(told->takeTold().size(), 4u);
}

TEST_F(Serialisation, FindsANotifierDuringAnEvent) {
    EXPECT_EQ(registry->find(100), slow);
    EXPECT_EQ(registry->find(101), nullptr);
}

TEST_F(Serialisation, MakesAnotherEventWait) {
    const Line begun = in(kNotifierUnit, "attach");
    during([this] { EXPECT_EQ(broadcaster->attach(7), 0); }, &begun);
    EXPECT_LT(placeOf(endOfTheEvent()), placeOf(debugLine("attach mNotifiers size 1")));
}

TEST_F(Serialisation, MakesEveryOtherEventWaitBehindItsTrace) {
    // An event that has begun but not called anybody is waiting: it would have called the client at once.
    std::vector<std::thread> events;
    size_t begun = 0;
    for (const Message& message : messages()) {
        const std::string name = message.operation;
        if (name == "notify" || name == "hidComponentUpdate") continue;
        const auto example = std::find_if(allEvents().begin(), allEvents().end(),
                                          [&](const Event& one) { return one.operation == name; });
        ASSERT_NE(example, allEvents().end());
        events.emplace_back([this, example] { EXPECT_EQ(raise(*example, broadcaster), 0); });
        if (message.traces) {
            EXPECT_TRUE(log.arrives(in(kNotifierUnit, name)));
        }
        ++begun;
    }
    EXPECT_EQ(told->takeTold(), std::vector<std::string>{}) << "an event did not wait";
    gate.open();
    for (std::thread& each : events)
        each.join();
    event.join();
    EXPECT_EQ(told->takeTold().size(), begun);
}

TEST_F(Serialisation, MakesARegistrationWait) {
    during([this] { EXPECT_EQ(registry->addNotifier(200, other.notifier), 0); });
    EXPECT_LT(placeOf(endOfTheEvent()), placeOf(lookedUp(1, "-#", 200)));
}

TEST_F(Serialisation, MakesARegistrationOfTheStubWaitBehindItsTrace) {
    const Line begun = in(kManagerUnit, "setNotifier");
    during([this] { EXPECT_EQ(stub->setNotifier(other.notifier), 0); }, &begun);
    EXPECT_LT(placeOf(endOfTheEvent()), placeOf(lookedUp(1, "-#", own)));
}

TEST_F(Serialisation, MakesARemovalWait) {
    during([this] { EXPECT_EQ(registry->removeNotifier(100), 0); });
    EXPECT_LT(placeOf(endOfTheEvent()), placeOf(removed(0, 0, 100)));
}

TEST_F(Serialisation, MakesADeathWaitBehindItsLine) {
    const sp<AppleiAP2NotifierDeathRecipient> recipient = new AppleiAP2NotifierDeathRecipient(stub, 100);
    const Line begun = died(100);
    during([&] { recipient->binderDied(nullptr); }, &begun);
    EXPECT_LT(placeOf(endOfTheEvent()), placeOf(removed(0, 0, 100)));
}

/// Raises an event that takes no lock from within one that does.
class Chatty : public BnAppleiAP2ManagerNotifier {
  public:
    explicit Chatty(sp<AppleiAP2ManagerNotifierItf> to)
        : BnAppleiAP2ManagerNotifier(new Recorder), mTo(std::move(to)) {}
    int attach(unsigned int accId) override { return mTo->hidComponentUpdate(accId, 3, true); }
    int hidComponentUpdate(unsigned int, unsigned short, bool) override {
        ++heard;
        return 0;
    }
    int heard = 0;

  private:
    const sp<AppleiAP2ManagerNotifierItf> mTo;
};

TEST(HidComponentEvent, CanBeRaisedWithinAnotherEvent) {
    const sp<QuietService> service = new QuietService;
    const sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(service));
    auto& registry = dynamic_cast<AppleiAP2ManagerNotifier&>(*service->broadcasters.at(0));
    const sp<Chatty> chatty = new Chatty(&registry);
    registry.addNotifier(100, chatty);
    EXPECT_EQ(registry.attach(7), 0);
    EXPECT_EQ(chatty->heard, 1);
    registry.removeNotifier(100);
}

TEST(ListingDuringAnEvent, Waits) {
    const sp<QuietService> service = new QuietService;
    const sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(service));
    auto& registry = dynamic_cast<AppleiAP2ManagerNotifier&>(*service->broadcasters.at(0));
    Gate gate;
    registry.addNotifier(100, new Slow(gate, new Recorder));
    registry.addNotifier(200, nullptr);  // at which event and listing end, each with a line under the lock
    LogCatcher log;
    std::thread event([&] { EXPECT_EQ(registry.notify(7, 1), -1); });
    ASSERT_TRUE(gate.someoneWaits());
    std::atomic<bool> begun{false};
    android::String8 text;
    std::thread listing([&] {
        begun = true;
        EXPECT_EQ(registry.dump({}, text), -1);
    });
    EXPECT_TRUE(eventually([&] { return begun.load(); }));
    gate.open();
    event.join();
    listing.join();
    std::vector<LogLine> checks;
    for (const LogLine& line : log.linesWith(kManagerTag)) {
        if (line.priority == ANDROID_LOG_ERROR) checks.push_back(line);
    }
    EXPECT_THAT(checks, are({failed(messageOf("notify"), 0, 77), check("notify", "notifier.get()"),
                             check("dump", "notifier.get()")}));
}

TEST(ClearingDuringAnEvent, LooksUpAndUnlinksWithoutWaiting) {
    const sp<QuietService> service = new QuietService;
    const sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(service));
    const sp<AppleiAP2ManagerNotifierItf> broadcaster = service->broadcasters.at(0);
    const RemoteClient client{};
    ASSERT_EQ(stub->setNotifier(client.notifier), 0);
    Gate gate;
    auto& registry = dynamic_cast<AppleiAP2ManagerNotifier&>(*broadcaster);
    registry.addNotifier(getpid() + 1, new Slow(gate, new Recorder));
    std::atomic<bool> unlinked{false};
    client.remote->onUnlink = [&] { unlinked = true; };

    std::thread event([&] { EXPECT_EQ(broadcaster->notify(7, 1), 0); });
    ASSERT_TRUE(gate.someoneWaits());
    std::thread clearing([&] { EXPECT_EQ(stub->clearNotifier(), 0); });
    EXPECT_TRUE(eventually([&] { return unlinked.load(); })) << "clearing waits for the event";
    EXPECT_EQ(registry.find(getpid()), client.notifier) << "the removal does not wait for the event";
    gate.open();
    clearing.join();
    event.join();
    EXPECT_EQ(registry.find(getpid()), nullptr);
}

}  // namespace
}  // namespace accessory::test
