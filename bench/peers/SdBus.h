// What the sd-bus contenders share: checks, owners, and how to join a bus.
#pragma once

#include <systemd/sd-bus.h>

#include <memory>
#include <string>

namespace accessory::bench {

struct SdBusCloser {
    void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using SdBus = std::unique_ptr<sd_bus, SdBusCloser>;
using SdBusMessage = std::unique_ptr<sd_bus_message, SdBusCloser>;

/// @throw std::system_error when @p result, of an sd-bus function, is negative. @return it otherwise.
int checked(int result, const char* what);

/// A connection to the daemon at @p path.
SdBus joinBus(const std::string& path);

}  // namespace accessory::bench
