// Scenario: the devices of a simulation and what happens to them.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "simulator/device/Profile.h"
#include "simulator/faults/Fault.h"

namespace accessory::simulator {

class Device;

/// One entry of the timeline.
struct Step {
    std::chrono::milliseconds at{0};
    uint32_t device = 0;  ///< identifier
    std::string action;
    bool needsAttached = true;  ///< left out while the device is not attached
    std::function<void(Device&)> run;
};

struct Scenario {
    std::string name;
    std::string description;
    std::string version = "1.0";            ///< what getVersion() answers
    bool beginsAtOnce = false;              ///< else with the first startup()
    std::chrono::milliseconds duration{0};  ///< not before the last step
    uint32_t seed = 1;
    std::vector<DeviceProfile> devices;  ///< at most 10, with identifiers that differ
    std::vector<Step> timeline;          ///< in the order of their times
    std::vector<Fault> faults;
};

}  // namespace accessory::simulator
