// The words of a call: which field each is for, and the request they make.
#pragma once

#include <string>
#include <vector>

#include "tools/accessoryctl/Targets.h"

namespace accessory::ctl {

/// An operation with arguments that fit it.
struct Request {
    const tools::Interface* interface;
    const tools::Operation* operation;
    Json::Value arguments;
};

/// Chooses the operation of @p targets whose fields @p words fit: `name=value`, `name.member=value`, or
/// values in the order of the fields that were not named.
/// @throws Failure kWrongUsage that names the field, or the interfaces when the words fit operations of
/// several, and shows a command line that is right, with those of @p words that are.
Request requestOf(const std::vector<Target>& targets, const std::vector<std::string>& words);

}  // namespace accessory::ctl
