// Values as people read them, in dumps and in what --verbose shows.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "simulator/model/CallList.h"
#include "simulator/model/Player.h"
#include "simulator/model/Route.h"

namespace accessory::simulator {

/// Appends a line; a newline is added.
void appendLine(std::string* out, const char* format, ...) __attribute__((format(printf, 2, 3)));

/// In double quotes, with control characters, quotes and backslashes escaped.
std::string quoted(const std::string& text);
/// "3:07".
std::string asMinutes(std::chrono::milliseconds time);
/// "0a:1b:2c".
std::string asHex(const void* bytes, size_t count);

const char* nameOf(Playback playback);
const char* nameOf(CallState state);
const char* nameOf(GuidanceState state);

}  // namespace accessory::simulator
