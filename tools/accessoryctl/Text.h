// What people read: values on a line, columns, words for a shell, the nearest of several names.
#pragma once

#include <json/json.h>

#include <string>
#include <vector>

#include "tools/rows/Description.h"

namespace accessory::ctl {

using Members = std::vector<tools::FieldDescription>;

/// A value as people read it: 7, "text", [1, 2], {member=1}, bytes as 0x0a1b.
/// @param members of the structure that it is, or is a list of: they come in their order.
std::string readable(const Json::Value& value, const Members& members = {});

/// The members of an object: a=1 b="text".
std::string readableMembers(const Json::Value& object, const Members& members);

/// A value as the command line takes it, quoted for the shell where need be.
std::string shellWord(const std::string& word);

/// Lines of cells, each column as wide as its widest cell; no blanks at the end of a line.
std::string columns(const std::vector<std::vector<std::string>>& rows);

std::string joined(const std::vector<std::string>& words, const char* separator);

/// The one of @p names that @p word may have been meant to be; empty when none is near.
std::string nearest(const std::string& word, const std::vector<std::string>& names);

}  // namespace accessory::ctl
