// The lines that the USB audio family logs, and the units that its traces and assertions name.
#pragma once

#include <android/log.h>
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/LogCatcher.h"

namespace accessory::test {

inline constexpr char kAudioTag[] = "IAppleUSBAudioManager";
inline constexpr char kAudioNotifierTag[] = "IAppleUSBAudioManagerNotifier";
inline constexpr char kAudioUnit[] = "AppleUSBAudio/IAppleUSBAudioManager.cpp";
inline constexpr char kAudioNotifierUnit[] = "AppleUSBAudio/IAppleUSBAudioManagerNotifier.cpp";

using Line = testing::Matcher<const LogLine&>;
using Lines = std::vector<Line>;

inline Line debugLine(const std::string& text) { return Logged(ANDROID_LOG_DEBUG, kAudioTag, text); }
inline Line info(const std::string& text) { return Logged(ANDROID_LOG_INFO, kAudioTag, text); }
inline Line warning(const std::string& text) { return Logged(ANDROID_LOG_WARN, kAudioTag, text); }
inline Line error(const std::string& text) { return Logged(ANDROID_LOG_ERROR, kAudioTag, text); }
inline Line check(const std::string& function, const std::string& condition) {
    return LoggedCheck(kAudioTag, function, condition);
}

/// Both lines of a trace with nothing between them.
inline Lines traced(const std::string& tag, const std::string& unit, const std::string& function) {
    const std::string begin = "[" + unit + "][" + function + "] ";
    return {Logged(ANDROID_LOG_DEBUG, tag, begin + "[--IN--]"),
            Logged(ANDROID_LOG_DEBUG, tag, begin + "[--OUT--]")};
}

/// What addNotifier() says before it looks further; without an entry the index is negative.
inline Line lookedUp(int size, const std::string& index, int pid) {
    return info(" addNotifier mNotifiers.size " + std::to_string(size) + "  index " + index +
                " = indexOfKey(pid " + std::to_string(pid) + ")");
}
inline Line addedElsewhere() { return check("addNotifier", "!mNotifiers.add(pid, notifier)"); }
inline Line removedElsewhere() { return check("removeNotifier", "!mNotifiers.removeItem(pid)"); }
inline Line alreadyAdded(int pid) {
    return warning("notifier for process [" + std::to_string(pid) + "] is already added");
}
inline Line alreadyRemoved(int pid) {
    return warning("notifier for process [" + std::to_string(pid) + "] is already removed");
}
inline Line registering(int pid, unsigned uid) {
    return info("Calling Process: PID=" + std::to_string(pid) + ", UID=" + std::to_string(uid));
}
inline Line removing(int pid) { return debugLine("remove notifier " + std::to_string(pid)); }
inline Line died(int pid) { return warning("Accessory Application PID[" + std::to_string(pid) + "] die"); }

/// Exactly these, in this order.
inline auto are(const Lines& lines) { return testing::ElementsAreArray(lines); }

}  // namespace accessory::test
