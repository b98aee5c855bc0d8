// Calls in the form that trace viewers read: JSON Trace Event Format.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tools/capture/Calls.h"

namespace accessory::tools {

/// Writes one document: a slice for every call on the thread that made or served it, an arrow from the one to
/// the other where both are known, and the names of the processes.
/// @param programs by process. @param write called with piece after piece of the text.
void writeTraceEvents(const std::vector<Call>& calls, const std::map<int32_t, std::string>& programs,
                      const std::function<void(const std::string&)>& write);

}  // namespace accessory::tools
