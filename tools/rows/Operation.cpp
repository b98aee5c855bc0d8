#include "tools/rows/Operation.h"

#include <strings.h>

#include <algorithm>

#include "tools/rows/Interfaces.h"

namespace accessory::tools {

const std::vector<const Interface*>& allInterfaces() {
    static const std::vector<const Interface*> all = {&accessoryManager(), &iap2Manager(), &iap2Notifier(),
                                                      &usbAudioManager(), &usbAudioNotifier()};
    return all;
}

bool sameName(const std::string& one, const std::string& other) {
    return strcasecmp(one.c_str(), other.c_str()) == 0;
}

const Interface* findInterface(const std::string& name) {
    const auto isMeant = [&name](const Interface* each) {
        return sameName(name, each->name) || sameName(name, each->name.substr(1)) ||
               sameName(name, each->descriptor);
    };
    const auto& all = allInterfaces();
    const auto found = std::find_if(all.begin(), all.end(), isMeant);
    return found != all.end() ? *found : nullptr;
}

std::vector<const Operation*> findOperations(const Interface& interface, const std::string& name) {
    std::vector<const Operation*> found;
    for (const auto& operation : interface.operations) {
        if (sameName(operation->name, name)) found.push_back(operation.get());
    }
    std::stable_partition(found.begin(), found.end(), [](const Operation* each) { return !each->onlySent; });
    return found;
}

const Operation* servedOperation(const Interface& interface, uint32_t code) {
    for (const auto& operation : interface.operations) {
        if (operation->code == code && !operation->onlySent) return operation.get();
    }
    return nullptr;
}

Json::Value exampleArguments(const Operation& operation) {
    Json::Value arguments(Json::objectValue);
    for (const FieldDescription& field : operation.fields) {
        if (!field.inReply) arguments[field.name] = field.example;
    }
    return arguments;
}

}  // namespace accessory::tools
