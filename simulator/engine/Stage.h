// Stage: what a simulated device needs of the world around it: time, chance, and somebody to tell.
#pragma once

#include <accessory/AppleUSBAudioManagerNotifier.h>
#include <accessory/AppleiAP2ManagerNotifier.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <random>

namespace accessory::simulator {

using std::chrono::milliseconds;

/// Used with the world locked. Times are of the simulation: --speed makes them pass faster.
class Stage {
  public:
    using Action = std::function<void()>;
    using Event = std::function<void(AppleiAP2ManagerNotifierItf&)>;
    using USBAudioEvent = std::function<void(AppleUSBAudioManagerNotifierItf&)>;

    virtual ~Stage() = default;

    /// Since the simulator started.
    virtual milliseconds now() const = 0;

    /// Raises an event soon, after those that were told before, on the event thread and with nothing locked.
    /// @param event owns all that it hands to the clients.
    virtual void tell(Event event) = 0;
    virtual void tellUSBAudio(USBAudioEvent event) = 0;

    /// Runs @p action once, on the event thread with the world locked. @return for cancel(); never 0.
    virtual uint64_t after(milliseconds delay, Action action) = 0;
    /// The action will not run; nothing happens when it has.
    virtual void cancel(uint64_t timer) = 0;

    /// Seeded by --seed or the scenario, and by nothing else.
    virtual std::mt19937& random() = 0;
};

}  // namespace accessory::simulator
