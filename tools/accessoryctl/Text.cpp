#include "tools/accessoryctl/Text.h"

#include <algorithm>
#include <numeric>

#include "tools/rows/Values.h"

namespace accessory::ctl {

namespace {

bool isBytes(const Json::Value& value) {
    return value.isObject() && value.size() == 1 && value["hex"].isString();
}

std::string readableList(const Json::Value& list, const Members& members) {
    std::string text;
    for (const Json::Value& each : list)
        text += (text.empty() ? "" : ", ") + readable(each, members);
    return "[" + text + "]";
}

/// Those that are described come first, in that order.
std::string readableObject(const Json::Value& object, const Members& members, const char* separator) {
    std::string text;
    Json::Value rest = object;
    const auto add = [&](const std::string& name, const Members& own) {
        text += (text.empty() ? "" : separator) + name + "=" + readable(object[name], own);
        rest.removeMember(name);
    };
    for (const tools::FieldDescription& member : members) {
        if (object.isMember(member.name)) add(member.name, member.members);
    }
    for (const std::string& name : rest.getMemberNames())
        add(name, {});
    return text;
}

size_t distance(const std::string& one, const std::string& other) {
    std::vector<size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (size_t i = 1; i <= one.size(); ++i) {
        size_t diagonal = row[0];
        row[0] = i;
        for (size_t j = 1; j <= other.size(); ++j) {
            const bool same = tolower(one[i - 1]) == tolower(other[j - 1]);
            const size_t changed = diagonal + (same ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
        }
    }
    return row.back();
}

}  // namespace

std::string readable(const Json::Value& value, const Members& members) {
    if (isBytes(value)) return "0x" + value["hex"].asString();
    if (value.isArray()) return readableList(value, members);
    if (value.isObject()) return "{" + readableObject(value, members, ", ") + "}";
    return tools::compactJson(value);
}

std::string readableMembers(const Json::Value& object, const Members& members) {
    return readableObject(object, members, " ");
}

std::string shellWord(const std::string& word) {
    static constexpr char kPlain[] =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-+=.,/:@%";
    if (!word.empty() && word.find_first_not_of(kPlain) == std::string::npos) return word;
    std::string quoted = "'";
    for (const char c : word)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

std::string columns(const std::vector<std::vector<std::string>>& rows) {
    std::vector<size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    std::string text;
    for (const auto& row : rows) {
        std::string line;
        for (size_t i = 0; i < row.size(); ++i)
            line += row[i] + std::string(widths[i] - row[i].size() + 2, ' ');
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
    return text;
}

std::string joined(const std::vector<std::string>& words, const char* separator) {
    std::string all;
    for (const std::string& word : words)
        all += (all.empty() ? "" : separator) + word;
    return all;
}

std::string nearest(const std::string& word, const std::vector<std::string>& names) {
    const auto nearer = [&word](const std::string& one, const std::string& other) {
        return distance(word, one) < distance(word, other);
    };
    const auto best = std::min_element(names.begin(), names.end(), nearer);
    const bool isNear = best != names.end() && distance(word, *best) <= std::max<size_t>(2, word.size() / 3);
    return isNear ? *best : std::string();
}

}  // namespace accessory::ctl
