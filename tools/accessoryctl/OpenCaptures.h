// Opening captures for a verb: what is remarkable about them is told, what is wrong is a Failure.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tools/accessoryctl/Output.h"
#include "tools/capture/Capture.h"

namespace accessory::ctl {

/// Tells about every capture: an object each for programs, only what is not as it should be for people, who
/// read that on the standard error.
/// @throws Failure kFailed for a file that is no capture.
tools::Captures openCaptures(const Options& options, const std::vector<std::string>& paths);

/// Hands all packets to @p use.
/// @throws Failure kFailed, afterwards, when one of the captures is damaged further back.
void readAll(tools::Captures* captures,
             const std::function<void(const tools::Capture&, const tools::Packet&)>& use);

}  // namespace accessory::ctl
