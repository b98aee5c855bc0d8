#include "tools/accessoryctl/EventFilter.h"

#include <algorithm>

#include "tools/accessoryctl/Failure.h"
#include "tools/accessoryctl/Targets.h"
#include "tools/accessoryctl/Text.h"
#include "tools/rows/Values.h"

namespace accessory::ctl {

using tools::FieldDescription;
using tools::Interface;
using tools::Operation;

namespace {

std::vector<const Interface*> allNotifiers() {
    std::vector<const Interface*> notifiers;
    for (const Interface* each : tools::allInterfaces()) {
        if (each->isNotifier) notifiers.push_back(each);
    }
    return notifiers;
}

std::vector<const Operation*> allEvents(const Interface& notifier) {
    std::vector<const Operation*> events;
    for (const auto& each : notifier.operations)
        events.push_back(each.get());
    return events;
}

[[noreturn]] void refuseEvent(const std::string& word) {
    std::vector<std::string> names;
    for (const Interface* each : allNotifiers()) {
        for (const std::string& name : operationNames(*each))
            names.push_back(name);
    }
    const std::string meant = nearest(word, names);
    throw Failure(
        kWrongUsage,
        "there is no event '" + word + "'" + (meant.empty() ? "" : "; did you mean '" + meant + "'?"),
        meant.empty() ? "accessoryctl describe IAppleiAP2ManagerNotifier" : "accessoryctl watch " + meant);
}

std::vector<std::string> cutAtDots(const std::string& path) {
    std::vector<std::string> parts;
    for (size_t begin = 0; begin <= path.size();) {
        const size_t dot = std::min(path.find('.', begin), path.size());
        parts.push_back(path.substr(begin, dot - begin));
        begin = dot + 1;
    }
    return parts;
}

/// Null when there is none; the list, for what would be in the entries of a list.
const FieldDescription* fieldAt(const std::vector<FieldDescription>& fields,
                                const std::vector<std::string>& path, size_t at = 0) {
    for (const FieldDescription& field : fields) {
        if (field.name != path[at]) continue;
        const bool isWhole = at + 1 == path.size() || field.members.empty();
        return isWhole ? &field : fieldAt(field.members, path, at + 1);
    }
    return nullptr;
}

/// Whether such a field can have a value that is typed so. Texts may be anything.
bool canBe(const FieldDescription& field, const std::string& typed) {
    if (typed == "null") return true;
    if (field.shape == tools::Shape::kNumber) return tools::numberOfText(typed).isNumeric();
    return field.shape != tools::Shape::kTruth || typed == "true" || typed == "false";
}

/// Whether a value is what somebody typed for it.
bool isTyped(const Json::Value& value, const std::string& typed) {
    if (value.isString()) return value.asString() == typed;
    if (value.isObject() && value["hex"].isString()) return tools::sameName(value["hex"].asString(), typed);
    return tools::compactJson(value) == tools::compactJson(tools::numberOfText(typed)) ||
           tools::compactJson(value) == typed;
}

}  // namespace

EventFilter::EventFilter(const std::vector<std::string>& events, const std::vector<std::string>& where) {
    for (const std::string& word : events)
        addEvent(word);
    if (events.empty()) {
        for (const Interface* each : allNotifiers())
            addEvents(*each, allEvents(*each));
    }
    for (const std::string& word : where)
        addCondition(word, events);
}

void EventFilter::addEvent(const std::string& word) {
    if (const Interface* const whole = tools::findInterface(word); whole != nullptr && whole->isNotifier) {
        return addEvents(*whole, allEvents(*whole));
    }
    const size_t dot = word.rfind('.');
    const Interface* const only = dot != std::string::npos ? &interfaceCalled(word.substr(0, dot)) : nullptr;
    const std::string name = word.substr(dot != std::string::npos ? dot + 1 : 0);
    bool found = false;
    for (const Interface* each : allNotifiers()) {
        if (only != nullptr && only != each) continue;
        const auto events = tools::findOperations(*each, name);
        found = found || !events.empty();
        if (!events.empty()) addEvents(*each, events);
    }
    if (!found) refuseEvent(name);
}

void EventFilter::addEvents(const Interface& notifier, const std::vector<const Operation*>& events) {
    const bool known = std::find(mNotifiers.begin(), mNotifiers.end(), &notifier) != mNotifiers.end();
    if (!known) mNotifiers.push_back(&notifier);
    mEvents.insert(mEvents.end(), events.begin(), events.end());
}

void EventFilter::addCondition(const std::string& word, const std::vector<std::string>& events) {
    const size_t equals = word.find('=');
    if (equals == std::string::npos || equals == 0) {
        throw Failure(kWrongUsage, "--where expects field=value, got '" + word + "'",
                      "accessoryctl watch attach --where accId=1");
    }
    const std::string name = word.substr(0, equals);
    const Condition condition{cutAtDots(name), word.substr(equals + 1)};
    const auto fields = fieldsOf(condition);
    if (fields.empty()) {
        throw Failure(
            kWrongUsage, "none of the events has a field '" + name + "'",
            "accessoryctl describe " + mNotifiers[0]->name + (events.empty() ? "" : "." + mEvents[0]->name));
    }
    const auto fits = [&condition](auto* field) { return canBe(*field, condition.value); };
    if (std::none_of(fields.begin(), fields.end(), fits)) {
        const std::string right = name + "=" + tools::compactJson(fields[0]->example);
        throw Failure(
            kWrongUsage, name + " expects " + fields[0]->expects + ", got '" + condition.value + "'",
            "accessoryctl watch " + joined(events, " ") + (events.empty() ? "" : " ") + "--where " + right);
    }
    mConditions.push_back(condition);
}

std::vector<const FieldDescription*> EventFilter::fieldsOf(const Condition& condition) const {
    std::vector<const FieldDescription*> fields;
    for (const Operation* event : mEvents) {
        if (const auto* const field = fieldAt(event->fields, condition.path)) fields.push_back(field);
    }
    return fields;
}

bool EventFilter::wants(const Operation& event) const {
    return std::find(mEvents.begin(), mEvents.end(), &event) != mEvents.end();
}

bool EventFilter::holds(const Json::Value& arguments) const {
    return std::all_of(mConditions.begin(), mConditions.end(), [&arguments](const Condition& condition) {
        const Json::Value* value = &arguments;
        for (const std::string& name : condition.path) {
            value = value->isObject() ? value->find(name.data(), name.data() + name.size()) : nullptr;
            if (value == nullptr) return condition.value == "null";
        }
        return isTyped(*value, condition.value);
    });
}

}  // namespace accessory::ctl
