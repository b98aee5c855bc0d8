// The section "routes" of a device.
#include "simulator/scenario/ScenarioReader.h"

namespace accessory::simulator {

namespace {

void readLane(Fields& fields, Lane* lane) {
    fields.numbers("angles", &lane->angles, "Degrees, where the lane leads to; 0 is straight on, clockwise.");
    fields.flag("recommended", &lane->recommended, "Whether the way leads along it.");
    fields.number("highlighted", &lane->highlightedAngle, "Degrees; the angle that is to be taken.");
}

void readManeuver(Fields& fields, Maneuver* maneuver) {
    fields.requiredText("description", &maneuver->description, "What to do, for people.");
    fields.text("road", &maneuver->road, "The road after it.");
    fields.number("type", &maneuver->type, "Kind of maneuver.");
    fields.number("distance", &maneuver->distance, "Metres from the maneuver before it, or from the start.",
                  0, 1'000'000);
    fields.number("drivingSide", &maneuver->drivingSide, "0 right, 1 left.", 0, 1);
    fields.number("junctionType", &maneuver->junctionType, "0 junction, 1 roundabout.", 0, 1);
    fields.numbers("elementAngles", &maneuver->elementAngles, "Degrees, of the junction's roads.");
    fields.number("exitAngle", &maneuver->exitAngle, "Degrees, of the road to take.");
    fields.text("exitInfo", &maneuver->exitInfo, "Number or name of the exit.");
    fields.text("laneDescription", &maneuver->lanes.description, "What to do about lanes, for people.");
    fields.list(
        "lanes", [&](Fields& entry) { readLane(entry, &maneuver->lanes.lanes.emplace_back()); },
        "The lanes before it, from left to right.");
}

}  // namespace

void readRoute(Fields& fields, RoutePlan* route) {
    fields.requiredText("name", &route->name, "By which the timeline starts it.");
    fields.text("source", &route->source, "The application that guides.");
    fields.text("road", &route->road, "The road on which it begins.");
    fields.text("destination", &route->destination, "Where it leads.");
    fields.number("speed", &route->speed, "Metres per second.", 1, 100);
    fields.number("timeZoneMinutes", &route->timeZoneMinutes,
                  "Of the destination, minutes east of Greenwich.", -720, 840);
    fields.list(
        "maneuvers", [&](Fields& entry) { readManeuver(entry, &route->maneuvers.emplace_back()); },
        "In their order; the last one is the arrival.");
    if (route->maneuvers.empty())
        fields.fail("maneuvers", "is empty or missing; expected at least the arrival");
}

}  // namespace accessory::simulator
