// The library's iAP2 manager, for a service process in which something can be made to fail.
#pragma once

#include <utils/Errors.h>
#include <utils/String16.h>

#include <string>

namespace accessory::test {

/// The name of the manager beside the test service called @p service.
android::String16 managerName(const std::string& service);

/// Publishes it, for as long as the process lives. It raises attach() when it is asked to start a device, and
/// mediaLibUpdateDataReady() when it is asked for its library.
/// @return the status of addService().
android::status_t publishManager(const std::string& service);

/// The masks of a request for what is playing, and the answer when they have come whole, not at all, or
/// otherwise.
inline constexpr unsigned int kItemFields = 0x43;
inline constexpr unsigned int kPlaybackFields = 0x5;
inline constexpr int kMasksCame = 5;
inline constexpr int kNoMasks = 6;
inline constexpr int kOtherMasks = 7;

/// What the update tells: one item of this number and title.
inline constexpr unsigned long long kItem = 0x1234567890;
inline constexpr char kTitle[] = "a title that is too long for a string without memory";

}  // namespace accessory::test
