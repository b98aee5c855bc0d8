// The dead, until all that they said has been heard.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

namespace android::runtime {

class Node;
class Peer;

/// A process that passes one of this process's objects on says so and may die. Until that is heard, nothing
/// but its own reference keeps the object, and its link may still stand at the door: so a peer's references
/// end when its links are read to their end and, unless its own was one of them, nobody stands at the door,
/// though not much later than it dies.
///
/// Peers are dealt with on the reactor's thread. mLock is taken before the reactor's, and no other under it.
class Departures {
  public:
    explicit Departures(Node& node) : mNode(node) {}

    /// Takes leave of a peer that is dead, a moment later. Any thread. Throws std::bad_alloc, and has not
    /// taken it, when there is no memory.
    void add(std::shared_ptr<Peer> peer);

  private:
    using Clock = std::chrono::steady_clock;
    struct Heard {
        uint64_t timesDeserted;
        Clock::time_point latest;
        std::shared_ptr<Peer> peer;
    };

    void settleLaterLocked(std::chrono::milliseconds delay);
    void settle();
    void hear();

    Node& mNode;
    std::mutex mLock;  // guards what add() and the reactor's thread share
    std::vector<std::shared_ptr<Peer>> mDead;
    bool mDue = false;         // a timer settles
    std::deque<Heard> mHeard;  // oldest first; for the reactor's thread alone
};

}  // namespace android::runtime
