#include "tools/accessoryctl/Words.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "tools/accessoryctl/Text.h"
#include "tools/rows/Values.h"

namespace accessory::ctl {

using tools::ArgumentError;
using tools::FieldDescription;
using tools::Operation;
using tools::Shape;

namespace {

Json::Value contentOf(const std::string& path, const FieldDescription& field) {
    std::ifstream file(path, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file.is_open() || file.bad()) {
        throw ArgumentError(field.name, field.expects, "the file '" + path + "', which cannot be read");
    }
    return tools::bytesToJson(content.data(), content.size());
}

[[noreturn]] void refuseName(const std::string& where, const std::vector<FieldDescription>& fields,
                             const std::string& name) {
    const std::vector<std::string> names = requestNames(fields);
    const std::string meant = nearest(name, names);
    const std::string expects = names.empty() ? "no arguments" : "only " + joined(names, ", ");
    throw ArgumentError(where, expects,
                        "'" + name + "'" + (meant.empty() ? "" : "; did you mean '" + meant + "'?"));
}

}  // namespace

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

const FieldDescription* findField(const std::vector<FieldDescription>& fields, const std::string& name) {
    const auto isMeant = [&name](const FieldDescription& field) {
        return !field.inReply && field.name == name;
    };
    const auto found = std::find_if(fields.begin(), fields.end(), isMeant);
    return found != fields.end() ? &*found : nullptr;
}

std::vector<std::string> requestNames(const std::vector<FieldDescription>& fields) {
    std::vector<std::string> names;
    for (const FieldDescription& field : fields) {
        if (!field.inReply) names.push_back(field.name);
    }
    return names;
}

Json::Value valueOf(const std::string& text, const FieldDescription& field) {
    const bool isText = field.shape == Shape::kText;
    if (isText && text == "null" && !field.nullable) throw ArgumentError(field.name, field.expects, "null");
    if (text == "null") return {};
    if (isText && text == "\"null\"") return "null";
    if (field.shape == Shape::kBytes && text.rfind('@', 0) == 0) return contentOf(text.substr(1), field);
    return text;
}

void setNamed(const Operation& operation, const Word& word, Json::Value* arguments) {
    const std::vector<FieldDescription>* fields = &operation.fields;
    const FieldDescription* field = nullptr;
    Json::Value* place = arguments;
    std::string where = operation.name;
    for (const std::string& name : word.path) {
        field = findField(*fields, name);
        if (field == nullptr) refuseName(where, *fields, name);
        const bool goesOn = place->isNull() || place->isObject();
        if (!goesOn) throw ArgumentError(where, "either its members or a whole value", "both");
        place = &(*place)[name];
        fields = &field->members;
        where = name;
    }
    if (field != nullptr) *place = valueOf(word.value, *field);
}

}  // namespace accessory::ctl
