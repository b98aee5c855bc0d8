// A fuzz target for scenario files: any text is a scenario whose numbers are in their ranges, or has
// problems.
#include <algorithm>
#include <cstdlib>
#include <string>

#include "simulator/scenario/ScenarioReader.h"

namespace {

using namespace accessory::simulator;

constexpr char kName[] = "input";

bool isSound(const DeviceProfile& device) {
    const auto coloured = [](const Application& each) { return each.iconColour <= 0xffffff; };
    return device.id != 0 && !device.name.empty() && device.network.signalStrength <= 5 &&
           device.network.registrationStatus <= 4 && device.power.chargeLevel >= 0 &&
           device.power.chargeLevel <= 100 && !device.usbAudio.sampleRates.empty() &&
           std::all_of(device.applications.begin(), device.applications.end(), coloured);
}

bool isSound(const Scenario& scenario) {
    const auto earlier = [](const Step& one, const Step& other) { return one.at < other.at; };
    const auto& devices = scenario.devices;
    const auto& steps = scenario.timeline;
    return !scenario.name.empty() && !devices.empty() && devices.size() <= 10 &&
           std::all_of(devices.begin(), devices.end(), [](const auto& each) { return isSound(each); }) &&
           std::is_sorted(steps.begin(), steps.end(), earlier) &&
           (steps.empty() || steps.back().at <= scenario.duration);
}

bool isAboutTheInput(const std::string& problem) { return problem.rfind(std::string(kName) + ':', 0) == 0; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Scenario scenario;
    const auto problems = readScenario(kName, std::string(data, data + size), &scenario);
    const bool good =
        problems.empty() ? isSound(scenario) : std::all_of(problems.begin(), problems.end(), isAboutTheInput);
    if (!good) std::abort();
    return 0;
}
