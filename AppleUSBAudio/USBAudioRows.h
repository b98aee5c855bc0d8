// The transactions of IAppleUSBAudioManager and of its notifier, in the order of their codes.
#pragma once

#include <accessory/IAppleUSBAudioManager.h>

#include <tuple>

#include "common/BinderKind.h"
#include "common/IdList.h"
#include "common/Rows.h"

namespace accessory::wire {

namespace usb_audio_manager {

inline constexpr Manners kManners{kUSBAudioManagerUnit, Reports::kNamedSteps, true};

using Manager = IAppleUSBAudioManager;

inline constexpr auto kSetNotifier =
    request(1, "setNotifier", &Manager::setNotifier,
            NotifierBinder<IAppleUSBAudioManagerNotifier>{"notifier",
                                                          "!data.writeStrongBinder(notifier->asBinder())"});
inline constexpr auto kClearNotifier = request(2, "clearNotifier", &Manager::clearNotifier);
inline constexpr auto kStartup = request(3, "startup", &Manager::startup);
inline constexpr auto kShutdown = request(4, "shutdown", &Manager::shutdown);
inline constexpr auto kGetIds = request(5, "getIds", &Manager::getIds, IdList{"ids", "count"});
inline constexpr auto kSetSampleRate =
    request(6, "setSampleRate", &Manager::setSampleRate, u32("value1"), u32("value2"));
inline constexpr auto kSetVolume = request(7, "setVolume", &Manager::setVolume, u32("value1"), u32("value2"));
inline constexpr auto kStart = request(8, "start", &Manager::start, u32("value"));
inline constexpr auto kStop = request(9, "stop", &Manager::stop, u32("value"));
inline constexpr auto kPlay = request(10, "play", &Manager::play, u32("value"));
inline constexpr auto kPause = request(11, "pause", &Manager::pause, u32("value"));

inline constexpr auto kRows = std::tuple(kSetNotifier, kClearNotifier, kStartup, kShutdown, kGetIds,
                                         kSetSampleRate, kSetVolume, kStart, kStop, kPlay, kPause);

}  // namespace usb_audio_manager

namespace usb_audio_notifier {

inline constexpr Manners kManners{kUSBAudioNotifierUnit, Reports::kNamedSteps, false};

inline constexpr auto kAttach =
    request(1, "attach", &IAppleUSBAudioManagerNotifier::attach, u32("accessoryId"));
inline constexpr auto kDetach =
    request(2, "detach", &IAppleUSBAudioManagerNotifier::detach, u32("accessoryId"));

inline constexpr auto kRows = std::tuple(kAttach, kDetach);

}  // namespace usb_audio_notifier
}  // namespace accessory::wire
