// Structures field by field: what a member is called, and how its value becomes JSON and comes back.
//
// A member class has describe(), get() and set(). get() gives null for what is absent, which is then left
// out; set() is called with null for what was not given.
#pragma once

#include <tuple>
#include <utility>

#include "tools/rows/BasicDescriptions.h"
#include "tools/rows/Keeper.h"

namespace accessory::tools {

/// A number or truth value; 0 or false when it is not given.
template <typename Structure, typename T>
struct ScalarMember {
    const char* name;
    T Structure::*place;

    FieldDescription describe(unsigned position) const { return describeScalar<T>(name, position); }
    Json::Value get(const Structure& from) const { return Scalar<T>::toJson(from.*place); }
    void set(Structure* to, const Json::Value& value, const std::string& where, Keeper* /*keeper*/) const {
        if (!value.isNull()) to->*place = Scalar<T>::fromJson(value, where);
    }
};

/// A number or truth value behind a pointer that is null when it is absent.
template <typename Structure, typename T>
struct OptionalScalarMember {
    const char* name;
    const T* Structure::*place;

    FieldDescription describe(unsigned position) const {
        FieldDescription made = describeScalar<T>(name, position);
        made.expects += " or null";
        made.nullable = true;
        return made;
    }
    Json::Value get(const Structure& from) const {
        return from.*place != nullptr ? Scalar<T>::toJson(*(from.*place)) : Json::Value();
    }
    void set(Structure* to, const Json::Value& value, const std::string& where, Keeper* keeper) const {
        if (!value.isNull()) to->*place = keeper->keep(Scalar<T>::fromJson(value, where));
    }
};

/// A string. One that is not nullable must be given: a null one would not be sent, and what follows it would
/// be misread.
template <typename Structure>
struct TextMember {
    const char* name;
    const char* Structure::*place;
    bool nullable;

    FieldDescription describe(unsigned /*position*/) const { return describeText(name, nullable); }
    Json::Value get(const Structure& from) const { return textToJson(from.*place); }
    void set(Structure* to, const Json::Value& value, const std::string& where, Keeper* keeper) const {
        if (!value.isNull() || !nullable) to->*place = keeper->keepText(text(value, where));
    }
};

/// A pointer to bytes, and their number.
template <typename Structure, typename Pointer, typename Count>
struct BytesMember {
    const char* name;
    Pointer Structure::*place;
    Count Structure::*count;

    FieldDescription describe(unsigned /*position*/) const { return describeBytes(name, 0, 4); }
    Json::Value get(const Structure& from) const {
        return from.*place != nullptr ? bytesToJson(from.*place, from.*count) : Json::Value();
    }
    void set(Structure* to, const Json::Value& value, const std::string& where, Keeper* keeper) const {
        if (value.isNull()) return;
        Bytes* const kept = keeper->keep(bytes(value, where));
        to->*place = kept->data();
        to->*count = static_cast<Count>(kept->size());
    }
};

template <typename Structure, typename T>
constexpr ScalarMember<Structure, T> member(const char* name, T Structure::*place) {
    return {name, place};
}
template <typename Structure, typename T>
constexpr OptionalScalarMember<Structure, T> member(const char* name, const T* Structure::*place) {
    return {name, place};
}
template <typename Structure>
constexpr TextMember<Structure> member(const char* name, const char* Structure::*place) {
    return {name, place, false};
}
template <typename Structure>
constexpr TextMember<Structure> optionalMember(const char* name, const char* Structure::*place) {
    return {name, place, true};
}
template <typename Structure, typename T>
constexpr OptionalScalarMember<Structure, T> optionalMember(const char* name, const T* Structure::*place) {
    return {name, place};
}
template <typename Structure, typename Pointer, typename Count>
constexpr BytesMember<Structure, Pointer, Count> member(const char* name, Pointer Structure::*place,
                                                        Count Structure::*count) {
    return {name, place, count};
}

/// "an object of type, destinationId, service".
inline std::string membersExpected(const std::vector<FieldDescription>& members) {
    std::string names;
    for (const FieldDescription& described : members)
        names += (names.empty() ? "" : ", ") + described.name;
    return "a structure of " + names;
}

template <typename Members>
std::vector<FieldDescription> describeMembers(const Members& members) {
    std::vector<FieldDescription> described;
    const auto add = [&](const auto& each) {
        described.push_back(each.describe(static_cast<unsigned>(described.size())));
    };
    std::apply([&add](const auto&... each) { (add(each), ...); }, members);
    return described;
}

template <typename Members>
FieldDescription describeStructure(const char* name, const Members& members, bool nullable = false) {
    FieldDescription made;
    made.name = name;
    made.shape = Shape::kStructure;
    made.members = describeMembers(members);
    made.expects = membersExpected(made.members) + (nullable ? ", or null" : "");
    made.nullable = nullable;
    made.example = Json::Value(Json::objectValue);
    for (const FieldDescription& each : made.members)
        made.example[each.name] = each.example;
    return made;
}

template <typename Structure, typename Members>
Json::Value structureToJson(const Structure& from, const Members& members) {
    Json::Value shown(Json::objectValue);
    const auto add = [&](const auto& each) {
        const Json::Value value = each.get(from);
        if (!value.isNull()) shown[each.name] = value;
    };
    std::apply([&add](const auto&... each) { (add(each), ...); }, members);
    return shown;
}

template <typename Structure, typename Members>
void structureFromJson(Structure* to, const Members& members, const Json::Value& value,
                       const std::string& where, Keeper* keeper) {
    std::vector<std::string> names;
    std::apply([&names](const auto&... each) { (names.emplace_back(each.name), ...); }, members);
    const Json::Value given = object(value, where, membersExpected(describeMembers(members)), names);
    const auto set = [&](const auto& each) {
        each.set(to, given[each.name], where + "." + each.name, keeper);
    };
    std::apply([&set](const auto&... each) { (set(each), ...); }, members);
}

}  // namespace accessory::tools
