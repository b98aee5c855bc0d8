#include "tests/faults/SlowLines.h"

#include <algorithm>
#include <cstdlib>
#include <regex>

namespace accessory::test {
namespace {

/// The runtime reads it when it is first used.
[[maybe_unused]] const int kConfigured = setenv("BINDER_SLOW_CALL_MS", std::to_string(kSpanMs).c_str(), 1);

std::optional<SlowLine> parsed(const std::string& text) {
    static const auto& waits = *new const std::regex(
        "((?:the answer to )?call .*) has been waiting for process (.*) for ([0-9]+\\.[0-9]) s");
    static const auto& ended = *new const std::regex(
        "((?:the answer to )?call .*) waits no longer for process (.*): status (-?[0-9]+) after (.*) s");
    std::smatch part;
    if (std::regex_match(text, part, waits)) return SlowLine{part[1], part[2], std::stod(part[3]), {}};
    if (!std::regex_match(text, part, ended)) return std::nullopt;
    return SlowLine{part[1], part[2], std::stod(part[4]), std::stoi(part[3])};
}

}  // namespace

std::vector<SlowLine> slowLines(const LogCatcher& log) {
    std::vector<SlowLine> lines;
    for (const LogLine& line : log.linesWith("Binder")) {
        if (line.priority != ANDROID_LOG_WARN) continue;
        if (const auto slow = parsed(line.text)) lines.push_back(*slow);
    }
    return lines;
}

SlowLine lastSlowLine(const LogCatcher& log) {
    const std::vector<SlowLine> lines = slowLines(log);
    return lines.empty() ? SlowLine() : lines.back();
}

testing::AssertionResult isToldOf(const LogCatcher& log, pid_t process, size_t times) {
    return eventually([&] {
        const std::vector<SlowLine> lines = slowLines(log);
        return static_cast<size_t>(std::count_if(lines.begin(), lines.end(), [&](const SlowLine& line) {
                   return !line.status && line.process == namedInLog(process);
               })) >= times;
    });
}

std::string namedInLog(pid_t process) { return std::to_string(process) + " (exe)"; }

}  // namespace accessory::test
