// EventFilter: which events a watcher wants to see.
#pragma once

#include <string>
#include <vector>

#include "tools/rows/Operation.h"

namespace accessory::ctl {

/// Immutable; any thread may use it.
class EventFilter {
  public:
    /// @param events "event", which may be of several notifiers, or "Interface.event"; all when empty.
    /// @param where  "field=value" or "field.member=value".
    /// @throws Failure kWrongUsage for an unknown event, a field that none of the events has, or a value that
    /// it cannot have.
    EventFilter(const std::vector<std::string>& events, const std::vector<std::string>& where);

    /// The notifiers that must be registered.
    const std::vector<const tools::Interface*>& notifiers() const { return mNotifiers; }

    bool wants(const tools::Operation& event) const;
    /// Whether every condition holds for the arguments of an event that is wanted.
    bool holds(const Json::Value& arguments) const;
    bool hasConditions() const { return !mConditions.empty(); }

  private:
    struct Condition {
        std::vector<std::string> path;
        std::string value;
    };

    void addEvent(const std::string& word);
    void addEvents(const tools::Interface& notifier, const std::vector<const tools::Operation*>& events);
    void addCondition(const std::string& word, const std::vector<std::string>& events);
    /// What the condition is about, in the events that have it.
    std::vector<const tools::FieldDescription*> fieldsOf(const Condition& condition) const;

    std::vector<const tools::Interface*> mNotifiers;
    std::vector<const tools::Operation*> mEvents;
    std::vector<Condition> mConditions;
};

}  // namespace accessory::ctl
