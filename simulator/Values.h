// What the simulated service lays down for the numbers that the interfaces leave to a service: the statuses
// that it answers, how many identifiers it tells, and the enumerators that it has in common with the
// examples.
#pragma once

#include "examples/Enumerators.h"

namespace accessory::simulator {

/// The room in a caller's array of identifiers.
inline constexpr unsigned int kMostIds = 10;

/// What a request is answered with. The numbers are the platform's for the same mishaps.
enum Status : int {
    kDone = 0,
    kNotFound = -2,          ///< no such application, call, session, track, transfer ...
    kNoSuchAccessory = -19,  ///< no device of that identifier is attached
    kBadArgument = -22,      ///< null where something is needed, or a value outside its range
    kWrongState = -38,       ///< not now: not started, started already, nothing that could be done
};

/// The second argument of notify().
enum Notification : unsigned int {
    kSessionOpened = 1,
    kSessionClosed = 2,
    kAppLaunched = 3,
    kCarPlayStarted = 10,
};

}  // namespace accessory::simulator
