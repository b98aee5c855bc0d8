// Tally: how many clients have an event, in memory that all processes of a run share. The same for all
// contenders, so that each is measured until the last client has the event, whether it waits for answers or
// not.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

namespace accessory::bench {

class Tally {
  public:
    /// Maps the memory that every process of the run finds in the folder under the name.
    /// @throw std::system_error when it cannot.
    Tally(const std::string& folder, const std::string& name);

    /// Broadcaster: before an event that @p clients shall have.
    void expect(uint32_t clients);
    /// Broadcaster: waits until they all have it. @throw std::runtime_error when they do not in 10 s.
    void awaitAll();
    /// Client: has the event.
    void count();

  private:
    struct Shared {
        std::atomic<uint32_t> missing;
        std::atomic<uint32_t> complete;  ///< events that all clients have
    };

    Shared* const mShared;
    uint32_t mBefore = 0;
};

}  // namespace accessory::bench
