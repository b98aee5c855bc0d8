#include "tools/accessoryctl/Arguments.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>

#include "tools/accessoryctl/Failure.h"
#include "tools/accessoryctl/Text.h"
#include "tools/rows/Values.h"

namespace accessory::ctl {

using tools::ArgumentError;
using tools::FieldDescription;
using tools::Operation;
using tools::Shape;

namespace {

/// "name.member=value" in its parts; no path when the word is a value alone.
struct Word {
    std::vector<std::string> path;
    std::string value;
};

Word takeApart(const std::string& word) {
    static constexpr char kNameCharacters[] =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_.";
    const size_t end = word.find_first_not_of(kNameCharacters);
    const bool named = end != std::string::npos && end > 0 && word[end] == '=' && isalpha(word[0]) != 0;
    if (!named) return {{}, word};
    Word parts{{}, word.substr(end + 1)};
    const std::string path = word.substr(0, end);
    for (size_t begin = 0; begin <= path.size();) {
        const size_t dot = std::min(path.find('.', begin), path.size());
        parts.path.push_back(path.substr(begin, dot - begin));
        begin = dot + 1;
    }
    return parts;
}

Json::Value contentOf(const std::string& path, const FieldDescription& field) {
    std::ifstream file(path, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file.is_open() || file.bad()) {
        throw ArgumentError(field.name, field.expects, "the file '" + path + "', which cannot be read");
    }
    return tools::bytesToJson(content.data(), content.size());
}

Json::Value valueOf(const std::string& text, const FieldDescription& field) {
    const bool canBeNull = field.nullable || field.shape != Shape::kText;
    if (canBeNull && text == "null") return {};
    if (field.shape == Shape::kBytes && text.rfind('@', 0) == 0) return contentOf(text.substr(1), field);
    return text;
}

const FieldDescription* findIn(const std::vector<FieldDescription>& fields, const std::string& name) {
    const auto isMeant = [&name](const FieldDescription& field) {
        return !field.inReply && field.name == name;
    };
    const auto found = std::find_if(fields.begin(), fields.end(), isMeant);
    return found != fields.end() ? &*found : nullptr;
}

std::vector<std::string> namesOf(const std::vector<FieldDescription>& fields) {
    std::vector<std::string> names;
    for (const FieldDescription& field : fields) {
        if (!field.inReply) names.push_back(field.name);
    }
    return names;
}

[[noreturn]] void refuseName(const std::string& where, const std::vector<FieldDescription>& fields,
                             const std::string& name) {
    const std::vector<std::string> names = namesOf(fields);
    const std::string meant = nearest(name, names);
    const std::string expects = names.empty() ? "no arguments" : "only " + joined(names, ", ");
    throw ArgumentError(where, expects,
                        "'" + name + "'" + (meant.empty() ? "" : "; did you mean '" + meant + "'?"));
}

/// Puts a named value in its place, through the members of structures.
void setNamed(const Operation& operation, const Word& word, Json::Value* arguments) {
    const std::vector<FieldDescription>* fields = &operation.fields;
    const FieldDescription* field = nullptr;
    Json::Value* place = arguments;
    std::string where = operation.name;
    for (const std::string& name : word.path) {
        field = findIn(*fields, name);
        if (field == nullptr) refuseName(where, *fields, name);
        const bool goesOn = place->isNull() || place->isObject();
        if (!goesOn) throw ArgumentError(where, "either its members or a whole value", "both");
        place = &(*place)[name];
        fields = &field->members;
        where = name;
    }
    if (field != nullptr) *place = valueOf(word.value, *field);
}

/// The first field of the request that has no value yet; null when all have.
const FieldDescription* nextField(const Operation& operation, const Json::Value& arguments) {
    for (const FieldDescription& field : operation.fields) {
        if (!field.inReply && !arguments.isMember(field.name)) return &field;
    }
    return nullptr;
}

Json::Value argumentsOf(const Operation& operation, const std::vector<std::string>& words) {
    Json::Value arguments(Json::objectValue);
    std::vector<std::string> values;
    for (const std::string& word : words) {
        const Word parts = takeApart(word);
        if (parts.path.empty()) {
            values.push_back(parts.value);
        } else {
            setNamed(operation, parts, &arguments);
        }
    }
    for (const std::string& value : values) {
        const FieldDescription* const field = nextField(operation, arguments);
        if (field == nullptr) {
            const size_t count = namesOf(operation.fields).size();
            throw ArgumentError(operation.name,
                                std::to_string(count) + (count == 1 ? " argument" : " arguments"),
                                "one more, '" + value + "'");
        }
        arguments[field->name] = valueOf(value, *field);
    }
    return arguments;
}

/// How far the number of words is from what the operation takes: tells which of several was meant.
size_t misfit(const Operation& operation, size_t words) {
    const size_t fields = namesOf(operation.fields).size();
    return fields > words ? fields - words : words - fields;
}

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

void addExample(const std::string& path, const FieldDescription& field, std::string* line) {
    if (field.shape != Shape::kStructure) {
        *line += " " + shellWord(path + "=" + commandValue(field.example, field.shape));
        return;
    }
    for (const FieldDescription& each : field.members)
        addExample(path + "." + each.name, each, line);
}

Failure wrongArgument(const Target& target, const Operation& operation, const ArgumentError& error) {
    Failure failure(kWrongUsage, error.what(), exampleCall(*target.interface, operation));
    failure.with("field", error.field).with("expects", error.expected).with("got", error.given);
    return failure;
}

}  // namespace

std::string exampleCall(const tools::Interface& interface, const Operation& operation) {
    std::string line = "accessoryctl call " + interface.name + "." + operation.name;
    for (const FieldDescription& field : operation.fields) {
        if (!field.inReply) addExample(field.name, field, &line);
    }
    return line;
}

Request requestOf(const Target& target, const std::vector<std::string>& words) {
    std::optional<Failure> best;
    size_t leastMisfit = SIZE_MAX;
    for (const Operation* operation : target.operations) {
        try {
            Json::Value arguments = argumentsOf(*operation, words);
            android::Parcel trial;
            operation->encode(arguments, &trial);
            return {operation, std::move(arguments)};
        } catch (const ArgumentError& error) {
            if (misfit(*operation, words.size()) >= leastMisfit) continue;
            leastMisfit = misfit(*operation, words.size());
            best.emplace(wrongArgument(target, *operation, error));
        }
    }
    throw Failure(*best);
}

}  // namespace accessory::ctl
