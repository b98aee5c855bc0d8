// The words of a call: what each names, and where its value goes.
#pragma once

#include <string>
#include <vector>

#include "tools/rows/Operation.h"

namespace accessory::ctl {

/// "name.member=value" in its parts; no path when the word is a value alone.
struct Word {
    std::vector<std::string> path;
    std::string value;
};

Word takeApart(const std::string& word);

/// The field of the request that is called so; null when there is none.
const tools::FieldDescription* findField(const std::vector<tools::FieldDescription>& fields,
                                         const std::string& name);

/// The names of those that are in the request.
std::vector<std::string> requestNames(const std::vector<tools::FieldDescription>& fields);

/// What was typed for a field, as JSON.
/// @throws tools::ArgumentError for a file that cannot be read, and null for a text that must be there.
Json::Value valueOf(const std::string& text, const tools::FieldDescription& field);

/// Puts a named value in its place, through the members of structures.
/// @throws tools::ArgumentError as above, and for a name that there is not.
void setNamed(const tools::Operation& operation, const Word& word, Json::Value* arguments);

}  // namespace accessory::ctl
