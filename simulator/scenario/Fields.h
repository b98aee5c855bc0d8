// Fields: the fields of one JSON object, read one by one, each with its type, range and meaning. The same
// calls describe the fields instead when there is no object: so the reference of scenario files is written by
// what reads them.
#pragma once

#include <json/value.h>

#include <functional>
#include <initializer_list>
#include <limits>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "simulator/scenario/Document.h"

namespace accessory::simulator {

/// A field that is missing keeps the value that its target has. One that is wrong is a problem of the
/// document, and keeps it, too.
class Fields {
  public:
    using Reader = std::function<void(Fields&)>;

    /// Reads @p object, which @p document contains at @p path; both outlive the fields.
    Fields(Document& document, const Json::Value& object, std::string path);
    /// Describes: every call appends a line to @p reference.
    Fields(std::string* reference, int depth) : mReference(reference), mDepth(depth) {}

    bool describing() const { return mReference != nullptr; }

    void text(const char* name, std::string* value, const char* meaning);
    /// A text that must be there and must not be empty.
    void requiredText(const char* name, std::string* value, const char* meaning);
    void flag(const char* name, bool* value, const char* meaning);
    void decimal(const char* name, double* value, double least, double most, const char* meaning);
    /// Seconds with a fraction, as milliseconds.
    void seconds(const char* name, int64_t* milliseconds, const char* meaning);

    template <typename Number>
    void number(const char* name, Number* value, const char* meaning,
                int64_t least = std::numeric_limits<Number>::min(),
                uint64_t most = std::numeric_limits<Number>::max()) {
        int64_t read = *value + 0;  // an int8_t is a number here, and no character
        integer(name, &read, least, most, meaning);
        *value = static_cast<Number>(read);
    }

    /// One of several words.
    template <typename Value>
    void choice(const char* name, Value* value, std::initializer_list<std::pair<const char*, Value>> choices,
                const char* meaning) {
        std::vector<std::string> words;
        size_t chosen = 0;
        for (const auto& [word, each] : choices) {
            if (each == *value) chosen = words.size();
            words.push_back(word);
        }
        *value = (choices.begin() + oneOf(name, words, chosen, meaning))->second;
    }

    void texts(const char* name, std::vector<std::string>* values, const char* meaning);
    template <typename Number>
    void numbers(const char* name, std::vector<Number>* values, const char* meaning) {
        std::vector<int64_t> read(values->begin(), values->end());
        integers(name, &read, std::numeric_limits<Number>::min(), std::numeric_limits<Number>::max(),
                 meaning);
        values->clear();
        for (const int64_t each : read)
            values->push_back(static_cast<Number>(each));
    }
    /// Texts by names that the scenario makes up.
    void dictionary(const char* name, const std::function<void(const std::string&, const std::string&)>& take,
                    const char* meaning);

    /// An object, and a list of objects. @return whether it was there.
    bool object(const char* name, const Reader& read, const char* meaning);
    bool list(const char* name, const Reader& read, const char* meaning);

    /// Whether the object has the field.
    bool has(const char* name) const { return mObject != nullptr && mObject->isMember(name); }
    /// Reports a problem with a field, or with the whole object for an empty name.
    void fail(const std::string& name, const std::string& problem);
    /// Reports every field that nobody read.
    void rejectOthers();
    /// Lets rejectOthers() find nothing, where it is unknown which fields there should be.
    void acceptOthers();
    /// While describing: a line of its own, and below it the fields that @p read describes.
    void section(const std::string& line, const Reader& read);

  private:
    void note(const std::string& line);
    const Json::Value* take(const char* name);
    bool expect(bool fits, const char* name, const std::string& expected);
    void integer(const char* name, int64_t* value, int64_t least, uint64_t most, const char* meaning);
    void integers(const char* name, std::vector<int64_t>* values, int64_t least, uint64_t most,
                  const char* meaning);
    std::ptrdiff_t oneOf(const char* name, const std::vector<std::string>& words, size_t chosen,
                         const char* meaning);
    void describe(const char* name, const std::string& type, const char* meaning,
                  const std::string& usually = {});
    std::string pathOf(const std::string& name) const;
    void readObject(const Json::Value& object, const std::string& path, const Reader& read);

    Document* mDocument = nullptr;
    const Json::Value* mObject = nullptr;
    std::string mPath;
    std::set<std::string> mTaken;
    std::string* mReference = nullptr;
    int mDepth = 0;
};

}  // namespace accessory::simulator
