// The floor of many clients: a bare Unix socket and a thread of the service for each of them.
#pragma once

#include <memory>
#include <string>

#include "bench/support/Child.h"
#include "bench/support/Payload.h"

namespace accessory::bench {

/// Once it can be reached.
std::unique_ptr<Child> startFloorService(const std::string& folder);

/// A client's connection to it.
class FloorConnection {
  public:
    explicit FloorConnection(const std::string& folder);
    /// As many bytes to and fro as a small call has. @return the service's answer.
    uint32_t call(const Payload& payload) const;

  private:
    const int mFd;
};

}  // namespace accessory::bench
