// Stream sockets in a folder, for contenders that speak over bare ones.
#pragma once

#include <cstddef>
#include <string>

namespace accessory::bench {

/// These throw std::system_error. The descriptor is the caller's.
int listenAt(const std::string& path);
int acceptOne(int listening);
int connectTo(const std::string& path);

/// @return false when the other end is gone.
bool sendAll(int fd, const void* bytes, size_t size);
/// Waits for @p size bytes. @return false when the other end is gone.
bool receiveAll(int fd, void* bytes, size_t size);

}  // namespace accessory::bench
