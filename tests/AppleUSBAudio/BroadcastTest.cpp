// The broadcaster within one process: both events to every client, the order, the lines, the results, and the
// lock.
#include <atomic>
#include <condition_variable>
#include <thread>

#include "tests/AppleUSBAudio/AudioFixture.h"

namespace accessory::test {
namespace {

using android::sp;

/// One of the two events.
struct AudioEvent {
    std::string name;
    int (AppleUSBAudioManagerNotifierItf::*raise)(unsigned int);
};

const std::vector<AudioEvent>& events() {
    static const std::vector<AudioEvent>& both =
        *new std::vector<AudioEvent>{{"attach", &AppleUSBAudioManagerNotifierItf::attach},
                                     {"detach", &AppleUSBAudioManagerNotifierItf::detach}};
    return both;
}

Line failure(const std::string& event) { return check(event, "!notifier->" + event + "(accessoryId)"); }

class AudioBroadcast : public AudioFixture {
  protected:
    /// Registered out of order, so that only their numbers can order them.
    void registerThree() {
        registry->addNotifier(300, third.notifier);
        registry->addNotifier(100, first.notifier);
        registry->addNotifier(200, second.notifier);
        log.clear();
    }

    void answer(int ofFirst, int ofSecond, int ofThird) {
        first.listener->answer = ofFirst;
        second.listener->answer = ofSecond;
        third.listener->answer = ofThird;
    }

    int raised(const AudioEvent& event, unsigned int id) { return (broadcaster.get()->*event.raise)(id); }

    const LocalAudioClient first{};
    const LocalAudioClient second{};
    const LocalAudioClient third{};
};

TEST_F(AudioBroadcast, TellsEveryClientInTheOrderOfTheirProcesses) {
    registerThree();
    std::string order;
    first.listener->meanwhile = [&] { order += '1'; };
    second.listener->meanwhile = [&] { order += '2'; };
    third.listener->meanwhile = [&] { order += '3'; };
    for (const AudioEvent& event : events()) {
        order.clear();
        EXPECT_EQ(raised(event, 0xfffffffe), 0);
        EXPECT_EQ(order, "123");
        for (const LocalAudioClient* client : {&first, &second, &third})
            EXPECT_EQ(client->listener->told(), event.name + "(4294967294)|");
        EXPECT_THAT(logged(), are({info(event.name + " enter"), info(event.name + " out")}));
    }
}

TEST_F(AudioBroadcast, LogsAClientThatReturnsFiveOnceAndReturnsZero) {
    registerThree();
    answer(0, 5, 0);
    for (const AudioEvent& event : events()) {
        EXPECT_EQ(raised(event, 7), 0);
        EXPECT_THAT(logged(),
                    are({info(event.name + " enter"), failure(event.name), info(event.name + " out")}));
        EXPECT_EQ(third.listener->told(), event.name + "(7)|");
    }
}

TEST_F(AudioBroadcast, LogsEveryClientThatFailsAndReturnsZero) {
    registerThree();
    answer(-1, 1, INT32_MIN);
    for (const AudioEvent& event : events()) {
        EXPECT_EQ(raised(event, 7), 0);
        EXPECT_THAT(logged(), are({info(event.name + " enter"), failure(event.name), failure(event.name),
                                   failure(event.name), info(event.name + " out")}));
    }
}

TEST_F(AudioBroadcast, EndsAtANullNotifierWithoutItsLastLine) {
    registry->addNotifier(100, first.notifier);
    registry->addNotifier(200, nullptr);
    registry->addNotifier(300, third.notifier);
    log.clear();
    for (const AudioEvent& event : events()) {
        EXPECT_EQ(raised(event, 7), -1);
        EXPECT_THAT(logged(), are({info(event.name + " enter"), check(event.name, "notifier.get()")}));
        EXPECT_EQ(first.listener->told(), event.name + "(7)|");
    }
    EXPECT_EQ(third.listener->told(), "");
}

TEST_F(AudioBroadcast, CanBeRaisedAgainAfterANullNotifier) {
    registry->addNotifier(200, nullptr);
    EXPECT_EQ(broadcaster->attach(7), -1);
    EXPECT_EQ(registry->removeNotifier(200), 0) << "the lock is still held";
    EXPECT_EQ(broadcaster->attach(7), 0);
}

TEST_F(AudioBroadcast, ToNobodyLogsTwoLinesAndReturnsZero) {
    for (const AudioEvent& event : events()) {
        log.clear();
        EXPECT_EQ(raised(event, 7), 0);
        EXPECT_THAT(log.lines(), are({info(event.name + " enter"), info(event.name + " out")}));
    }
}

TEST_F(AudioBroadcast, IsNotTraced) {
    registerThree();
    broadcaster->attach(7);
    for (const LogLine& line : logged())
        EXPECT_EQ(line.text.find("[--"), std::string::npos) << line.text;
}

/// A notifier that keeps attach() waiting until it is released, and then fails.
class SlowNotifier : public BnAppleUSBAudioManagerNotifier {
  public:
    using BnAppleUSBAudioManagerNotifier::BnAppleUSBAudioManagerNotifier;

    int attach(unsigned int) override {
        std::unique_lock lock(mLock);
        mWaiting = true;
        mChanged.notify_all();
        EXPECT_TRUE(mChanged.wait_for(lock, kPatience, [this] { return mReleased; }));
        return 77;
    }
    void awaitWaiting() {
        std::unique_lock lock(mLock);
        EXPECT_TRUE(mChanged.wait_for(lock, kPatience, [this] { return mWaiting; }));
    }
    void release() {
        const std::lock_guard lock(mLock);
        mReleased = true;
        mChanged.notify_all();
    }

  private:
    std::mutex mLock;
    std::condition_variable mChanged;
    bool mWaiting = false;
    bool mReleased = false;
};

class AudioSerialisation : public AudioFixture {
  protected:
    void SetUp() override {
        registry->addNotifier(100, slow);
        event = std::thread([this] { EXPECT_EQ(broadcaster->attach(7), 0); });
        slow->awaitWaiting();
        log.clear();
    }

    void TearDown() override {
        slow->release();
        if (event.joinable()) event.join();
    }

    /// Runs @p other while the event is under way, waits for @p sign of it, lets the event end, and returns
    /// the lines.
    template <typename Other>
    std::vector<LogLine> linesDuring(Other other, const Line* sign = nullptr) {
        std::thread beside(other);
        if (sign != nullptr) {
            EXPECT_TRUE(log.arrives(*sign));
        }
        slow->release();
        beside.join();
        event.join();
        return logged();
    }

    size_t placeOf(const Line& wanted, const std::vector<LogLine>& lines) {
        for (size_t i = 0; i < lines.size(); ++i) {
            if (wanted.Matches(lines[i])) return i;
        }
        ADD_FAILURE() << "no such line in " << testing::PrintToString(lines);
        return lines.size();
    }

    const sp<SlowNotifier> slow{new SlowNotifier(new AudioListener)};
    const LocalAudioClient other{};
    const Line failed = failure("attach");
    std::thread event;
};

TEST_F(AudioSerialisation, MakesTheOtherEventWaitBehindItsFirstLine) {
    const Line begun = info("detach enter");
    const std::vector<LogLine> lines = linesDuring([this] { broadcaster->detach(7); }, &begun);
    EXPECT_LT(placeOf(failed, lines), placeOf(info("detach out"), lines));
}

TEST_F(AudioSerialisation, MakesARegistrationWait) {
    const Line begun = registering(own, user);
    const std::vector<LogLine> lines =
        linesDuring([this] { EXPECT_EQ(stub->setNotifier(other.notifier), 0); }, &begun);
    EXPECT_LT(placeOf(failed, lines), placeOf(lookedUp(1, "-#", own), lines));
}

TEST_F(AudioSerialisation, MakesADeathWaitBehindItsLine) {
    const sp<AppleUSBAudioNotifierDeathRecipient> recipient =
        new AppleUSBAudioNotifierDeathRecipient(stub, 100);
    const Line begun = died(100);
    const std::vector<LogLine> lines = linesDuring([&] { recipient->binderDied(nullptr); }, &begun);
    EXPECT_LT(placeOf(failed, lines), placeOf(info("binderDied out"), lines));
}

class AudioDuringAnEvent : public AudioFixture {
  protected:
    /// Registers a client that holds up every event, in front of all others.
    void SetUp() override { registry->addNotifier(0, slow); }
    void TearDown() override { slow->release(); }

    /// Begins an event, and comes back when it waits for that client.
    std::thread raised(int result) {
        std::thread event([this, result] { EXPECT_EQ(broadcaster->attach(7), result); });
        slow->awaitWaiting();
        log.clear();
        return event;
    }

    /// The lines of failed checks among @p lines.
    static std::vector<LogLine> errorsOf(const std::vector<LogLine>& lines) {
        std::vector<LogLine> errors;
        for (const LogLine& line : lines)
            if (line.priority == ANDROID_LOG_ERROR) errors.push_back(line);
        return errors;
    }

    const sp<SlowNotifier> slow{new SlowNotifier(new AudioListener)};
    const Line failed = failure("attach");
};

TEST_F(AudioDuringAnEvent, AListingWaits) {
    registry->addNotifier(200, nullptr);  // at which event and listing end, each with a line under the lock
    std::thread event = raised(-1);
    std::atomic<bool> begun{false};
    android::String8 text;
    std::thread listing([&] {
        begun = true;
        EXPECT_EQ(registry->dump({}, text), -1);
    });
    EXPECT_TRUE(eventually([&] { return begun.load(); }));
    slow->release();
    event.join();
    listing.join();
    EXPECT_THAT(logged(), are({failed, check("attach", "notifier.get()"), check("dump", "notifier.get()")}));
}

TEST_F(AudioDuringAnEvent, ARemovalWaitsBehindTheUnlinking) {
    const RemoteAudioClient client{};
    ASSERT_EQ(stub->setNotifier(client.notifier), 0);
    std::atomic<bool> unlinked{false};
    client.remote->onUnlink = [&] { unlinked = true; };
    std::thread event = raised(0);
    std::thread clearing([&] { EXPECT_EQ(stub->clearNotifier(), 0); });
    EXPECT_TRUE(eventually([&] { return unlinked.load(); })) << "the unlinking waits for the event";
    EXPECT_EQ(registry->find(own), client.notifier) << "the removal does not wait for the event";
    slow->release();
    event.join();
    clearing.join();
    EXPECT_EQ(registry->find(own), nullptr);
    EXPECT_THAT(errorsOf(logged()), are({failed, removedElsewhere()}));
}

TEST_F(AudioSerialisation, FindsANotifierDuringAnEvent) {
    EXPECT_EQ(registry->find(100), sp<IAppleUSBAudioManagerNotifier>(slow));
    EXPECT_EQ(registry->find(101), nullptr);
}

TEST_F(AudioSerialisation, LetsClearingFindThatThereIsNothingDuringAnEvent) {
    EXPECT_EQ(stub->clearNotifier(), 0);
}

}  // namespace
}  // namespace accessory::test
