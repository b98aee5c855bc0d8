// Reading scenarios: files, their sections, and the reference of all their fields.
#pragma once

#include <string>
#include <vector>

#include "simulator/scenario/Fields.h"
#include "simulator/scenario/Scenario.h"

namespace accessory::simulator {

/// @param name how problems call the text.
/// @return the problems, "file:line: field: what is wrong, what is expected"; none when @p scenario was
/// filled in.
std::vector<std::string> readScenario(const std::string& name, const std::string& text, Scenario* scenario);

/// As readScenario(), of a file.
std::vector<std::string> readScenarioFile(const std::string& path, Scenario* scenario);

/// Every field of a scenario file with its type, range, usual value and meaning.
std::string scenarioReference();

// The sections, for reading and for describing.
void readDevice(Fields& fields, DeviceProfile* device);
void readLibrary(Fields& fields, MediaLibrary* library);
void readRoute(Fields& fields, RoutePlan* route);
void readTrack(Fields& fields, Track* track);
void readNetwork(Fields& fields, Network* network);
void readPower(Fields& fields, PowerState* power);
void readCarPlay(Fields& fields, CarPlayProfile* carPlay);
void readClock(Fields& fields, ClockReading* clock);
/// @param devices those that the step may name. @return false when the step cannot be used.
bool readStep(Fields& fields, const std::vector<DeviceProfile>& devices, Step* step);

}  // namespace accessory::simulator
