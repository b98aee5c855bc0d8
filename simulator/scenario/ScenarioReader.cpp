#include "simulator/scenario/ScenarioReader.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

namespace accessory::simulator {

namespace {

constexpr size_t kMostDevices = 10;

void readFault(Fields& fields, Fault* fault) {
    fields.requiredText(
        "operation", &fault->operation,
        "The operation's name, e.g. AcceptCall or AppleUSBAudioManager.startup, or * for all.");
    if (!fields.describing() && !fault->operation.empty() && !isOperation(fault->operation))
        fields.fail("operation", "names no operation; expected one such as AcceptCall, or *");
    fields.choice("kind", &fault->kind,
                  {{"delay", FaultKind::kDelay},
                   {"error", FaultKind::kError},
                   {"empty", FaultKind::kEmpty},
                   {"die", FaultKind::kDie}},
                  "What happens: a late answer, an error status, a reply without result, the process's end.");
    fault->value = usualValue(fault->kind);
    fields.number(
        "value", &fault->value,
        "Milliseconds of a delay (default 1000), status of an error, exit status of an end (default 1).");
    fields.number("call", &fault->call, "Only that call of the operation, from 1; 0: any.");
    fields.number("every", &fault->every, "Only every so many calls; 0: any.");
    if (fault->kind == FaultKind::kDelay && fault->value < 0)
        fields.fail("value", "is negative; expected the delay in milliseconds");
}

void checkDevices(Fields& fields, const std::vector<DeviceProfile>& devices) {
    if (devices.empty()) fields.fail("devices", "is empty or missing; expected 1 to 10 devices");
    if (devices.size() > kMostDevices) fields.fail("devices", "has too many; expected at most 10 devices");
    std::set<uint32_t> ids;
    std::set<uint32_t> endpoints;
    for (const DeviceProfile& device : devices) {
        if (!ids.insert(device.id).second)
            fields.fail("devices", "has two devices of the id " + std::to_string(device.id) +
                                       "; expected ids that differ");
        if (device.usbAudio.id != 0 && !endpoints.insert(device.usbAudio.id).second)
            fields.fail("devices", "has two USB audio endpoints of the id " +
                                       std::to_string(device.usbAudio.id) + "; expected ids that differ");
    }
}

void readTimeline(Fields& fields, Scenario* scenario) {
    fields.list(
        "timeline",
        [&](Fields& entry) {
            Step step;
            if (readStep(entry, scenario->devices, &step)) scenario->timeline.push_back(std::move(step));
        },
        "What happens, each entry at its time.");
    const auto earlier = [](const Step& one, const Step& other) { return one.at < other.at; };
    std::stable_sort(scenario->timeline.begin(), scenario->timeline.end(), earlier);
    if (!scenario->timeline.empty())
        scenario->duration = std::max(scenario->duration, scenario->timeline.back().at);
}

void readAll(Fields& fields, Scenario* scenario) {
    fields.requiredText("name", &scenario->name, "What the scenario is called.");
    fields.text("description", &scenario->description, "One line about it, for --list.");
    fields.text("version", &scenario->version, "What getVersion() answers.");
    fields.choice("begin", &scenario->beginsAtOnce, {{"startup", false}, {"at once", true}},
                  "When the timeline begins: with the first startup(), or with the simulator.");
    int64_t duration = 0;
    fields.seconds("duration", &duration,
                   "Seconds from the beginning of the timeline to its end; at least to its last entry.");
    scenario->duration = std::chrono::milliseconds(duration);
    fields.number("seed", &scenario->seed, "Of all that is left to chance.");
    fields.list(
        "devices", [&](Fields& entry) { readDevice(entry, &scenario->devices.emplace_back()); },
        "1 to 10 devices.");
    checkDevices(fields, scenario->devices);
    readTimeline(fields, scenario);
    fields.list(
        "faults", [&](Fields& entry) { readFault(entry, &scenario->faults.emplace_back()); },
        "Mishaps on demand.");
    fields.rejectOthers();
}

}  // namespace

std::vector<std::string> readScenario(const std::string& name, const std::string& text, Scenario* scenario) {
    Document document(name, text);
    Json::Value root;
    if (!document.parse(&root)) return document.problems();
    if (!root.isObject()) {
        document.addProblem(0, "", R"(the file holds no object; expected { "name": ..., "devices": [...] })");
        return document.problems();
    }
    *scenario = Scenario();
    Fields fields(document, root, "");
    readAll(fields, scenario);
    return document.problems();
}

std::vector<std::string> readScenarioFile(const std::string& path, Scenario* scenario) {
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    if (!file) return {path + ": the file cannot be read; expected a scenario, see --list"};
    return readScenario(path, text.str(), scenario);
}

std::string scenarioReference() {
    std::string reference;
    Scenario scenario;
    Fields fields(&reference, 0);
    readAll(fields, &scenario);
    return reference;
}

}  // namespace accessory::simulator
