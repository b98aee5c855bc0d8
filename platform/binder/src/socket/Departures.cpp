#include "Departures.h"

#include <utility>

#include "../OutOfMemory.h"
#include "Node.h"
#include "Peer.h"

namespace android::runtime {

namespace {

using namespace std::chrono_literals;

/// How long to wait for those at the door, who cannot be let in as long as there are no descriptors.
constexpr auto kPatience = 5s;
/// Between two looks at the door.
constexpr auto kLook = 1ms;

}  // namespace

void Departures::add(std::shared_ptr<Peer> peer) {
    const std::lock_guard<std::mutex> guard(mLock);
    mDead.push_back(std::move(peer));
    elseUndo([this] { settleLaterLocked(0ms); }, [this] { mDead.pop_back(); });
}

void Departures::settleLaterLocked(std::chrono::milliseconds delay) {
    if (mDue) return;
    mNode.reactor.after(delay, [this] { settle(); });
    mDue = true;
}

void Departures::settle() {
    hear();
    const uint64_t timesDeserted = mNode.timesDeserted();
    const auto now = Clock::now();
    const auto mayGo = [&](const Heard& heard) {
        return heard.timesDeserted < timesDeserted || heard.latest <= now;
    };
    while (!mHeard.empty() && mayGo(mHeard.front())) {
        mHeard.front().peer->depart();
        mHeard.pop_front();
    }
    if (mHeard.empty()) return;
    patiently([this] {
        const std::lock_guard<std::mutex> guard(mLock);
        settleLaterLocked(kLook);
    });
}

/// Who is found dead meanwhile has a turn of its own.
void Departures::hear() {
    std::vector<std::shared_ptr<Peer>> dead;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        dead.swap(mDead);
        mDue = false;
    }
    if (dead.empty()) return;
    const uint64_t timesDeserted = mNode.timesDeserted();
    for (const std::shared_ptr<Peer>& peer : dead) {
        peer->hearLastWords();
        if (!peer->mayStandAtTheDoor()) {
            peer->depart();
            continue;
        }
        patiently([&] { mHeard.push_back({timesDeserted, Clock::now() + kPatience, peer}); });
    }
}

}  // namespace android::runtime
