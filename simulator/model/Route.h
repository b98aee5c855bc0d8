// Route: a way with maneuvers and lanes, and how far along it the device is.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace accessory::simulator {

/// The numbers of these two are those that travel.
enum class GuidanceState : int32_t { kNoRoute = 0, kGuiding = 1, kArrived = 2, kLoading = 3, kRerouting = 5 };
enum class ManeuverState : int32_t { kContinue = 0, kInitial = 1, kPrepare = 2, kExecute = 3 };

struct Lane {
    std::vector<int16_t> angles;  ///< degrees, 0 straight on, clockwise
    bool recommended = false;
    int16_t highlightedAngle = 0;  ///< degrees
};

struct LaneGuidance {
    std::string description;
    std::vector<Lane> lanes;  ///< from left to right; empty: none
};

struct Maneuver {
    std::string description;
    std::string road;  ///< the road after the maneuver
    int32_t type = 0;
    uint32_t distance = 0;  ///< metres from the maneuver before it, or from the start
    int32_t drivingSide = 0;
    int32_t junctionType = 0;
    std::vector<int16_t> elementAngles;  ///< degrees
    int16_t exitAngle = 0;               ///< degrees
    std::string exitInfo;
    LaneGuidance lanes;
};

struct RoutePlan {
    std::string name;  ///< by which the timeline starts it
    std::string source;
    std::string road;  ///< on which it begins
    std::string destination;
    uint32_t speed = 14;  ///< metres per second
    int32_t timeZoneMinutes = 0;
    std::vector<Maneuver> maneuvers;  ///< at least one; the last one is the arrival
};

/// Goes along a plan, which it copies.
class Route {
  public:
    void start(const RoutePlan& plan);
    void stop();
    /// Tells the clients that another way is looked for; the next step() goes on with the same one.
    void reroute();

    /// Goes on by that time. @return whether a maneuver was passed.
    bool step(uint32_t milliseconds);

    GuidanceState state() const { return mState; }
    bool guiding() const { return mState == GuidanceState::kGuiding || mState == GuidanceState::kRerouting; }
    const RoutePlan& plan() const { return mPlan; }

    /// The maneuver that comes next; the last one after the arrival.
    size_t nextManeuver() const { return mNext; }
    uint32_t distanceToNext() const { return static_cast<uint32_t>(mToNext / 1000); }  ///< metres
    uint32_t distanceRemaining() const;                                                ///< metres
    uint32_t timeRemaining() const;                                                    ///< seconds
    ManeuverState maneuverState() const;
    const std::string& currentRoad() const;

  private:
    RoutePlan mPlan;
    GuidanceState mState = GuidanceState::kNoRoute;
    size_t mNext = 0;
    uint64_t mToNext = 0;  ///< millimetres
};

/// A distance for people: "250 m", "1.4 km".
struct DisplayDistance {
    std::string text;
    int32_t units;  ///< 0 kilometres, 2 metres
};
DisplayDistance displayDistance(uint32_t metres);

}  // namespace accessory::simulator
