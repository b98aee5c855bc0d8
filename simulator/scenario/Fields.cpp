#include "simulator/scenario/Fields.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "simulator/Text.h"

namespace accessory::simulator {

namespace {

std::string typeOf(const Json::Value& value) {
    switch (value.type()) {
        case Json::nullValue:
            return "null";
        case Json::stringValue:
            return "the text " + quoted(value.asString());
        case Json::booleanValue:
            return value.asBool() ? "true" : "false";
        case Json::arrayValue:
            return "a list";
        case Json::objectValue:
            return "an object";
        default:
            return "the number " + value.asString();
    }
}

std::string rangeOf(int64_t least, uint64_t most) {
    return "a whole number from " + std::to_string(least) + " to " + std::to_string(most);
}

/// As rangeOf(), without the bounds that only the type of the field sets.
std::string describedRange(int64_t least, uint64_t most) {
    std::string range = "a whole number";
    if (least > std::numeric_limits<int32_t>::min()) range += " from " + std::to_string(least);
    if (most < std::numeric_limits<int32_t>::max()) range += " to " + std::to_string(most);
    return range;
}

std::string decimalText(double value) {
    char text[32];
    snprintf(text, sizeof(text), "%.10g", value);
    return text;
}

bool isWithin(const Json::Value& value, int64_t least, uint64_t most) {
    if (value.isUInt64())
        return value.asUInt64() <= most && (least <= 0 || value.asUInt64() >= static_cast<uint64_t>(least));
    return value.isInt64() && value.asInt64() >= least;
}

std::string joined(const std::vector<std::string>& words) {
    std::string all;
    for (const std::string& word : words)
        all += (all.empty() ? "" : ", ") + quoted(word);
    return all;
}

/// How many letters have to be put in, taken out or replaced to make one word of the other.
size_t distance(const std::string& one, const std::string& other) {
    std::vector<size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (size_t i = 1; i <= one.size(); ++i) {
        size_t diagonal = std::exchange(row[0], i);
        for (size_t j = 1; j <= other.size(); ++j) {
            const size_t replaced = diagonal + (one[i - 1] != other[j - 1] ? 1 : 0);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
        }
    }
    return row.back();
}

/// The word that was probably meant; empty when none is near.
std::string likeliest(const std::string& wrong, const std::set<std::string>& words) {
    std::string best;
    size_t least = 1 + wrong.size() / 3;
    for (const std::string& word : words) {
        if (distance(wrong, word) >= least + (best.empty() ? 1 : 0)) continue;
        least = distance(wrong, word);
        best = word;
    }
    return best;
}

}  // namespace

Fields::Fields(Document& document, const Json::Value& object, std::string path)
    : mDocument(&document), mObject(&object), mPath(std::move(path)) {}

void Fields::text(const char* name, std::string* value, const char* meaning) {
    if (describing()) return describe(name, "a text", meaning, value->empty() ? "" : quoted(*value));
    const Json::Value* const found = take(name);
    if (found != nullptr && expect(found->isString(), name, "a text")) *value = found->asString();
}

void Fields::requiredText(const char* name, std::string* value, const char* meaning) {
    if (describing()) return describe(name, "a text, required", meaning);
    if (!has(name)) {
        mTaken.insert(name);
        return fail("", std::string("has no \"") + name + "\", which is required: " + meaning);
    }
    text(name, value, meaning);
    if (value->empty() && (*mObject)[name].isString()) fail(name, "is empty; expected a text");
}

void Fields::flag(const char* name, bool* value, const char* meaning) {
    if (describing()) return describe(name, "true or false", meaning, *value ? "true" : "false");
    const Json::Value* const found = take(name);
    if (found != nullptr && expect(found->isBool(), name, "true or false")) *value = found->asBool();
}

void Fields::decimal(const char* name, double* value, double least, double most, const char* meaning) {
    const std::string expected = "a number from " + decimalText(least) + " to " + decimalText(most);
    if (describing()) return describe(name, expected, meaning, decimalText(*value));
    const Json::Value* const found = take(name);
    if (found == nullptr) return;
    const bool fits = found->isNumeric() && found->asDouble() >= least && found->asDouble() <= most;
    if (expect(fits, name, expected)) *value = found->asDouble();
}

void Fields::seconds(const char* name, int64_t* milliseconds, const char* meaning) {
    constexpr double kMostSeconds = 1e6;
    double seconds = static_cast<double>(*milliseconds) / 1000;
    decimal(name, &seconds, 0, kMostSeconds, meaning);
    *milliseconds = std::llround(seconds * 1000);
}

void Fields::texts(const char* name, std::vector<std::string>* values, const char* meaning) {
    if (describing()) return describe(name, "a list of texts", meaning);
    const Json::Value* const found = take(name);
    if (found == nullptr || !expect(found->isArray(), name, "a list of texts")) return;
    values->clear();
    for (const Json::Value& each : *found) {
        if (expect(each.isString(), name, "a list of texts")) values->push_back(each.asString());
    }
}

void Fields::dictionary(const char* name,
                        const std::function<void(const std::string&, const std::string&)>& take,
                        const char* meaning) {
    if (describing()) return describe(name, "an object of texts", meaning);
    const Json::Value* const found = this->take(name);
    if (found == nullptr || !expect(found->isObject(), name, "an object of texts")) return;
    for (const std::string& key : found->getMemberNames()) {
        if (expect((*found)[key].isString(), name, "an object of texts")) take(key, (*found)[key].asString());
    }
}

bool Fields::object(const char* name, const Reader& read, const char* meaning) {
    if (describing()) {
        section(std::string(name) + ": an object. " + meaning, read);
        return false;
    }
    const Json::Value* const found = take(name);
    if (found == nullptr || !expect(found->isObject(), name, "an object")) return false;
    readObject(*found, pathOf(name), read);
    return true;
}

bool Fields::list(const char* name, const Reader& read, const char* meaning) {
    if (describing()) {
        section(std::string(name) + ": a list of objects. " + meaning, read);
        return false;
    }
    const Json::Value* const found = take(name);
    if (found == nullptr || !expect(found->isArray(), name, "a list of objects")) return false;
    for (Json::ArrayIndex i = 0; i < found->size(); ++i)
        readObject((*found)[i], pathOf(name) + '[' + std::to_string(i) + ']', read);
    return true;
}

void Fields::fail(const std::string& name, const std::string& problem) {
    if (describing()) return;
    const bool known = !name.empty() && mObject->isMember(name);
    const Json::Value& culprit = known ? (*mObject)[name] : *mObject;
    mDocument->addProblem(culprit.getOffsetStart(), pathOf(name), problem);
}

void Fields::rejectOthers() {
    if (describing()) return;
    for (const std::string& name : mObject->getMemberNames()) {
        if (mTaken.count(name) != 0) continue;
        const std::string meant = likeliest(name, mTaken);
        fail(name, "is no field here; " + (meant.empty()
                                               ? "expected one of " + joined({mTaken.begin(), mTaken.end()})
                                               : "did you mean " + quoted(meant) + "?"));
    }
}

void Fields::acceptOthers() {
    for (const std::string& name : mObject->getMemberNames())
        mTaken.insert(name);
}

void Fields::section(const std::string& line, const Reader& read) {
    note(line);
    Fields inner(mReference, mDepth + 1);
    read(inner);
}

void Fields::note(const std::string& line) {
    if (describing()) *mReference += std::string(static_cast<size_t>(mDepth) * 2, ' ') + line + '\n';
}

const Json::Value* Fields::take(const char* name) {
    mTaken.insert(name);
    return has(name) ? &(*mObject)[name] : nullptr;
}

bool Fields::expect(bool fits, const char* name, const std::string& expected) {
    if (!fits) fail(name, "is " + typeOf((*mObject)[name]) + "; expected " + expected);
    return fits;
}

void Fields::integer(const char* name, int64_t* value, int64_t least, uint64_t most, const char* meaning) {
    if (describing()) return describe(name, describedRange(least, most), meaning, std::to_string(*value));
    const Json::Value* const found = take(name);
    if (found == nullptr || !expect(isWithin(*found, least, most), name, rangeOf(least, most))) return;
    *value = found->isInt64() ? found->asInt64() : static_cast<int64_t>(found->asUInt64());
}

void Fields::integers(const char* name, std::vector<int64_t>* values, int64_t least, uint64_t most,
                      const char* meaning) {
    if (describing()) return describe(name, "a list of numbers", meaning);
    const std::string expected = "a list of numbers, each " + rangeOf(least, most);
    const Json::Value* const found = take(name);
    if (found == nullptr || !expect(found->isArray(), name, expected)) return;
    values->clear();
    for (const Json::Value& each : *found) {
        if (!isWithin(each, least, most))
            return fail(name, "holds " + typeOf(each) + "; expected " + expected);
        values->push_back(each.isInt64() ? each.asInt64() : static_cast<int64_t>(each.asUInt64()));
    }
}

std::ptrdiff_t Fields::oneOf(const char* name, const std::vector<std::string>& words, size_t chosen,
                             const char* meaning) {
    const auto usual = static_cast<std::ptrdiff_t>(chosen);
    if (describing()) return describe(name, "one of " + joined(words), meaning, quoted(words[chosen])), usual;
    const Json::Value* const found = take(name);
    if (found == nullptr) return usual;
    const auto word = std::find(words.begin(), words.end(), found->isString() ? found->asString() : "");
    return expect(word != words.end(), name, "one of " + joined(words)) ? word - words.begin() : usual;
}

void Fields::describe(const char* name, const std::string& type, const char* meaning,
                      const std::string& usually) {
    note(std::string(name) + ": " + type + (usually.empty() ? "" : ", default " + usually) + ". " + meaning);
}

std::string Fields::pathOf(const std::string& name) const {
    return mPath.empty() || name.empty() ? mPath + name : mPath + '.' + name;
}

void Fields::readObject(const Json::Value& object, const std::string& path, const Reader& read) {
    if (!object.isObject())
        return mDocument->addProblem(object.getOffsetStart(), path,
                                     "is " + typeOf(object) + "; expected an object");
    Fields fields(*mDocument, object, path);
    read(fields);
    fields.rejectOthers();
}

}  // namespace accessory::simulator
