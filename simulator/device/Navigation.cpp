#include "simulator/device/Navigation.h"

#include <algorithm>

#include "simulator/Text.h"
#include "simulator/device/NavigationRecords.h"

namespace accessory::simulator {

namespace {

constexpr milliseconds kStepTime{1000};

}  // namespace

Navigation::Navigation(Stage& stage, unsigned int id, const DeviceProfile& profile)
    : Feature(stage, id), mProfile(profile), mTick(stage) {}

void Navigation::reset() {
    mTick.stop();
    mRoute.stop();
    mAsked.reset();
}

int Navigation::start(std::vector<uint16_t> displays, uint32_t fields) {
    mAsked = Asked{std::move(displays), fields};
    tellAll();
    return kDone;
}

int Navigation::stop(const std::vector<uint16_t>& displays) {
    if (!mAsked) return kWrongState;
    std::vector<uint16_t>& left = mAsked->displays;
    const auto goes = [&](uint16_t display) {
        return std::find(displays.begin(), displays.end(), display) != displays.end();
    };
    left.erase(std::remove_if(left.begin(), left.end(), goes), left.end());
    if (displays.empty() || left.empty()) mAsked.reset();
    return kDone;
}

bool Navigation::startRoute(const std::string& name) {
    const auto found = std::find_if(mProfile.routes.begin(), mProfile.routes.end(),
                                    [&](const RoutePlan& plan) { return name.empty() || plan.name == name; });
    if (found == mProfile.routes.end()) return false;
    mRoute.start(*found);
    tellAll();
    mTick.start(kStepTime, [this] { step(); });
    return true;
}

void Navigation::stopRoute() {
    mTick.stop();
    mRoute.stop();
    tellState();
}

void Navigation::reroute() {
    mRoute.reroute();
    tellState();
}

void Navigation::describe(std::string* out) const {
    appendLine(out, "  route: %s", nameOf(mRoute.state()));
    if (mRoute.guiding())
        appendLine(out, "    to %s, %u m left, %u m to maneuver %zu of %zu",
                   quoted(mRoute.plan().destination).c_str(), mRoute.distanceRemaining(),
                   mRoute.distanceToNext(), mRoute.nextManeuver() + 1, mRoute.plan().maneuvers.size());
    if (mAsked)
        appendLine(out, "  route guidance: asked for by %zu displays, fields 0x%x", mAsked->displays.size(),
                   mAsked->fields);
}

void Navigation::step() {
    const bool passed = mRoute.step(static_cast<uint32_t>(kStepTime.count()));
    if (passed) tellManeuver(mRoute.nextManeuver());
    tellState();
    if (mRoute.guiding()) mTick.start(kStepTime, [this] { step(); });
}

void Navigation::tellAll() {
    tellState();
    if (!mRoute.guiding()) return;
    for (size_t i = mRoute.nextManeuver(); i < mRoute.plan().maneuvers.size(); ++i)
        tellManeuver(i);
}

void Navigation::tellState() {
    if (!mAsked) return;
    const uint64_t deviceTime = mProfile.clock.seconds + static_cast<uint64_t>(mStage.now().count() / 1000);
    tell([id = mId, view = GuidanceView(mRoute, deviceTime), asked = *mAsked](Clients& clients) {
        clients.RouteGuidanceUpdates(id, guidanceRecord(view, asked.displays, asked.fields));
    });
}

void Navigation::tellManeuver(size_t index) {
    if (!mAsked) return;
    const Maneuver& maneuver = mRoute.plan().maneuvers[index];
    tell([id = mId, maneuver, index, distance = displayDistance(maneuver.distance),
          asked = *mAsked](Clients& clients) {
        clients.RouteGuidanceManeuverUpdates(
            id, maneuverRecord(maneuver, static_cast<uint16_t>(index), distance, asked.displays));
    });
    tellLanes(index);
}

void Navigation::tellLanes(size_t index) {
    const LaneGuidance& lanes = mRoute.plan().maneuvers[index].lanes;
    if (lanes.lanes.empty()) return;
    tell([id = mId, lanes, index, asked = *mAsked](Clients& clients) {
        clients.LaneGuidanceInformation(id, laneRecord(lanes, static_cast<uint16_t>(index), asked.displays));
    });
}

}  // namespace accessory::simulator
