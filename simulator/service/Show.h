// Arguments of requests and events as --verbose shows them.
#pragma once

#include <accessory/AppleiAP2Types.h>
#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/PowerRecords.h>
#include <accessory/RouteGuidanceRecords.h>

#include <string>
#include <type_traits>
#include <vector>

namespace accessory::simulator {

/// Bytes that are shown in hexadecimal; null is shown as such.
struct Bytes {
    const void* data;
    size_t count;
};

std::string show(const char* text);
std::string show(const std::string& text);
std::string show(bool value);
std::string show(const Bytes& bytes);
std::string show(const std::vector<std::string>& texts);
std::string show(const FileTransferSetup& setup);
std::string show(const AppleAppList& application);
std::string show(const CallStateUpdateParam& param);
std::string show(const CommunicationsUpdateParam& param);
std::string show(const CPAvailabilityWiredAttributes& wired);
std::string show(const CPAvailabilityWirelessAttributes& wireless);
std::string show(const DestinationInfo& info);
std::string show(const InitiateCallParam& param);

template <typename T, std::enable_if_t<std::is_arithmetic_v<T> || std::is_enum_v<T>, int> = 0>
std::string show(T value) {
    return std::to_string(static_cast<long long>(value));
}

template <typename T>
std::string show(const android::sp<T>& record) {
    return record != nullptr ? toString(*record) : "null";
}

/// "name(1, "text", 3)".
template <typename... Arguments>
std::string showCall(const char* name, const Arguments&... arguments) {
    std::string text = std::string(name) + '(';
    [[maybe_unused]] const char* separator = "";
    ((text += separator + show(arguments), separator = ", "), ...);
    return text + ')';
}

}  // namespace accessory::simulator
