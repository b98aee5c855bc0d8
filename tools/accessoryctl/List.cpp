// list: the services of the runtime and their processes.
#include "tools/accessoryctl/RuntimeView.h"
#include "tools/accessoryctl/Text.h"
#include "tools/accessoryctl/Verbs.h"
#include "tools/rows/Operation.h"

namespace accessory::ctl {

namespace {

Json::Value serviceToJson(const ServiceEntry& service) {
    Json::Value object;
    object["name"] = service.name;
    object["alive"] = service.isAlive();
    object["pid"] = service.isAlive() ? Json::Value(service.owner) : Json::Value();
    const tools::Interface* const interface = tools::findInterface(service.name);
    object["interface"] = interface != nullptr ? Json::Value(interface->name) : Json::Value();
    return object;
}

}  // namespace

int list(const Options& options) {
    const std::vector<ServiceEntry> services = servicesIn(runtimeFolder().path);
    std::vector<std::vector<std::string>> rows = {{"SERVICE", "PID", "ALIVE"}};
    for (const ServiceEntry& service : services) {
        const std::string pid = service.isAlive() ? std::to_string(service.owner) : "-";
        rows.push_back({service.name, pid, service.isAlive() ? "yes" : "no"});
        if (options.json) print(options, "service", serviceToJson(service), "");
    }
    if (options.json) return kDone;
    print(options, "", {},
          services.empty() ? "no services in " + runtimeFolder().path + "\n" : columns(rows));
    return kDone;
}

}  // namespace accessory::ctl
