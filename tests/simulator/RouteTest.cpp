// Routes: distances, maneuvers, arrival.
#include "simulator/model/Route.h"

#include <gtest/gtest.h>

namespace accessory::simulator {
namespace {

RoutePlan plan() {
    RoutePlan made;
    made.road = "Lane";
    made.destination = "Harbour";
    made.speed = 10;
    made.maneuvers.resize(3);
    made.maneuvers[0].road = "Street";
    made.maneuvers[0].distance = 500;
    made.maneuvers[1].road = "Avenue";
    made.maneuvers[1].distance = 50;
    made.maneuvers[2].distance = 100;
    return made;
}

class RouteUnderWay : public testing::Test {
  protected:
    RouteUnderWay() { route.start(plan()); }
    Route route;
};

TEST(Route, DoesNotMoveBeforeItStarts) {
    Route route;
    EXPECT_FALSE(route.step(1000));
    EXPECT_EQ(route.state(), GuidanceState::kNoRoute);
}

TEST_F(RouteUnderWay, BeginsBeforeTheFirstManeuver) {
    EXPECT_EQ(route.state(), GuidanceState::kGuiding);
    EXPECT_EQ(route.nextManeuver(), 0u);
    EXPECT_EQ(route.distanceToNext(), 500u);
    EXPECT_EQ(route.distanceRemaining(), 650u);
    EXPECT_EQ(route.timeRemaining(), 65u);
    EXPECT_EQ(route.currentRoad(), "Lane");
    EXPECT_EQ(route.maneuverState(), ManeuverState::kInitial);
}

TEST_F(RouteUnderWay, GetsReadyAndActsAsAManeuverComesNear) {
    route.step(10'000);
    EXPECT_EQ(route.distanceToNext(), 400u);
    EXPECT_EQ(route.maneuverState(), ManeuverState::kPrepare);
    route.step(34'000);
    EXPECT_EQ(route.distanceToNext(), 60u);
    EXPECT_EQ(route.maneuverState(), ManeuverState::kExecute);
}

TEST_F(RouteUnderWay, PassesSeveralManeuversInOneStep) {
    EXPECT_TRUE(route.step(56'000));
    EXPECT_EQ(route.nextManeuver(), 2u);
    EXPECT_EQ(route.distanceToNext(), 90u);
    EXPECT_EQ(route.currentRoad(), "Avenue");
}

TEST_F(RouteUnderWay, ArrivesAndStays) {
    route.step(65'000);
    EXPECT_EQ(route.state(), GuidanceState::kArrived);
    EXPECT_EQ(route.distanceRemaining(), 0u);
    EXPECT_FALSE(route.step(1000));
    EXPECT_EQ(route.nextManeuver(), 2u);
}

TEST_F(RouteUnderWay, LooksForAnotherWayUntilItMovesOn) {
    route.reroute();
    EXPECT_EQ(route.state(), GuidanceState::kRerouting);
    route.step(1000);
    EXPECT_EQ(route.state(), GuidanceState::kGuiding);
    EXPECT_EQ(route.distanceToNext(), 490u);
}

TEST_F(RouteUnderWay, IsGoneWhenStopped) {
    route.stop();
    EXPECT_EQ(route.state(), GuidanceState::kNoRoute);
    EXPECT_FALSE(route.guiding());
}

TEST(DisplayDistance, ChangesToKilometres) {
    EXPECT_EQ(displayDistance(0).text, "0 m");
    EXPECT_EQ(displayDistance(999).text, "999 m");
    EXPECT_EQ(displayDistance(999).units, 2);
    EXPECT_EQ(displayDistance(1000).text, "1.0 km");
    EXPECT_EQ(displayDistance(12'390).text, "12.3 km");
    EXPECT_EQ(displayDistance(1000).units, 0);
}

}  // namespace
}  // namespace accessory::simulator
