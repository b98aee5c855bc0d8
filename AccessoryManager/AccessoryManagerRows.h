// The transactions of IAccessoryManager.
#pragma once

#include <accessory/IAccessoryManager.h>

#include "common/Rows.h"

namespace accessory::wire::accessory_manager {

inline constexpr Manners kManners{kAccessoryManagerUnit, Reports::kNamedSteps, true};

inline constexpr auto kGetDeviceCount = request(1, "getDeviceCount", &IAccessoryManager::getDeviceCount);
inline constexpr auto kGetFeature =
    request(2, "getFeature", &IAccessoryManager::getFeature, u32("accessoryId"));
inline constexpr auto kGetPath = request(3, "getPath", &IAccessoryManager::getPath, u32("accessoryId"))
                                     .withReplyCheck("!reply->writeString8(getPath(accessoryId))");
inline constexpr auto kGetAccessoryId = request(4, "getAccessoryId", &IAccessoryManager::getAccessoryId,
                                                string8("path", "!data.writeString8(path)"));

inline constexpr auto kRows = std::tuple(kGetDeviceCount, kGetFeature, kGetPath, kGetAccessoryId);

}  // namespace accessory::wire::accessory_manager
