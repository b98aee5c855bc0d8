// The event loop: order, time, jumping, and its end.
#include "simulator/engine/EventLoop.h"

#include <gmock/gmock.h>

#include <future>

#include "tests/support/Eventually.h"

namespace accessory::simulator {
namespace {

using accessory::test::eventually;
using accessory::test::kPatience;

class Notes {
  public:
    void add(int note) {
        const std::lock_guard lock(mLock);
        mNotes.push_back(note);
    }
    std::vector<int> all() const {
        const std::lock_guard lock(mLock);
        return mNotes;
    }

  private:
    mutable std::mutex mLock;
    std::vector<int> mNotes;
};

TEST(EventLoop, RunsActionsInTheOrderOfTheirTimes) {
    Notes notes;
    EventLoop loop(0);
    for (const int time : {30, 10, 20, 10})
        loop.post(milliseconds(time), [&notes, time] { notes.add(time); });
    loop.post(milliseconds(10), [&notes] { notes.add(11); });
    loop.jumpUntil(milliseconds(1000));
    loop.start();
    EXPECT_TRUE(eventually([&] { return notes.all().size() == 5; }));
    EXPECT_THAT(notes.all(), testing::ElementsAre(10, 10, 11, 20, 30));
}

TEST(EventLoop, JumpsOverHoursWithoutWaiting) {
    std::promise<milliseconds> ran;
    EventLoop loop(0);
    loop.post(std::chrono::hours(5), [&] { ran.set_value(loop.now()); });
    loop.jumpUntil(std::chrono::hours(6));
    loop.start();
    std::future<milliseconds> when = ran.get_future();
    ASSERT_EQ(when.wait_for(kPatience), std::future_status::ready);
    EXPECT_EQ(when.get(), std::chrono::hours(5));
}

TEST(EventLoop, LivesOnInRealTimeBehindTheJumps) {
    std::promise<void> near;
    Notes notes;
    EventLoop loop(0);
    loop.post(milliseconds(500), [&] { notes.add(1); });
    loop.post(milliseconds(520), [&] { near.set_value(); });
    loop.post(std::chrono::hours(1), [&] { notes.add(2); });
    loop.jumpUntil(milliseconds(500));
    loop.start();
    ASSERT_EQ(near.get_future().wait_for(kPatience), std::future_status::ready);
    EXPECT_THAT(notes.all(), testing::ElementsAre(1));
    EXPECT_GE(loop.now(), milliseconds(520));
    EXPECT_LT(loop.now(), std::chrono::minutes(10));
}

TEST(EventLoop, LetsTimeStandStillUntilTheFirstJump) {
    std::promise<void> ran;
    EventLoop loop(0);
    loop.start();
    loop.post(loop.now(), [&] { ran.set_value(); });
    ASSERT_EQ(ran.get_future().wait_for(kPatience), std::future_status::ready);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(eventually([&] { return std::chrono::steady_clock::now() - begin > milliseconds(5); }));
    EXPECT_EQ(loop.now(), milliseconds(0));
}

TEST(EventLoop, MakesTimePassFaster) {
    std::promise<void> ran;
    EventLoop loop(100'000);
    loop.post(std::chrono::minutes(5), [&] { ran.set_value(); });
    loop.start();
    EXPECT_EQ(ran.get_future().wait_for(kPatience), std::future_status::ready);
    EXPECT_GE(loop.now(), std::chrono::minutes(5));
}

TEST(EventLoop, TakesActionsFromActions) {
    std::promise<void> ran;
    EventLoop loop(1);
    loop.post(milliseconds(0), [&] { loop.post(loop.now(), [&] { ran.set_value(); }); });
    loop.start();
    EXPECT_EQ(ran.get_future().wait_for(kPatience), std::future_status::ready);
}

TEST(EventLoop, DropsWhatIsYetToComeWhenItStops) {
    Notes notes;
    EventLoop loop(1);
    loop.post(std::chrono::hours(1), [&] { notes.add(1); });
    loop.start();
    loop.stop();
    EXPECT_THAT(notes.all(), testing::IsEmpty());
}

TEST(EventLoop, RunsNothingBehindTheActionThatFinishesIt) {
    Notes notes;
    EventLoop loop(0);
    loop.post(milliseconds(1), [&] {
        loop.finish();
        notes.add(1);
    });
    loop.post(milliseconds(1), [&] { notes.add(2); });
    loop.jumpUntil(milliseconds(1));
    loop.start();
    EXPECT_TRUE(eventually([&] { return notes.all().size() == 1; }));
    loop.stop();
    EXPECT_THAT(notes.all(), testing::ElementsAre(1));
}

TEST(EventLoop, StandsStillBeforeItStarts) {
    const EventLoop loop(1000);
    EXPECT_EQ(loop.now(), milliseconds(0));
}

}  // namespace
}  // namespace accessory::simulator
