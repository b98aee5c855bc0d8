// Arguments as text. Showing an argument reads all of it: strings to their end, buffers to their length,
// records through every getter; a sanitizer then tells what is not there.
#pragma once

#include <accessory/AppleiAP2Types.h>
#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/PowerRecords.h>
#include <accessory/RouteGuidanceRecords.h>

#include <string>
#include <type_traits>
#include <vector>

namespace accessory::test {

/// Bytes of a buffer: "[01 ff]", or their number and sum when they are many; "null" without a buffer.
struct View {
    const void* data;
    size_t size;
};

/// Elements of an application list; "null" without one.
struct AppView {
    const AppleAppList* list;
    size_t count;
};

std::string show(bool value);
std::string show(const char* text);
std::string show(const View& view);
std::string show(const AppView& apps);
std::string show(const FileTransferSetup* setup);
std::string show(const CallStateUpdateParam& param);
std::string show(const CommunicationsUpdateParam* param);
std::string show(const DestinationInfo* info);
std::string show(const CPAvailabilityWiredAttributes* attributes);
std::string show(const CPAvailabilityWirelessAttributes* attributes);
std::string show(const std::vector<std::string>& texts);

/// Records: "{mask place:value ...}" of the getters behind getMask() that do not give 0 or null, counted from
/// 0; arrays in brackets.
std::string show(const iAP2MediaLibData& record);
std::string show(const iAP2ItemAttribute& record);
std::string show(const iAP2MediaPlayback& record);
std::string show(const iAP2PowerUpdate& record);
std::string show(const RouteGuidaceUpdateInfo& record);
std::string show(const RuoteGuidanceManeuverUpdateInfo& record);
std::string show(const LaneGuidanceInfo& record);

template <typename Record>
std::string show(const android::sp<Record>& record) {
    return record == nullptr ? "null" : show(*record);
}

/// Numbers and enumerations.
template <typename Number>
std::enable_if_t<std::is_enum_v<Number> || (std::is_integral_v<Number> && !std::is_same_v<Number, bool>),
                 std::string>
show(Number value) {
    if constexpr (std::is_enum_v<Number>) {
        return std::to_string(static_cast<std::underlying_type_t<Number>>(value));
    } else {
        return std::to_string(value);
    }
}

}  // namespace accessory::test
