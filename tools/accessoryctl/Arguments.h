// The words of a call: which field each is for, and the request they make.
#pragma once

#include <string>
#include <vector>

#include "tools/accessoryctl/Targets.h"

namespace accessory::ctl {

/// An operation with arguments that fit it.
struct Request {
    const tools::Operation* operation;
    Json::Value arguments;
};

/// Chooses the operation of @p target whose fields @p words fit: `name=value`, `name.member=value`, or values
/// in the order of the fields that were not named.
/// @throws Failure kWrongUsage that names the field and shows a command line that is right.
Request requestOf(const Target& target, const std::vector<std::string>& words);

/// A command line that calls @p operation with an example of every argument.
std::string exampleCall(const tools::Interface& interface, const tools::Operation& operation);

}  // namespace accessory::ctl
