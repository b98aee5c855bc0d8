// describe: what the interfaces, their operations and the fields of one are, from the rows.
#include "tools/accessoryctl/Examples.h"
#include "tools/accessoryctl/Targets.h"
#include "tools/accessoryctl/Text.h"
#include "tools/accessoryctl/Verbs.h"
#include "tools/capture/Decode.h"

namespace accessory::ctl {

using tools::FieldDescription;
using tools::Interface;
using tools::Operation;

namespace {

Json::Value fieldToJson(const FieldDescription& field) {
    Json::Value object;
    object["name"] = field.name;
    object["expects"] = field.expects;
    if (!field.kind.empty()) {
        object["kind"] = field.kind;
        object["in"] = field.inReply ? "reply" : "request";
    }
    if (field.nullable) object["nullable"] = true;
    if (!field.inReply) object["example"] = field.example;
    for (const std::string& choice : field.choices)
        object["bits"].append(choice);
    for (const FieldDescription& member : field.members)
        object["members"].append(fieldToJson(member));
    return object;
}

Json::Value operationToJson(const Interface& interface, const Operation& operation) {
    Json::Value object;
    object["interface"] = interface.name;
    object["descriptor"] = interface.descriptor;
    object["operation"] = operation.name;
    object["code"] = operation.code;
    object["notifier"] = interface.isNotifier;
    object["replyHasHeader"] = interface.replyHasHeader;
    object["onlySent"] = operation.onlySent;
    object["result"] = operation.result;
    object["fields"] = Json::Value(Json::arrayValue);
    for (const FieldDescription& field : operation.fields)
        object["fields"].append(fieldToJson(field));
    return object;
}

std::string signature(const Operation& operation) {
    std::vector<std::string> asked;
    std::vector<std::string> answered;
    for (const FieldDescription& field : operation.fields)
        (field.inReply ? answered : asked).push_back(field.name);
    return "(" + joined(asked, ", ") + ")" + (answered.empty() ? "" : " -> " + joined(answered, ", "));
}

void addFieldRows(const std::string& path, const FieldDescription& field,
                  std::vector<std::vector<std::string>>* rows) {
    const std::string kind =
        field.kind.empty() ? "member" : field.kind + (field.inReply ? ", in the reply" : "");
    rows->push_back({"  " + path, kind, field.expects});
    if (!field.choices.empty()) rows->push_back({"", "", "bits: " + joined(field.choices, " ")});
    if (field.shape != tools::Shape::kStructure) return;
    for (const FieldDescription& member : field.members)
        addFieldRows(path + "." + member.name, member, rows);
}

std::string operationText(const Interface& interface, const Operation& operation) {
    std::string text = bold(interface.name + "." + operation.name) + "  code " +
                       std::to_string(operation.code) + ", gives " + operation.result +
                       (interface.replyHasHeader ? "" : ", no header in the reply") + "\n";
    if (operation.onlySent) text += "  Only sent: a service takes it for the other form of this operation.\n";
    std::vector<std::vector<std::string>> rows;
    for (const FieldDescription& field : operation.fields)
        addFieldRows(field.name, field, &rows);
    text += columns(rows);
    if (!interface.isNotifier) return text + "  " + exampleCall(interface, operation) + "\n";
    return text + "  accessoryctl watch " + operation.name + "\n";
}

int describeAll(const Options& options) {
    std::vector<std::vector<std::string>> rows = {{"INTERFACE", "DESCRIPTOR", "OPERATIONS"}};
    for (const Interface* each : tools::allInterfaces()) {
        Json::Value object;
        object["interface"] = each->name;
        object["descriptor"] = each->descriptor;
        object["notifier"] = each->isNotifier;
        object["replyHasHeader"] = each->replyHasHeader;
        object["operations"] = static_cast<Json::UInt64>(each->operations.size());
        rows.push_back({each->name, each->descriptor, std::to_string(each->operations.size())});
        print(options, "interface", object, "");
    }
    Json::Value tables;
    tables["digest"] = tools::tablesDigest();
    print(options, "tables", tables, columns(rows) + "tables " + tools::tablesDigest() + "\n");
    return kDone;
}

int describeInterface(const Options& options, const Interface& interface) {
    std::vector<std::vector<std::string>> rows = {{"CODE", "OPERATION"}};
    for (const auto& each : interface.operations) {
        rows.push_back({std::to_string(each->code), each->name + signature(*each)});
        print(options, "operation", operationToJson(interface, *each), "");
    }
    if (!options.json) print(options, "", {}, columns(rows));
    return kDone;
}

}  // namespace

int describe(const Options& options, const std::string& word) {
    if (word.empty()) return describeAll(options);
    for (const Target& target : targetsOf(word, {"describe", {}})) {
        if (target.operations.empty()) return describeInterface(options, *target.interface);
        for (const Operation* each : target.operations) {
            print(options, "operation", operationToJson(*target.interface, *each),
                  operationText(*target.interface, *each));
        }
    }
    return kDone;
}

}  // namespace accessory::ctl
