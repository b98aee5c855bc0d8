#include "tools/accessoryctl/Examples.h"

#include <algorithm>
#include <map>

#include "tools/accessoryctl/Text.h"
#include "tools/accessoryctl/Words.h"
#include "tools/rows/Values.h"

namespace accessory::ctl {

using tools::ArgumentError;
using tools::FieldDescription;
using tools::Operation;
using tools::Shape;

namespace {

std::string commandValue(const Json::Value& value, Shape shape) {
    if (value.isNull()) return "null";
    if (value.isString()) return value.asString();
    if (shape == Shape::kBytes) return value["hex"].asString();
    if (!value.isArray()) return tools::compactJson(value);
    std::vector<std::string> parts;
    for (const Json::Value& each : value) {
        if (each.isObject()) return tools::compactJson(value);
        parts.push_back(each.isString() ? each.asString() : tools::compactJson(each));
    }
    return joined(parts, shape == Shape::kMask ? "|" : ",");
}

/// Values as they were typed, by the paths of their fields.
using Typed = std::map<std::string, std::string>;

bool hasMembersOf(const Typed& typed, const std::string& path) {
    const auto found = typed.lower_bound(path + ".");
    return found != typed.end() && found->first.rfind(path + ".", 0) == 0;
}

/// @param typed stands in place of examples; what may be missing is left out unless it was typed. Null: the
/// example of everything.
void addExample(const std::string& path, const FieldDescription& field, const Typed* typed,
                std::string* line) {
    if (typed != nullptr) {
        const auto found = typed->find(path);
        const bool isInParts = hasMembersOf(*typed, path);
        if (found != typed->end() && !isInParts) {
            *line += " " + shellWord(path + "=" + found->second);
            return;
        }
        if (field.nullable && !isInParts) return;
    }
    if (field.shape != Shape::kStructure) {
        *line += " " + shellWord(path + "=" + commandValue(field.example, field.shape));
        return;
    }
    for (const FieldDescription& each : field.members)
        addExample(path + "." + each.name, each, typed, line);
}

std::string callLine(const tools::Interface& interface, const Operation& operation, const Typed* typed) {
    std::string line = "accessoryctl call " + interface.name + "." + operation.name;
    for (const FieldDescription& field : operation.fields) {
        if (!field.inReply) addExample(field.name, field, typed, &line);
    }
    return line;
}

/// Whether a value fits its field when all the others are right.
bool fits(const Operation& operation, const Word& word) {
    Json::Value arguments = tools::exampleArguments(operation);
    android::Parcel trial;
    try {
        setNamed(operation, word, &arguments);
        operation.encode(arguments, &trial);
        return true;
    } catch (const ArgumentError&) {
        return false;
    }
}

/// The words with the names that they were meant to have, and with the names of the fields that values alone
/// go to. Those that are for no field are left out.
std::vector<Word> placed(const Operation& operation, const std::vector<std::string>& words) {
    std::vector<Word> named;
    std::vector<std::string> values;
    std::vector<std::string> free = requestNames(operation.fields);
    for (const std::string& text : words) {
        Word word = takeApart(text);
        if (word.path.empty()) {
            values.push_back(word.value);
            continue;
        }
        if (findField(operation.fields, word.path[0]) == nullptr)
            word.path[0] = nearest(word.path[0], requestNames(operation.fields));
        free.erase(std::remove(free.begin(), free.end(), word.path[0]), free.end());
        if (!word.path[0].empty()) named.push_back(std::move(word));
    }
    for (size_t i = 0; i < std::min(values.size(), free.size()); ++i)
        named.push_back({{free[i]}, values[i]});
    return named;
}

/// Names of bits as they were meant.
std::string mendedMask(const std::string& typed, const FieldDescription& field) {
    std::vector<std::string> names;
    for (size_t begin = 0; begin <= typed.size();) {
        const size_t end = std::min(typed.find('|', begin), typed.size());
        const std::string name = typed.substr(begin, end - begin);
        const std::string meant = nearest(name, field.choices);
        names.push_back(meant.empty() ? name : meant);
        begin = end + 1;
    }
    return joined(names, "|");
}

Typed whatFits(const Operation& operation, const std::vector<std::string>& words) {
    Typed typed;
    for (Word& word : placed(operation, words)) {
        const FieldDescription* const field = findField(operation.fields, word.path[0]);
        if (field->shape == Shape::kMask && !fits(operation, word))
            word.value = mendedMask(word.value, *field);
        if (fits(operation, word)) typed.emplace(joined(word.path, "."), word.value);
    }
    return typed;
}

}  // namespace

std::string exampleCall(const tools::Interface& interface, const Operation& operation) {
    return callLine(interface, operation, nullptr);
}

std::string correctedCall(const tools::Interface& interface, const Operation& operation,
                          const std::vector<std::string>& words) {
    const Typed right = whatFits(operation, words);
    return callLine(interface, operation, &right);
}

}  // namespace accessory::ctl
