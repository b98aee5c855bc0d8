// File transfers: states and progress.
#include "simulator/model/Transfer.h"

#include <gtest/gtest.h>

namespace accessory::simulator {
namespace {

TEST(Transfer, ArrivesAtItsRate) {
    Transfer transfer(10'000, 1000);
    EXPECT_TRUE(transfer.prepare());
    EXPECT_TRUE(transfer.start(milliseconds(50)));
    EXPECT_EQ(transfer.timeLeft(milliseconds(50)), milliseconds(10'000));
    EXPECT_FALSE(transfer.advance(milliseconds(1050)));
    EXPECT_EQ(transfer.received(), 1000u);
    EXPECT_TRUE(transfer.advance(milliseconds(10'050)));
    EXPECT_EQ(transfer.state(), TransferState::kFinished);
}

TEST(Transfer, GoesOnWhereItWasPaused) {
    Transfer transfer(10'000, 1000);
    transfer.prepare();
    transfer.start(milliseconds(0));
    EXPECT_TRUE(transfer.pause(milliseconds(4000)));
    EXPECT_FALSE(transfer.pause(milliseconds(4001)));
    EXPECT_FALSE(transfer.advance(milliseconds(60'000)));
    EXPECT_EQ(transfer.received(), 4000u);
    EXPECT_TRUE(transfer.start(milliseconds(60'000)));
    EXPECT_EQ(transfer.timeLeft(milliseconds(60'000)), milliseconds(6000));
}

TEST(Transfer, HasToBePreparedAndCanBeCancelled) {
    Transfer transfer(10, 1);
    EXPECT_FALSE(transfer.start(milliseconds(0)));
    EXPECT_TRUE(transfer.cancel());
    EXPECT_FALSE(transfer.cancel());
    EXPECT_FALSE(transfer.start(milliseconds(0)));
    EXPECT_TRUE(transfer.prepare());
    EXPECT_TRUE(transfer.start(milliseconds(0)));
    EXPECT_FALSE(transfer.prepare());
}

TEST(Transfer, OfNothingArrivesAtOnce) {
    Transfer transfer(0, 1);
    transfer.prepare();
    transfer.start(milliseconds(0));
    EXPECT_EQ(transfer.timeLeft(milliseconds(0)), milliseconds(0));
    EXPECT_TRUE(transfer.advance(milliseconds(0)));
}

}  // namespace
}  // namespace accessory::simulator
