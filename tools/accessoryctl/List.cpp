// list: the services of the runtime and their processes.
#include "tools/accessoryctl/FolderState.h"
#include "tools/accessoryctl/RuntimeView.h"
#include "tools/accessoryctl/Text.h"
#include "tools/accessoryctl/Verbs.h"
#include "tools/rows/Operation.h"

namespace accessory::ctl {

namespace {

Json::Value serviceToJson(const ServiceEntry& service) {
    Json::Value object;
    object["name"] = service.name;
    object["alive"] = service.isAlive;
    object["pid"] = service.owner != 0 ? Json::Value(service.owner) : Json::Value();
    const tools::Interface* const interface = tools::findInterface(service.name);
    object["interface"] = interface != nullptr ? Json::Value(interface->name) : Json::Value();
    return object;
}

std::string tableOf(const std::vector<ServiceEntry>& services) {
    std::vector<std::vector<std::string>> rows = {{"SERVICE", "PID", "ALIVE"}};
    bool anyEnded = false;
    for (const ServiceEntry& service : services) {
        const std::string pid = service.owner != 0 ? std::to_string(service.owner) : "-";
        rows.push_back({service.name, pid, service.isAlive ? "yes" : "no"});
        anyEnded = anyEnded || !service.isAlive;
    }
    const char* const note =
        "no: its process has ended; the next one that offers the service takes its place\n";
    return columns(rows) + (anyEnded ? note : "");
}

}  // namespace

int list(const Options& options) {
    requireUsableFolder();
    const std::vector<ServiceEntry> services = servicesIn(runtimeFolder().path);
    if (options.json) {
        for (const ServiceEntry& service : services)
            print(options, "service", serviceToJson(service), "");
        return kDone;
    }
    const std::string none = "no services in " + runtimeFolder().path + "\n";
    print(options, "", {}, services.empty() ? none : tableOf(services));
    return kDone;
}

}  // namespace accessory::ctl
