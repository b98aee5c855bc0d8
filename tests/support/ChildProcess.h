// ChildProcess: a second process for a test. It is this same program, started afresh (never a bare fork, so
// it has no half-copied threads or connections), in one of the roles that CHILD_ROLE gave it.
#pragma once

#include <sys/types.h>

#include <csignal>
#include <optional>
#include <string>

#include "tests/support/ChildRole.h"
#include "tests/support/LineChannel.h"

namespace accessory::test {

/// The descriptor at which a child finds its end of the conversation.
inline constexpr int kChildDescriptor = 3;

/// A running child and the test's end of the conversation with it. Whatever does not happen in time fails
/// the test at the line that waited; nothing hangs. For one thread at a time; that thread must not end
/// before the child, because the kernel kills the child with the thread that started it.
class ChildProcess {
  public:
    /// Starts a child in the role CHILD_ROLE(@p role).
    explicit ChildProcess(const std::string& role, const RoleArguments& args = {});

    /// Kills the child if it still runs, and reaps it.
    ~ChildProcess();

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t pid() const { return mPid; }

    /// The child's next line; empty, and the test has failed, when none comes within @p patience.
    std::string expectLine(std::chrono::milliseconds patience = kPatience,
                           const char* file = __builtin_FILE(), int line = __builtin_LINE());

    /// Hands the child one line, without a newline; fails the test when the child does not take it.
    void send(const std::string& text, const char* file = __builtin_FILE(), int line = __builtin_LINE());

    /// Ends the conversation, not the child: ChildSide::awaitHangUp() returns.
    void hangUp() { mChannel.close(); }

    /// Sends the child a signal; nothing happens once wait() has returned.
    void kill(int signal = SIGKILL);

    /// Sends SIGSTOP and waits until every thread of the child stands still, which SIGCONT or SIGKILL ends.
    void stop();

    /// Waits for the end of the child, however often it is called.
    /// @return its status as waitpid() tells it, for testing::ExitedWithCode and testing::KilledBySignal;
    /// when it does not end within @p patience, the test has failed and the child is killed.
    int wait(std::chrono::milliseconds patience = kPatience, const char* file = __builtin_FILE(),
             int line = __builtin_LINE());

  private:
    ChildProcess(const std::string& role, const RoleArguments& args, std::pair<int, int> ends);

    bool reap(int options);
    std::string name() const;

    const std::string mRole;
    LineChannel mChannel;
    pid_t mPid;
    std::optional<int> mStatus;  ///< once reaped
};

}  // namespace accessory::test
