// Crowd: a broadcaster and the clients that it tells, each a process.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "bench/support/Child.h"

namespace accessory::bench {

class Crowd {
  public:
    /// Starts the broadcaster. @param way  the name of a FanOut. @param folder  where the processes meet.
    Crowd(const std::string& way, const std::string& folder);

    /// Starts clients until there are so many, and waits until they have registered.
    void growTo(size_t clients);

    /// Raises events one at a time. @return how long each took until the last client had it, in microseconds.
    std::vector<double> timeEvents(size_t count);

    const std::string name;

  private:
    void addBatch(size_t count);

    const std::string mFolder;
    // The clients go first: those that lost their broadcaster would complain.
    Child mBroadcaster;
    std::vector<std::unique_ptr<Child>> mClients;
};

}  // namespace accessory::bench
