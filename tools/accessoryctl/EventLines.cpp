#include "tools/accessoryctl/EventLines.h"

#include <cstdio>
#include <ctime>

#include "tools/accessoryctl/Text.h"

namespace accessory::ctl {

namespace {

/// The moment, as `2026-01-31T12:00:00.123Z`, or only its time of day.
std::string now(bool timeOfDay) {
    timespec moment{};
    clock_gettime(CLOCK_REALTIME, &moment);
    tm parts{};
    gmtime_r(&moment.tv_sec, &parts);
    char text[48];
    const size_t length = strftime(text, sizeof(text), "%Y-%m-%dT%H:%M:%S", &parts);
    snprintf(text + length, sizeof(text) - length, ".%03ldZ", moment.tv_nsec / 1'000'000);
    return timeOfDay ? std::string(text + 11) : text;
}

}  // namespace

std::string eventLine(const Options& options, const Event& event) {
    const std::string name = event.notifier.name + "." + event.operation.name;
    if (!options.json) {
        const std::string rest =
            event.error.empty() ? readableMembers(event.arguments, event.operation.fields) : red(event.error);
        return now(true) + " " + bold(name) + " " + rest;
    }
    Json::Value object;
    object["interface"] = event.notifier.name;
    object["event"] = event.operation.name;
    object["code"] = event.operation.code;
    object["time"] = now(false);
    if (!event.error.empty()) object["error"] = event.error;
    if (event.error.empty()) object["arguments"] = event.arguments;
    return jsonLine("event", object);
}

std::string droppedLine(bool json, size_t count) {
    Json::Value object;
    object["count"] = static_cast<Json::UInt64>(count);
    return json ? jsonLine("dropped", object)
                : "accessoryctl: " + std::to_string(count) + " events dropped, the output is read too slowly";
}

}  // namespace accessory::ctl
