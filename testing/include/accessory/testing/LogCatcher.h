// LogCatcher: what the platform log was told while the catcher lived. A test program that names it carries
// its own __android_log_print, which takes the place of liblog's for all libraries in the process.
#pragma once

#include <accessory/testing/Eventually.h>
#include <android/log.h>
#include <gmock/gmock.h>

#include <chrono>
#include <iosfwd>
#include <string>
#include <vector>

namespace accessory::testkit {

/// One line as it was handed to the platform log.
struct LogLine {
    int priority;      ///< android_LogPriority
    std::string tag;   ///< name of the interface
    std::string text;  ///< filled in, without a line end
};

/// How GoogleTest shows a line.
void PrintTo(const LogLine& line, std::ostream* out);

/// Whether @p text reads as @p pattern, in which each '#' stands for a decimal number (a source line).
bool readsAs(const std::string& pattern, const std::string& text);

/// Matches a line of that priority and tag whose text reads as @p pattern (see readsAs()).
testing::Matcher<const LogLine&> Logged(int priority, const std::string& tag, const std::string& pattern);

/// The line of a failed condition check in @p function: "[function][#] check 'condition' failed", ERROR.
testing::Matcher<const LogLine&> LoggedCheck(const std::string& tag, const std::string& function,
                                             const std::string& condition);

/// The line of a failed return-value check in @p function: "function #:check return value failed", ERROR.
testing::Matcher<const LogLine&> LoggedStatusCheck(const std::string& tag, const std::string& function);

/// Records the lines of all threads from its construction on; one at a time. Lines that are logged when no
/// catcher lives go to stderr when ACCESSORY_TEST_LOG is set, and nowhere otherwise.
class LogCatcher {
  public:
    LogCatcher();
    ~LogCatcher();

    LogCatcher(const LogCatcher&) = delete;
    LogCatcher& operator=(const LogCatcher&) = delete;

    /// All lines so far, in the order in which they were logged.
    std::vector<LogLine> lines() const;

    /// The lines of one tag, in order.
    std::vector<LogLine> linesWith(const std::string& tag) const;

    /// All lines so far, which are forgotten: none is told twice, and none is missed.
    std::vector<LogLine> take();

    /// Forgets the lines so far.
    void clear();

    /// Waits until a line that @p line matches is there.
    /// @return failure that shows all lines when none came within @p patience.
    testing::AssertionResult arrives(const testing::Matcher<const LogLine&>& line,
                                     std::chrono::milliseconds patience = kPatience) const;
};

}  // namespace accessory::testkit
