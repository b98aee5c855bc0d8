// Objects of several processes that call each other in a ring, as deep as they are asked to.
#pragma once

#include <binder/IBinder.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/ChildProcess.h"

namespace accessory::test {

/// So many processes; each calls the next one, the last calls the first.
class Ring {
  public:
    /// @param poolThreads of each process.
    Ring(int processes, int poolThreads);

    /// Lets the first process call, and that the next, until so many calls wait for each other.
    /// @param made how many were made; unchanged unless the result is NO_ERROR.
    android::status_t turn(int calls, int* made) const;

    /// How many calls its members are in the middle of.
    int callsUnderWay() const;

    ChildProcess& process(size_t place) { return *mProcesses.at(place); }

  private:
    std::vector<std::unique_ptr<ChildProcess>> mProcesses;
    std::vector<android::sp<android::IBinder>> mMembers;
};

}  // namespace accessory::test
