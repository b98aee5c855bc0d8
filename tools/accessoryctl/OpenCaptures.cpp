#include "tools/accessoryctl/OpenCaptures.h"

#include <cstdio>

#include "tools/accessoryctl/CaptureLines.h"

namespace accessory::ctl {

namespace {

Failure failureOf(const tools::CaptureError& error) {
    Failure failure(kFailed, error.what());
    failure.with("offset", static_cast<Json::UInt64>(error.offset));
    return failure;
}

}  // namespace

tools::Captures openCaptures(const Options& options, const std::vector<std::string>& paths) {
    try {
        tools::Captures captures(paths);
        for (const auto& each : captures.all()) {
            if (options.json) print(options, "capture", captureToJson(*each), "");
            const std::string warning = captureWarning(*each);
            if (!options.json) fputs(warning.c_str(), stderr);
        }
        return captures;
    } catch (const tools::CaptureError& error) {
        throw failureOf(error);
    }
}

void readAll(tools::Captures* captures,
             const std::function<void(const tools::Capture&, const tools::Packet&)>& use) {
    try {
        captures->forEach(use);
    } catch (const tools::CaptureError& error) {
        throw failureOf(error);
    }
    for (const auto& each : captures->all()) {
        if (each->damage().has_value()) throw failureOf(*each->damage());
    }
}

}  // namespace accessory::ctl
