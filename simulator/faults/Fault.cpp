#include "simulator/faults/Fault.h"

#include <algorithm>
#include <charconv>
#include <regex>

#include "simulator/faults/Operations.h"

namespace accessory::simulator {

namespace {

constexpr FaultKind kKinds[] = {FaultKind::kDelay, FaultKind::kError, FaultKind::kEmpty, FaultKind::kDie};
constexpr const char* kForm = "operation=kind[:value][@call][/every], for instance AcceptCall=error:-22@2";

template <typename Number>
bool readNumber(const std::string& text, Number* number) {
    if (text.empty()) return true;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), *number);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

bool readKind(const std::string& text, FaultKind* kind) {
    const auto* const found = std::find_if(std::begin(kKinds), std::end(kKinds),
                                           [&](FaultKind each) { return text == nameOf(each); });
    if (found == std::end(kKinds)) return false;
    *kind = *found;
    return true;
}

bool hosts(const HostedInterface& hosted, const std::string& operation) {
    const std::string prefix = std::string(hosted.name) + '.';
    const std::string name =
        operation.compare(0, prefix.size(), prefix) == 0 ? operation.substr(prefix.size()) : operation;
    return std::any_of(hosted.operations.begin(), hosted.operations.end(),
                       [&](const Operation& each) { return name == each.name; });
}

}  // namespace

const char* nameOf(FaultKind kind) {
    constexpr const char* kNames[] = {"delay", "error", "empty", "die"};
    return kNames[static_cast<size_t>(kind)];
}

int32_t usualValue(FaultKind kind) {
    switch (kind) {
        case FaultKind::kDelay:
            return 1000;
        case FaultKind::kDie:
            return 1;
        default:
            return -1;
    }
}

std::string toString(const Fault& fault) {
    std::string text = fault.operation + '=' + nameOf(fault.kind);
    if (fault.kind != FaultKind::kEmpty) text += ':' + std::to_string(fault.value);
    if (fault.call != 0) text += '@' + std::to_string(fault.call);
    if (fault.every != 0) text += '/' + std::to_string(fault.every);
    return text;
}

std::string parseFault(const std::string& text, Fault* fault) {
    static const std::regex form(R"(([^=]+)=([a-z]+)(?::(-?\d+))?(?:@(\d+))?(?:/(\d+))?)");
    std::smatch parts;
    if (!std::regex_match(text, parts, form)) return "'" + text + "' is no fault; expected " + kForm;
    fault->operation = parts[1];
    if (!isOperation(fault->operation))
        return "there is no operation '" + fault->operation + "'; expected one such as AcceptCall, or *";
    if (!readKind(parts[2], &fault->kind))
        return "'" + parts[2].str() + "' is no kind of fault; expected delay, error, empty or die";
    fault->value = usualValue(fault->kind);
    if (!readNumber(parts[3], &fault->value) || !readNumber(parts[4], &fault->call) ||
        !readNumber(parts[5], &fault->every))
        return "'" + text + "' has a number that is too large; expected one of 32 bits";
    return {};
}

bool isOperation(const std::string& operation) {
    return operation == "*" || hosts(accessoryManagerInterface(), operation) ||
           hosts(iAP2ManagerInterface(), operation) || hosts(usbAudioManagerInterface(), operation);
}

}  // namespace accessory::simulator
