// A private dbus-daemon.
#pragma once

#include <string>

namespace accessory::bench {

/// Starts one that ends with the calling thread; from a process without other threads.
/// @param path  of the socket where it listens.
/// @throw std::runtime_error when it cannot be started.
void startBusDaemon(const std::string& path);

}  // namespace accessory::bench
