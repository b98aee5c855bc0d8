// Route guidance as clients hear of it.
#include <gmock/gmock.h>

#include "tests/simulator/Script.h"

namespace accessory::simulator::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kRoute =
    R"("routes": [{"name": "r", "source": "Maps", "road": "Lane", "destination": "Quay",
    "speed": 10, "maneuvers": [
        {"description": "Turn left", "road": "Street", "type": 1, "distance": 30, "elementAngles": [-90, 90],
         "exitAngle": -90, "exitInfo": "4b", "laneDescription": "Keep left",
         "lanes": [{"angles": [-90, 0], "recommended": true, "highlighted": -90}, {"angles": [0]}]},
        {"description": "Arrive", "distance": 20}]}])";

constexpr uint32_t kStateAndDistance =
    RouteGuidaceUpdateInfo::kRouteGuidanceState | RouteGuidaceUpdateInfo::kDistanceToNextManeuver;

TEST(RouteScript, GuidesFromManeuverToManeuver) {
    Script script(kRoute);
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.navigation.start({7}, kStateAndDistance), kDone);
        EXPECT_TRUE(device.navigation.startRoute("r"));
    });
    EXPECT_THAT(about("RouteGuidanceUpdates", script.play(20)),
                ElementsAre("1 RouteGuidanceUpdates(1, RouteGuidaceUpdateInfo{routeGuidanceState: 0, "
                            "distanceToNextManeuver: 0})",
                            "1 RouteGuidanceUpdates(1, RouteGuidaceUpdateInfo{routeGuidanceState: 1, "
                            "distanceToNextManeuver: 30})",
                            "2 RouteGuidanceUpdates(1, RouteGuidaceUpdateInfo{routeGuidanceState: 1, "
                            "distanceToNextManeuver: 20})",
                            "3 RouteGuidanceUpdates(1, RouteGuidaceUpdateInfo{routeGuidanceState: 1, "
                            "distanceToNextManeuver: 10})",
                            "4 RouteGuidanceUpdates(1, RouteGuidaceUpdateInfo{routeGuidanceState: 1, "
                            "distanceToNextManeuver: 20})",
                            "5 RouteGuidanceUpdates(1, RouteGuidaceUpdateInfo{routeGuidanceState: 1, "
                            "distanceToNextManeuver: 10})",
                            "6 RouteGuidanceUpdates(1, RouteGuidaceUpdateInfo{routeGuidanceState: 2, "
                            "distanceToNextManeuver: 0})"));
}

TEST(RouteScript, TellsManeuversAndLanes) {
    Script script(kRoute);
    script.at(1, [](Device& device) {
        device.navigation.start({7, 8}, kStateAndDistance);
        device.navigation.startRoute("");
    });
    const std::vector<std::string> lines = script.play(1.5);
    EXPECT_THAT(
        about("Maneuver", about("ManeuverUpdates", lines)),
        ElementsAre(AllOf(StartsWith("1 RouteGuidanceManeuverUpdates(1, RuoteGuidanceManeuverUpdateInfo{"
                                     "routeGuidanceDisplayComponentID: [7, 8], index: 0, "
                                     "maneuverDescription: \"Turn left\""),
                          HasSubstr("afterManeuverRoadName: \"Street\""), HasSubstr("\"30 m\""),
                          HasSubstr("[-90, 90]"), HasSubstr("\"4b\"")),
                    HasSubstr("index: 1, maneuverDescription: \"Arrive\"")));
    EXPECT_THAT(about("LaneGuidance", about("1 LaneGuidanceInformation", lines)),
                ElementsAre(AllOf(HasSubstr("laneGuidanceIndex: 0"), HasSubstr("\"Keep left\""),
                                  HasSubstr("laneField1: 2, laneAngle: [-90, 0]"),
                                  HasSubstr("laneField1: 0, laneAngle: [0]"))));
}

TEST(RouteScript, TellsEverythingToWhoAsksInTheMiddle) {
    Script script(kRoute);
    script.at(1, [](Device& device) { device.navigation.startRoute("r"); });
    script.at(4.5, [](Device& device) { device.navigation.start({1}, 0); });
    const std::vector<std::string> lines = script.play(4.9);
    EXPECT_THAT(
        about("RouteGuidanceUpdates", lines),
        ElementsAre(AllOf(HasSubstr("currentRoadName: \"Street\""), HasSubstr("destinationName: \"Quay\""),
                          HasSubstr("sourceName: \"Maps\""), HasSubstr("distanceToNextManeuver: 20"))));
    EXPECT_EQ(about("ManeuverUpdates", lines).size(), 1u);
}

TEST(RouteScript, EndsWithItsLastDisplay) {
    Script script(kRoute);
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.navigation.stop({}), kWrongState);
        device.navigation.start({7, 8}, kStateAndDistance);
        EXPECT_EQ(device.navigation.stop({7}), kDone);
        EXPECT_EQ(device.navigation.stop({8}), kDone);
        EXPECT_EQ(device.navigation.stop({8}), kWrongState);
        device.navigation.startRoute("r");
    });
    EXPECT_EQ(about("Guidance", script.play(10)).size(), 1u);
}

TEST(RouteScript, ReroutesAndStops) {
    Script script(kRoute);
    script.at(1, [](Device& device) { device.navigation.startRoute("r"); });
    script.at(1.5, [](Device& device) {
        EXPECT_FALSE(device.navigation.startRoute("other"));
        device.navigation.start({1}, RouteGuidaceUpdateInfo::kRouteGuidanceState);
        device.navigation.reroute();
    });
    script.at(2.5, [](Device& device) { device.navigation.stopRoute(); });
    EXPECT_THAT(about("RouteGuidanceUpdates", script.play(10)),
                ElementsAre(HasSubstr("State: 1"), HasSubstr("State: 5"), HasSubstr("State: 1"),
                            HasSubstr("State: 0")));
}

}  // namespace
}  // namespace accessory::simulator::test
