// The services that the command line talks to: real stubs in a process of their own, which raise events when
// the test says so.
#pragma once

#include <string>

#include "tests/support/ChildProcess.h"

namespace accessory::test {

/// Serves IAppleiAP2Manager over a ManagerRecorder, IAccessoryManager, and IAppleUSBAudioManager.
class Services {
  public:
    /// stop() of this accessory never answers, that of the other one ends the process.
    static constexpr unsigned int kSilent = 57005;
    static constexpr unsigned int kDeadly = 48879;

    Services() { EXPECT_EQ(process.expectLine(), "ready"); }

    /// Has the service do something, see the role in Services.cpp, and waits until it is done.
    /// @return what it says to that.
    std::string ask(const std::string& what) {
        process.send(what);
        return process.expectLine();
    }

    ChildProcess process{"toolServices"};
};

}  // namespace accessory::test
