// The lines that registry, stub, death recipients and broadcaster of the iAP2 manager log.
#pragma once

#include <android/log.h>
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/LogCatcher.h"

namespace accessory::test {

inline constexpr char kManagerTag[] = "IAppleiAP2Manager";

using Line = testing::Matcher<const LogLine&>;
using Lines = std::vector<Line>;

inline Line debugLine(const std::string& text) { return Logged(ANDROID_LOG_DEBUG, kManagerTag, text); }
inline Line warning(const std::string& text) { return Logged(ANDROID_LOG_WARN, kManagerTag, text); }
inline Line error(const std::string& text) { return Logged(ANDROID_LOG_ERROR, kManagerTag, text); }
inline Line check(const std::string& function, const std::string& condition) {
    return LoggedCheck(kManagerTag, function, condition);
}
inline Line statusCheck(const std::string& function) { return LoggedStatusCheck(kManagerTag, function); }

/// The check of a link to a client's death that could not be undone.
inline constexpr char kUnlinked[] = "binder->unlinkToDeath(mDeathRecipient)";

/// The unit of stub, registry and recipients; the broadcaster's fan-outs belong to the notifier's.
inline constexpr char kManagerUnit[] = "AppleiAP2/IAppleiAP2Manager.cpp";
inline constexpr char kNotifierUnit[] = "AppleiAP2/IAppleiAP2ManagerNotifier.cpp";

inline Line in(const std::string& unit, const std::string& function) {
    return debugLine("[" + unit + "][" + function + "] [--IN--]");
}
inline Line out(const std::string& unit, const std::string& function) {
    return debugLine("[" + unit + "][" + function + "] [--OUT--]");
}

/// What addNotifier() says before it looks further; without an entry the index is negative.
inline Line lookedUp(int size, const std::string& index, int pid) {
    return debugLine(" addNotifier mNotifiers.size " + std::to_string(size) + "  index " + index +
                     " = indexOfKey(pid " + std::to_string(pid) + ")");
}
inline Line added(int size, int pid) {
    return debugLine(" addNotifier out mNotifiers.size " + std::to_string(size) +
                     "  index -# = indexOfKey(pid " + std::to_string(pid) + ")");
}
inline Line alreadyAdded(int pid) {
    return warning("notifier for process [" + std::to_string(pid) + "] is already added");
}
inline Line removed(int size, int index, int pid) {
    return debugLine(" removeNotifier mNotifiers.size " + std::to_string(size) + "  index " +
                     std::to_string(index) + " = indexOfKey(pid " + std::to_string(pid) + ")");
}
inline Line alreadyRemoved(int pid) {
    return warning("notifier for process [" + std::to_string(pid) + "] is already removed");
}
inline Line died(int pid) { return warning("Accessory Application PID[" + std::to_string(pid) + "] die"); }

/// Exactly these, in this order.
inline auto are(const Lines& lines) { return testing::ElementsAreArray(lines); }

}  // namespace accessory::test
