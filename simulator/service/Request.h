// The frame of every request: the world's lock, the status that a fault forces, and the line about it.
#pragma once

#include <mutex>
#include <string>

#include "simulator/World.h"
#include "simulator/faults/FaultInjector.h"
#include "simulator/service/Show.h"

namespace accessory::simulator {

/// @param action carries the request out and returns its status; not called when a fault forces one.
/// @return the status.
template <typename Action>
int serveRequest(World& world, Report& report, const std::string& shown, const Action& action) {
    const std::lock_guard lock(world.lock());
    const int32_t* const forced = ForcedStatus::current();
    const int status = forced != nullptr ? *forced : action();
    report.tell(Report::Kind::kRequest, world.now(), shown + " = " + std::to_string(status));
    return status;
}

}  // namespace accessory::simulator
