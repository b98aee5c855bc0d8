#include "simulator/Text.h"

#include <cstdarg>
#include <cstdio>

namespace accessory::simulator {

void appendLine(std::string* out, const char* format, ...) {
    char text[512];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(text, sizeof(text), format, arguments);
    va_end(arguments);
    out->append(text).push_back('\n');
}

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char character : text) {
        if (static_cast<unsigned char>(character) < ' ') {
            char escaped[8];
            snprintf(escaped, sizeof(escaped), "\\x%02x", static_cast<unsigned>(character));
            result += escaped;
            continue;
        }
        if (character == '"' || character == '\\') result += '\\';
        result += character;
    }
    return result + '"';
}

std::string asMinutes(std::chrono::milliseconds time) {
    char text[32];
    const long seconds = static_cast<long>(time.count() / 1000);
    snprintf(text, sizeof(text), "%ld:%02ld", seconds / 60, seconds % 60);
    return text;
}

std::string asHex(const void* bytes, size_t count) {
    std::string text;
    char digits[4];
    for (size_t i = 0; i < count; ++i) {
        snprintf(digits, sizeof(digits), "%s%02x", i > 0 ? ":" : "", static_cast<const uint8_t*>(bytes)[i]);
        text += digits;
    }
    return text;
}

const char* nameOf(Playback playback) {
    switch (playback) {
        case Playback::kPlaying:
            return "playing";
        case Playback::kPaused:
            return "paused";
        default:
            return "stopped";
    }
}

const char* nameOf(CallState state) {
    constexpr const char* kNames[] = {"disconnected", "dialling", "ringing", "connecting", "active", "held"};
    return kNames[static_cast<size_t>(state)];
}

const char* nameOf(GuidanceState state) {
    switch (state) {
        case GuidanceState::kGuiding:
            return "guiding";
        case GuidanceState::kArrived:
            return "arrived";
        case GuidanceState::kRerouting:
            return "rerouting";
        case GuidanceState::kLoading:
            return "loading";
        default:
            return "no route";
    }
}

}  // namespace accessory::simulator
