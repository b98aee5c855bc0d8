// Ready-made scenarios: where they lie, and finding one by its name.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace accessory::simulator {

/// The folders in which they are looked for, in this order: $ACCESSORY_SCENARIO_DIR, the folder of the
/// installation, the folder of the sources.
std::vector<std::string> scenarioFolders();

/// The file that is meant: @p name itself when it has a slash or ends in .json, else name.json in the first
/// folder that has it. None when there is no such file.
std::optional<std::string> findScenario(const std::string& name);

/// The files of all ready-made scenarios, by name; a name that several folders have once.
std::vector<std::string> listScenarios();

}  // namespace accessory::simulator
