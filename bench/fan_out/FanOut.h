// FanOut: one way of telling many processes about an event.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace accessory::bench {

/// The process that the events come from.
class Broadcaster {
  public:
    virtual ~Broadcaster() = default;
    /// Waits until that many clients will get the next event.
    virtual void await(uint32_t /*clients*/) {}
    /// Tells every client the event's number.
    virtual void raise(uint32_t event) = 0;
};

/// To be called by a client for every event that it has, with its number.
using Heard = std::function<void(uint32_t event)>;
/// To be called by a client once it is registered.
using Registered = std::function<void()>;

struct FanOut {
    const char* name;
    int place;  ///< in the tables; ours comes first
    std::unique_ptr<Broadcaster> (*broadcast)(const std::string& folder);
    /// Hears events until the process is killed.
    void (*listen)(const std::string& folder, const Heard& heard, const Registered& registered);
};

struct FanOutRegistration {
    explicit FanOutRegistration(const FanOut& fanOut);
};

/// In the order of their places.
const std::vector<FanOut>& fanOuts();

/// The accessory that all events are about.
inline constexpr uint32_t kAccessory = 1;

}  // namespace accessory::bench
