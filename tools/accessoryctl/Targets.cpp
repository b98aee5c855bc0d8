#include "tools/accessoryctl/Targets.h"

#include <algorithm>

#include "tools/accessoryctl/Failure.h"
#include "tools/accessoryctl/Text.h"

namespace accessory::ctl {

using tools::Interface;

const Interface& interfaceCalled(const std::string& name) {
    if (const Interface* const found = tools::findInterface(name)) return *found;
    std::vector<std::string> names;
    for (const Interface* each : tools::allInterfaces())
        names.push_back(each->name);
    throw Failure(kWrongUsage, "there is no interface '" + name + "'; there are " + joined(names, ", "),
                  "accessoryctl describe");
}

namespace {

std::string suggestion(const std::string& meant) {
    return meant.empty() ? "" : "; did you mean '" + meant + "'?";
}

[[noreturn]] void refuseWord(const std::string& word, const Around& around) {
    std::vector<std::string> names;
    for (const Interface* each : tools::allInterfaces()) {
        names.push_back(each->name);
        for (const std::string& name : operationNames(*each))
            names.push_back(name);
    }
    const std::string meant = nearest(word, names);
    throw Failure(kWrongUsage, "there is no operation or interface '" + word + "'" + suggestion(meant),
                  meant.empty() ? "accessoryctl describe" : commandLine(meant, around));
}

/// An operation without its interface.
std::vector<Target> unqualified(const std::string& name, const Around& around) {
    std::vector<Target> found;
    for (const Interface* each : tools::allInterfaces()) {
        auto operations = tools::findOperations(*each, name);
        if (!operations.empty()) found.push_back({each, std::move(operations)});
    }
    if (found.empty()) refuseWord(name, around);
    return found;
}

}  // namespace

std::string commandLine(const std::string& word, const Around& around) {
    std::string line = "accessoryctl " + around.verb + " " + shellWord(word);
    for (const std::string& each : around.behind)
        line += " " + shellWord(each);
    return line;
}

std::vector<Target> targetsOf(const std::string& word, const Around& around) {
    if (const Interface* const whole = tools::findInterface(word)) return {{whole, {}}};
    const size_t dot = word.rfind('.');
    if (dot == std::string::npos) return unqualified(word, around);
    const Interface& interface = interfaceCalled(word.substr(0, dot));
    const std::string name = word.substr(dot + 1);
    auto operations = tools::findOperations(interface, name);
    if (!operations.empty()) return {{&interface, std::move(operations)}};
    const std::string meant = nearest(name, operationNames(interface));
    throw Failure(kWrongUsage, interface.name + " has no operation '" + name + "'" + suggestion(meant),
                  meant.empty() ? "accessoryctl describe " + interface.name
                                : commandLine(interface.name + "." + meant, around));
}

std::string serviceCalled(const std::string& name) {
    const Interface* const found = tools::findInterface(name);
    return found != nullptr ? found->descriptor : name;
}

std::vector<std::string> operationNames(const Interface& interface) {
    std::vector<std::string> names;
    for (const auto& operation : interface.operations) {
        if (std::find(names.begin(), names.end(), operation->name) == names.end()) {
            names.push_back(operation->name);
        }
    }
    return names;
}

}  // namespace accessory::ctl
