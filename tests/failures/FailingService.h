// A test service in a process of its own in which something can be made to fail.
#pragma once

#include <binder/IBinder.h>

#include <memory>
#include <string>

#include "tests/failures/NthFailure.h"
#include "tests/support/ChildProcess.h"

namespace accessory::test {

/// Everything that TestService.h names, and a second object through which failures are armed.
class FailingService {
  public:
    FailingService();

    const std::string& name() const { return mName; }
    void arm(Failing what, int n, int error);
    /// @return whether the failure happened.
    bool disarm();
    /// Cuts what its sockets move; see ShortTransfer.h.
    void shortenTransfers();
    /// Whether it serves still, at the end of everything that failed in it.
    bool isWell();

  private:
    std::string mName;
    ChildProcess mProcess;
};

}  // namespace accessory::test
