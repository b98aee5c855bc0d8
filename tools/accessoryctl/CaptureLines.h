// The lines of a capture, for people and for programs.
#pragma once

#include <cstdint>
#include <string>

#include "tools/accessoryctl/Output.h"
#include "tools/capture/Capture.h"
#include "tools/capture/Decode.h"

namespace accessory::ctl {

/// `2026-01-31T12:00:00.123456789Z`, or only its time of day.
std::string timeText(uint64_t nanoseconds, bool timeOfDay);

/// What is said about a capture in front of its packets; its text is empty unless something is not as it
/// should be.
Json::Value captureToJson(const tools::Capture& capture);
std::string captureWarning(const tools::Capture& capture);

Json::Value packetToJson(const tools::Packet& packet, const tools::Decoded& decoded);
std::string packetLine(const tools::Packet& packet, const tools::Decoded& decoded);

}  // namespace accessory::ctl
