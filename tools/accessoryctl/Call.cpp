// call: one request, transacted as it is, so that a dead service and a result of 0 are not the same.
#include <algorithm>

#include "tools/accessoryctl/Arguments.h"
#include "tools/accessoryctl/BinderCalls.h"
#include "tools/accessoryctl/Text.h"
#include "tools/accessoryctl/Verbs.h"

namespace accessory::ctl {

namespace {

/// " (INVALID_OPERATION)" for a result that is the number of a status. -1 is the number of one, too, but
/// stands for failures of every sort.
std::string resultName(const Json::Value& result) {
    if (!result.isInt() || result.asInt() >= -1) return "";
    const std::string name = statusName(result.asInt());
    return name.rfind("status ", 0) == 0 ? "" : " (" + name + ")";
}

std::string readableReply(const tools::Operation& operation, const Json::Value& reply) {
    std::vector<std::vector<std::string>> rows;
    for (const tools::FieldDescription& field : operation.fields) {
        if (field.inReply) rows.push_back({field.name, readable(reply[field.name])});
    }
    rows.push_back({"result", readable(reply["result"]) + resultName(reply["result"])});
    return columns(rows);
}

/// Results are numbers below 0 when an operation failed.
bool succeeded(const Json::Value& reply) { return !reply["result"].isInt() || reply["result"].asInt() >= 0; }

int show(const Options& options, const Request& request, const android::Parcel& reply) {
    const tools::Interface& interface = *request.interface;
    Json::Value object;
    object["interface"] = interface.name;
    object["operation"] = request.operation->name;
    object["code"] = request.operation->code;
    object["status"] = statusName(android::NO_ERROR);
    try {
        object["reply"] = request.operation->decodeReply(reply);
    } catch (const tools::UndecodableParcel& error) {
        throw Failure(kFailed, interface.name + "." + request.operation->name + ": " + error.what());
    }
    print(options, "reply", object, readableReply(*request.operation, object["reply"]));
    return succeeded(object["reply"]) ? kDone : kFailed;
}

/// Those that a service has.
std::vector<Target> servedTargets(const std::string& word, const std::vector<std::string>& words) {
    std::vector<Target> targets = targetsOf(word, {"call", words});
    const Target first = targets.front();
    if (first.operations.empty()) {
        throw Failure(kWrongUsage, "'" + word + "' names no operation",
                      "accessoryctl describe " + first.interface->name);
    }
    const auto isNotifiers = [](const Target& target) { return target.interface->isNotifier; };
    targets.erase(std::remove_if(targets.begin(), targets.end(), isNotifiers), targets.end());
    if (!targets.empty()) return targets;
    throw Failure(kWrongUsage, first.interface->name + " is what clients implement; nothing serves it",
                  "accessoryctl watch " + first.operations[0]->name);
}

}  // namespace

int call(const Options& options, const std::string& word, const std::vector<std::string>& words) {
    const Request request = requestOf(servedTargets(word, words), words);
    const std::string what = request.interface->descriptor;
    const auto outcome =
        transact(options, reach(options, what), request.operation->code, what,
                 [&request](android::Parcel* data) { request.operation->encode(request.arguments, data); });
    if (outcome->status != android::NO_ERROR) throw transportFailure(what, outcome->status);
    return show(options, request, outcome->reply);
}

}  // namespace accessory::ctl
