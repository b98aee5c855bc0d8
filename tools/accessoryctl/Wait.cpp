// wait: until a service is there.
#include <binder/IServiceManager.h>

#include <algorithm>

#include "tools/accessoryctl/BinderCalls.h"
#include "tools/accessoryctl/FolderState.h"
#include "tools/accessoryctl/Targets.h"
#include "tools/accessoryctl/Verbs.h"

namespace accessory::ctl {

namespace {

/// Whether the runtime lets a service be called so.
bool isUsable(const std::string& name) {
    constexpr size_t kLongest = 127;
    const auto isGraphic = [](char c) { return c > ' ' && c <= '~' && c != '/'; };
    return !name.empty() && name.size() <= kLongest && std::all_of(name.begin(), name.end(), isGraphic);
}

}  // namespace

int wait(const Options& options, const std::string& name) {
    const std::string service = serviceCalled(name);
    if (!isUsable(service)) {
        throw Failure(kWrongUsage, "no service can be called '" + service + "'", "accessoryctl list");
    }
    requireUsableFolder();
    try {
        within(options, service, [service] {
            const android::String16 wide(service.c_str());
            while (android::defaultServiceManager()->getService(wide) == nullptr) {
            }
        });
    } catch (const Failure& failure) {
        if (failure.status != kTimedOut) throw;
        throw Failure(kTimedOut, "the service " + service + " did not appear in time", "accessoryctl list");
    }
    Json::Value object;
    object["service"] = service;
    print(options, "present", object, service + " is there\n");
    return kDone;
}

}  // namespace accessory::ctl
