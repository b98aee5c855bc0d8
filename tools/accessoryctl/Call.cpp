// call: one request, transacted as it is, so that a dead service and a result of 0 are not the same.
#include "tools/accessoryctl/Arguments.h"
#include "tools/accessoryctl/BinderCalls.h"
#include "tools/accessoryctl/Text.h"
#include "tools/accessoryctl/Verbs.h"

namespace accessory::ctl {

namespace {

std::string readableReply(const tools::Operation& operation, const Json::Value& reply) {
    std::vector<std::vector<std::string>> rows;
    for (const tools::FieldDescription& field : operation.fields) {
        if (field.inReply) rows.push_back({field.name, readable(reply[field.name])});
    }
    rows.push_back({"result", readable(reply["result"])});
    return columns(rows);
}

/// Results are numbers below 0 when an operation failed.
bool succeeded(const Json::Value& reply) { return !reply["result"].isInt() || reply["result"].asInt() >= 0; }

int show(const Options& options, const tools::Interface& interface, const Request& request,
         const android::Parcel& reply) {
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

}  // namespace

int call(const Options& options, const std::string& word, const std::vector<std::string>& words) {
    const Target target = targetOf(word);
    if (target.operations.empty()) {
        throw Failure(kWrongUsage, "'" + word + "' names no operation",
                      "accessoryctl describe " + target.interface->name);
    }
    if (target.interface->isNotifier) {
        throw Failure(kWrongUsage, target.interface->name + " is what clients implement; nothing serves it",
                      "accessoryctl watch " + target.operations[0]->name);
    }
    const Request request = requestOf(target, words);
    const std::string what = target.interface->descriptor;
    const auto outcome =
        transact(options, reach(options, what), request.operation->code, what,
                 [&request](android::Parcel* data) { request.operation->encode(request.arguments, data); });
    if (outcome->status != android::NO_ERROR) throw transportFailure(what, outcome->status);
    return show(options, *target.interface, request, outcome->reply);
}

}  // namespace accessory::ctl
