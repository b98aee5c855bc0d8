// The log lines about slow calls, taken apart. The program that uses them has a first span of kSpanMs.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/LogCatcher.h"

namespace accessory::test {

/// BINDER_SLOW_CALL_MS of this test program and its children.
inline constexpr int kSpanMs = 100;

/// "call 7 of test.Service has been waiting for process 12 (name) for 0.1 s"
struct SlowLine {
    std::string call;     ///< "call 7 of test.Service"
    std::string process;  ///< "12 (name)"
    double seconds = 0;
    std::optional<int> status;  ///< of a call that has ended
};

/// Those so far, in order, each a warning of the runtime.
std::vector<SlowLine> slowLines(const LogCatcher& log);

/// The last one; empty when there is none.
SlowLine lastSlowLine(const LogCatcher& log);

/// Waits until so many lines about waiting for @p process are there.
testing::AssertionResult isToldOf(const LogCatcher& log, pid_t process, size_t times = 1);

/// How the log names a child of this test program: they are started through /proc/self/exe.
std::string namedInLog(pid_t process);

}  // namespace accessory::test
