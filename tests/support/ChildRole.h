// CHILD_ROLE: what a test program does when a test has started it again as another process.
#pragma once

#include <string>
#include <vector>

#include "tests/support/LineChannel.h"

namespace accessory::test {

/// The child's end of the conversation with the test that started it.
class ChildSide {
  public:
    explicit ChildSide(int descriptor) : mChannel(descriptor) {}

    /// Hands the test one line, without a newline. Ends the process when nobody listens any more.
    void send(const std::string& line);

    /// The test's next line. Ends the process, with a message on stderr, when none comes in time.
    std::string expectLine(std::chrono::milliseconds patience = kPatience);

    /// Serves until the test hangs up: returns when ChildProcess::hangUp() was called or the test is gone.
    void awaitHangUp() { mChannel.drain(); }

  private:
    LineChannel mChannel;
};

/// Arguments as the test gave them.
using RoleArguments = std::vector<std::string>;
/// @return the exit status of the process.
using RoleBody = int (*)(ChildSide& parent, const RoleArguments& args);

/// Enters a role; made by CHILD_ROLE before main() runs.
struct RoleRegistration {
    RoleRegistration(const char* name, RoleBody body);
};

/// Exit statuses of a child beside those that its role returns.
enum ChildExit : int {
    kUnknownRole = 120,       ///< no CHILD_ROLE of that name in this program
    kLostParent = 121,        ///< the test was gone, or silent for too long
    kFailedExpectation = 122  ///< the role returned 0 after a GoogleTest assertion had failed in it
};

/// Whether the command line asks for a role: "--child=<role> <pid of the test> arguments...".
bool isChild(int argc, char** argv);

/// Runs the role of the command line. @return the exit status.
int runChild(int argc, char** argv);

}  // namespace accessory::test

/// CHILD_ROLE(name) { ... return 0; } with `ChildSide& parent` and `const RoleArguments& args` in its body.
/// Started by ChildProcess("name"). The name is unique in its test program.
#define CHILD_ROLE(name)                                                                     \
    static int name##Role(::accessory::test::ChildSide& parent,                              \
                          const ::accessory::test::RoleArguments& args);                     \
    static const ::accessory::test::RoleRegistration name##Registration(#name, &name##Role); \
    static int name##Role([[maybe_unused]] ::accessory::test::ChildSide& parent,             \
                          [[maybe_unused]] const ::accessory::test::RoleArguments& args)
