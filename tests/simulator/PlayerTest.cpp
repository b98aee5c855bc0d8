// The player: loading, skipping, seeking, shuffling, and time.
#include "simulator/model/Player.h"

#include <gmock/gmock.h>

#include "tests/simulator/Tracks.h"

namespace accessory::simulator {
namespace {

TrackPointer track(uint64_t id, int32_t durationMs) {
    Track made;
    made.id = id;
    made.durationMs = durationMs;
    return std::make_shared<const Track>(made);
}

class PlayerOfThree : public testing::Test {
  protected:
    PlayerOfThree() { EXPECT_TRUE(player.load({track(1, 1000), track(2, 2000), track(3, 3000)}, 1)); }

    Player player;
    std::mt19937 random{7};
};

TEST(Player, DoesNothingWithoutAQueue) {
    Player player;
    EXPECT_FALSE(player.play());
    EXPECT_FALSE(player.pause());
    EXPECT_FALSE(player.next());
    EXPECT_FALSE(player.previous());
    EXPECT_FALSE(player.seek(milliseconds(0)));
    EXPECT_EQ(player.current(), nullptr);
}

TEST(Player, RefusesAQueueThatEndsBeforeTheStart) {
    Player player;
    EXPECT_FALSE(player.load({track(1, 1000)}, 1));
    EXPECT_EQ(player.playback(), Playback::kStopped);
}

TEST_F(PlayerOfThree, PlaysFromWhereItWasTold) {
    EXPECT_EQ(player.current()->id, 2u);
    EXPECT_EQ(player.playback(), Playback::kPlaying);
    EXPECT_EQ(player.remaining(), milliseconds(2000));
}

TEST_F(PlayerOfThree, GoesOnToTheNextTrackAndStopsAtTheEnd) {
    player.advance(milliseconds(2500));
    EXPECT_EQ(player.current()->id, 3u);
    EXPECT_EQ(player.elapsed(), milliseconds(500));
    player.advance(milliseconds(2500));
    EXPECT_EQ(player.playback(), Playback::kStopped);
    EXPECT_EQ(player.current()->id, 1u);
}

TEST_F(PlayerOfThree, LetsNoTimePassWhilePaused) {
    EXPECT_TRUE(player.pause());
    EXPECT_FALSE(player.pause());
    player.advance(milliseconds(10'000));
    EXPECT_EQ(player.elapsed(), milliseconds(0));
    EXPECT_EQ(player.current()->id, 2u);
}

TEST_F(PlayerOfThree, GoesBackToTheBeginningOrToTheTrackBefore) {
    player.seek(milliseconds(1999));
    EXPECT_TRUE(player.previous());
    EXPECT_EQ(player.current()->id, 1u);
    player.jumpTo(2);
    player.advance(milliseconds(2999));
    EXPECT_TRUE(player.previous());
    EXPECT_EQ(player.current()->id, 2u);
    player.load({track(4, 9000), track(5, 9000)}, 1);
    player.advance(milliseconds(3000));
    EXPECT_TRUE(player.previous());
    EXPECT_EQ(player.current()->id, 5u);
    EXPECT_EQ(player.elapsed(), milliseconds(0));
}

TEST_F(PlayerOfThree, SeeksWithinTheTrackOnly) {
    EXPECT_TRUE(player.seek(milliseconds(2000)));
    EXPECT_FALSE(player.seek(milliseconds(2001)));
    EXPECT_FALSE(player.seek(milliseconds(-1)));
    EXPECT_EQ(player.elapsed(), milliseconds(2000));
}

TEST_F(PlayerOfThree, RepeatsOneOrAll) {
    player.setRepeat(Repeat::kOne);
    player.advance(milliseconds(2100));
    EXPECT_EQ(player.current()->id, 2u);
    EXPECT_EQ(player.elapsed(), milliseconds(100));
    player.setRepeat(Repeat::kAll);
    player.advance(milliseconds(1900 + 3000));
    EXPECT_EQ(player.current()->id, 1u);
    EXPECT_EQ(player.playback(), Playback::kPlaying);
}

TEST_F(PlayerOfThree, EndsTheQueueWithoutRepeat) {
    EXPECT_TRUE(player.next());
    EXPECT_FALSE(player.next());
    EXPECT_EQ(player.current()->id, 3u);
}

TEST_F(PlayerOfThree, ShufflesWhatIsToComeAndRestoresTheOrder) {
    TrackList many;
    for (uint64_t id = 1; id <= 30; ++id)
        many.push_back(track(id, 1000));
    player.load(many, 4);
    player.setShuffle(Shuffle::kSongs, random);
    EXPECT_EQ(player.current()->id, 5u);
    EXPECT_NE(idsOf(player.queue()), idsOf(many));
    EXPECT_THAT(idsOf(player.queue()), testing::UnorderedElementsAreArray(idsOf(many)));
    EXPECT_TRUE(player.next());
    const uint64_t playing = player.current()->id;
    player.setShuffle(Shuffle::kOff, random);
    EXPECT_EQ(idsOf(player.queue()), idsOf(many));
    EXPECT_EQ(player.current()->id, playing);
}

TEST_F(PlayerOfThree, ShufflesTheSameWayForTheSameSeed) {
    TrackList many;
    for (uint64_t id = 1; id <= 30; ++id)
        many.push_back(track(id, 1000));
    std::mt19937 same(7);
    Player other;
    player.load(many, 0);
    other.load(many, 0);
    player.setShuffle(Shuffle::kSongs, random);
    other.setShuffle(Shuffle::kSongs, same);
    EXPECT_EQ(idsOf(player.queue()), idsOf(other.queue()));
}

TEST(Player, ComesToTheEndOfEmptyTracks) {
    Player player;
    player.load({track(1, 0), track(2, 0)}, 0);
    player.advance(milliseconds(10));
    EXPECT_EQ(player.playback(), Playback::kStopped);
}

}  // namespace
}  // namespace accessory::simulator
