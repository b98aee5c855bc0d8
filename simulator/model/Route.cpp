#include "simulator/model/Route.h"

#include <cstdio>

namespace accessory::simulator {

namespace {

// Where a driver is told to get ready, and to act.
constexpr uint32_t kPrepareMetres = 400;
constexpr uint32_t kExecuteMetres = 60;

}  // namespace

void Route::start(const RoutePlan& plan) {
    mPlan = plan;
    mState = GuidanceState::kGuiding;
    mNext = 0;
    mToNext = uint64_t{1000} * plan.maneuvers.front().distance;
}

void Route::stop() { *this = Route(); }

void Route::reroute() {
    if (mState == GuidanceState::kGuiding) mState = GuidanceState::kRerouting;
}

bool Route::step(uint32_t milliseconds) {
    if (!guiding()) return false;
    mState = GuidanceState::kGuiding;
    uint64_t way = uint64_t{mPlan.speed} * milliseconds;
    bool passed = false;
    while (way >= mToNext && mNext + 1 < mPlan.maneuvers.size()) {
        way -= mToNext;
        mToNext = uint64_t{1000} * mPlan.maneuvers[++mNext].distance;
        passed = true;
    }
    if (way >= mToNext) mState = GuidanceState::kArrived;
    mToNext -= std::min(way, mToNext);
    return passed;
}

uint32_t Route::distanceRemaining() const {
    uint32_t metres = distanceToNext();
    for (size_t i = mNext + 1; i < mPlan.maneuvers.size(); ++i)
        metres += mPlan.maneuvers[i].distance;
    return metres;
}

uint32_t Route::timeRemaining() const { return mPlan.speed == 0 ? 0 : distanceRemaining() / mPlan.speed; }

ManeuverState Route::maneuverState() const {
    if (distanceToNext() <= kExecuteMetres) return ManeuverState::kExecute;
    if (distanceToNext() <= kPrepareMetres) return ManeuverState::kPrepare;
    return mNext == 0 ? ManeuverState::kInitial : ManeuverState::kContinue;
}

const std::string& Route::currentRoad() const {
    return mNext == 0 ? mPlan.road : mPlan.maneuvers[mNext - 1].road;
}

DisplayDistance displayDistance(uint32_t metres) {
    char text[24];
    if (metres < 1000) {
        snprintf(text, sizeof(text), "%u m", metres);
        return {text, 2};
    }
    snprintf(text, sizeof(text), "%u.%u km", metres / 1000, metres % 1000 / 100);
    return {text, 0};
}

}  // namespace accessory::simulator
