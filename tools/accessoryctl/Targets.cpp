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

/// An operation without its interface, when only one has it.
Target unqualified(const std::string& name) {
    std::vector<Target> found;
    std::vector<std::string> qualified;
    for (const Interface* each : tools::allInterfaces()) {
        auto operations = tools::findOperations(*each, name);
        if (operations.empty()) continue;
        qualified.push_back(each->name + "." + operations.front()->name);
        found.push_back({each, std::move(operations)});
    }
    if (found.size() == 1) return found.front();
    if (found.empty()) interfaceCalled(name);
    throw Failure(kWrongUsage,
                  "'" + name + "' is an operation of several interfaces: " + joined(qualified, ", "),
                  "accessoryctl describe " + qualified.front());
}

}  // namespace

Target targetOf(const std::string& word) {
    if (const Interface* const whole = tools::findInterface(word)) return {whole, {}};
    const size_t dot = word.rfind('.');
    if (dot == std::string::npos) return unqualified(word);
    const Interface& interface = interfaceCalled(word.substr(0, dot));
    const std::string name = word.substr(dot + 1);
    auto operations = tools::findOperations(interface, name);
    if (!operations.empty()) return {&interface, std::move(operations)};
    const std::string meant = nearest(name, operationNames(interface));
    throw Failure(kWrongUsage,
                  interface.name + " has no operation '" + name + "'" +
                      (meant.empty() ? "" : "; did you mean '" + meant + "'?"),
                  "accessoryctl describe " + interface.name + (meant.empty() ? "" : "." + meant));
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
