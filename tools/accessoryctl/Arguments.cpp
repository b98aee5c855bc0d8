#include "tools/accessoryctl/Arguments.h"

#include <optional>
#include <set>

#include "tools/accessoryctl/Examples.h"
#include "tools/accessoryctl/Failure.h"
#include "tools/accessoryctl/Text.h"
#include "tools/accessoryctl/Words.h"

namespace accessory::ctl {

using tools::ArgumentError;
using tools::FieldDescription;
using tools::Operation;
using tools::Shape;

namespace {

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
    std::set<std::string> given;
    for (const std::string& word : words) {
        const Word parts = takeApart(word);
        const std::string path = joined(parts.path, ".");
        if (!path.empty() && !given.insert(path).second)
            throw ArgumentError(path, "one value", "a second one, '" + parts.value + "'");
        if (parts.path.empty()) {
            values.push_back(parts.value);
        } else {
            setNamed(operation, parts, &arguments);
        }
    }
    for (const std::string& value : values) {
        const FieldDescription* const field = nextField(operation, arguments);
        if (field == nullptr) {
            const size_t count = requestNames(operation.fields).size();
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
    const size_t fields = requestNames(operation.fields).size();
    return fields > words ? fields - words : words - fields;
}

/// What to say besides about a name of a bit that there is not.
std::string bitHint(const FieldDescription& field, const ArgumentError& error) {
    if (error.given.size() < 2 || error.given.front() != '\'') return "";
    const std::string meant = nearest(error.given.substr(1, error.given.size() - 2), field.choices);
    return meant.empty() ? "; its bits are " + joined(field.choices, ", ")
                         : "; did you mean '" + meant + "'?";
}

Failure wrongArgument(const Target& target, const Operation& operation, const ArgumentError& error,
                      const std::vector<std::string>& words) {
    const FieldDescription* const field = findField(operation.fields, error.field);
    const bool isMask = field != nullptr && field->shape == Shape::kMask;
    const bool isNotifier = field != nullptr && field->shape == Shape::kBinder;
    Failure failure(kWrongUsage, error.what() + (isMask ? bitHint(*field, error) : ""),
                    isNotifier ? "accessoryctl watch" : correctedCall(*target.interface, operation, words));
    failure.with("field", error.field).with("expects", error.expected).with("got", error.given);
    return failure;
}

/// The words fit operations of several interfaces.
Failure ambiguous(const std::vector<Request>& fitting, const std::vector<std::string>& words) {
    std::vector<std::string> names;
    names.reserve(fitting.size());
    for (const Request& each : fitting)
        names.push_back(each.interface->name + "." + each.operation->name);
    return {
        kWrongUsage,
        "'" + fitting[0].operation->name + "' is an operation of several interfaces: " + joined(names, ", "),
        commandLine(names[0], {"call", words})};
}

/// Tries the operations of one interface.
class Chooser {
  public:
    explicit Chooser(const std::vector<std::string>& words) : mWords(words) {}

    /// @return the first that fits.
    std::optional<Request> choose(const Target& target) {
        for (const Operation* operation : target.operations) {
            try {
                Json::Value arguments = argumentsOf(*operation, mWords);
                android::Parcel trial;
                operation->encode(arguments, &trial);
                return Request{target.interface, operation, std::move(arguments)};
            } catch (const ArgumentError& error) {
                note(target, *operation, error);
            }
        }
        return std::nullopt;
    }

    /// Why the one does not fit that comes nearest.
    const Failure& best() const { return *mBest; }

  private:
    void note(const Target& target, const Operation& operation, const ArgumentError& error) {
        if (misfit(operation, mWords.size()) >= mLeastMisfit) return;
        mLeastMisfit = misfit(operation, mWords.size());
        mBest.emplace(wrongArgument(target, operation, error, mWords));
    }

    const std::vector<std::string>& mWords;
    std::optional<Failure> mBest;
    size_t mLeastMisfit = SIZE_MAX;
};

}  // namespace

Request requestOf(const std::vector<Target>& targets, const std::vector<std::string>& words) {
    Chooser chooser(words);
    std::vector<Request> fitting;
    for (const Target& target : targets) {
        if (auto request = chooser.choose(target)) fitting.push_back(std::move(*request));
    }
    if (fitting.empty()) throw Failure(chooser.best());
    if (fitting.size() > 1) throw ambiguous(fitting, words);
    return std::move(fitting.front());
}

}  // namespace accessory::ctl
