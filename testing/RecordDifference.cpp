#include <accessory/testing/RecordDifference.h>

#include <map>
#include <vector>

namespace accessory::testkit {
namespace {

/// The parts of "Name{a: 1, b: [2, 3]}" between its braces; commas within texts, lists and records do not
/// part.
std::vector<std::string> partsOf(const std::string& text) {
    std::vector<std::string> parts;
    const size_t begin = text.find('{');
    if (begin == std::string::npos || text.back() != '}') return parts;
    int depth = 0;
    bool quoted = false;
    std::string part;
    for (size_t i = begin + 1; i + 1 < text.size(); ++i) {
        const char c = text[i];
        part += c;
        if (quoted && c == '\\') {
            part += text[++i];
            continue;
        }
        if (c == '"') quoted = !quoted;
        if (quoted) continue;
        if (c == '{' || c == '[') ++depth;
        if (c == '}' || c == ']') --depth;
        if (c != ',' || depth != 0) continue;
        part.pop_back();
        parts.push_back(part);
        part.clear();
        ++i;  // the space behind the comma
    }
    if (!part.empty()) parts.push_back(part);
    return parts;
}

/// Values by field.
std::map<std::string, std::string> fieldsOf(const std::string& text) {
    std::map<std::string, std::string> fields;
    for (const std::string& part : partsOf(text)) {
        const size_t colon = part.find(": ");
        fields[part.substr(0, colon)] = colon != std::string::npos ? part.substr(colon + 2) : "";
    }
    return fields;
}

std::string nameOf(const std::string& text) { return text.substr(0, text.find('{')); }

void add(std::string* list, const std::string& difference) {
    if (!list->empty()) *list += ", ";
    *list += difference;
}

}  // namespace

std::string differenceBetween(const std::string& actual, const std::string& expected) {
    if (actual == expected) return "";
    if (nameOf(actual) != nameOf(expected)) return "which is " + actual;
    const auto here = fieldsOf(actual);
    const auto wanted = fieldsOf(expected);
    std::string list;
    for (const auto& [name, value] : wanted) {
        const auto found = here.find(name);
        if (found == here.end()) {
            add(&list, name + " is missing");
        } else if (found->second != value) {
            add(&list, name + " is " + found->second + " instead of " + value);
        }
    }
    for (const auto& [name, value] : here) {
        if (wanted.count(name) == 0) add(&list, name + " should not be there (" + value + ')');
    }
    return list;
}

}  // namespace accessory::testkit
