#include <accessory/testing/RecordDifference.h>

#include <map>
#include <sstream>
#include <vector>

namespace accessory::testkit {
namespace {

/// Where the part of "Name{a: 1, b: [2, 3]}" that begins at @p at ends: at a comma that is not within a text,
/// a list or a record, or at the last brace.
size_t endOfPart(const std::string& text, size_t at) {
    int depth = 0;
    for (bool quoted = false; at + 1 < text.size(); ++at) {
        const char c = text[at];
        if (c == '"') quoted = !quoted;
        if (quoted && c == '\\') ++at;
        if (quoted) continue;
        if (c == '{' || c == '[') ++depth;
        if (c == '}' || c == ']') --depth;
        if (c == ',' && depth == 0) return at;
    }
    return text.size() - 1;
}

std::vector<std::string> partsOf(const std::string& text) {
    std::vector<std::string> parts;
    const size_t brace = text.find('{');
    if (brace == std::string::npos) return parts;
    for (size_t at = brace + 1; at + 1 < text.size();) {
        const size_t end = endOfPart(text, at);
        parts.push_back(text.substr(at, end - at));
        at = end + 2;  // behind comma and space
    }
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

/// Differences, with commas between them.
class List {
  public:
    std::ostream& next() {
        mText << mSeparator;
        mSeparator = ", ";
        return mText;
    }
    std::string text() const { return mText.str(); }

  private:
    std::ostringstream mText;
    const char* mSeparator = "";
};

}  // namespace

std::string differenceBetween(const std::string& actual, const std::string& expected) {
    if (actual == expected) return "";
    if (nameOf(actual) != nameOf(expected)) return "which is " + actual;
    const auto here = fieldsOf(actual);
    const auto wanted = fieldsOf(expected);
    List list;
    for (const auto& [name, value] : wanted) {
        const auto found = here.find(name);
        if (found == here.end()) {
            list.next() << name << " is missing";
        } else if (found->second != value) {
            list.next() << name << " is " << found->second << " instead of " << value;
        }
    }
    for (const auto& [name, value] : here) {
        if (wanted.count(name) == 0) list.next() << name << " should not be there (" << value << ')';
    }
    return list.text();
}

}  // namespace accessory::testkit
