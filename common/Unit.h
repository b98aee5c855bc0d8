// The five source units of the library as its log lines, traces and assertions name them.
#pragma once

namespace accessory {

/// One interface with everything that belongs to it: proxy, stub, registry, records.
struct Unit {
    const char* tag;   ///< log tag
    const char* file;  ///< where traces and assertions say they come from
};

inline constexpr Unit kAccessoryManagerUnit{"IAccessoryManager", "AccessoryManager/IAccessoryManager.cpp"};
inline constexpr Unit kiAP2ManagerUnit{"IAppleiAP2Manager", "AppleiAP2/IAppleiAP2Manager.cpp"};
inline constexpr Unit kiAP2NotifierUnit{"IAppleiAP2ManagerNotifier",
                                        "AppleiAP2/IAppleiAP2ManagerNotifier.cpp"};
inline constexpr Unit kUSBAudioManagerUnit{"IAppleUSBAudioManager",
                                           "AppleUSBAudio/IAppleUSBAudioManager.cpp"};
inline constexpr Unit kUSBAudioNotifierUnit{"IAppleUSBAudioManagerNotifier",
                                            "AppleUSBAudio/IAppleUSBAudioManagerNotifier.cpp"};

}  // namespace accessory
