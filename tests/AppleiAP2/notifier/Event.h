// Event: one example of one of the 45 operations, spelt by hand from end to end: the call, the bytes, what
// the receiver is told, and what both sides log. Tests walk them for what all operations have in common.
#pragma once

#include <accessory/IAppleiAP2ManagerNotifier.h>
#include <android/log.h>

#include <functional>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

#include "tests/AppleiAP2/notifier/Wire.h"

namespace accessory::test {

inline constexpr char kTag[] = "IAppleiAP2ManagerNotifier";

/// A line under kTag, as a pattern for Logged().
struct ExpectedLine {
    int priority;
    std::string pattern;
};
using ExpectedLines = std::vector<ExpectedLine>;

inline ExpectedLine debug(std::string pattern) { return {ANDROID_LOG_DEBUG, std::move(pattern)}; }
inline ExpectedLine failedStep(const std::string& function) {
    return {ANDROID_LOG_ERROR, function + " #:check return value failed"};
}

struct Event {
    using Call = std::function<int(IAppleiAP2ManagerNotifier&)>;

    Event(std::string operation, uint32_t code, Bytes arguments, const std::string& told, Call call);

    Event& proxyLogs(ExpectedLines lines);
    Event& stubLogs(ExpectedLines lines);
    /// When the sender gives something else than the receiver gets.
    Event& gives(const std::string& arguments);

    std::string operation;
    uint32_t code;
    Bytes arguments;           ///< behind the token
    std::string told;          ///< by the stub to its implementation, as Recorder shows it
    std::string given;         ///< by the sender, likewise
    Call call;                 ///< with these arguments
    ExpectedLines proxyLines;  ///< all of them
    ExpectedLines stubLines;   ///< all of them
};

void PrintTo(const Event& event, std::ostream* out);

/// The examples by subject, each operation at least once.
std::vector<Event> deviceEvents();
std::vector<Event> mediaEvents();
std::vector<Event> sessionEvents();
std::vector<Event> pairingEvents();
std::vector<Event> guidanceEvents();
std::vector<Event> destinationEvents();
std::vector<Event> applicationEvents();
std::vector<Event> callEvents();
std::vector<Event> communicationsEvents();
std::vector<Event> carPlayEvents();

/// All of them.
const std::vector<Event>& allEvents();

}  // namespace accessory::test
