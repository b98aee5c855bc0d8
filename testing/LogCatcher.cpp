#include <accessory/testing/LogCatcher.h>

#include <algorithm>
#include <cctype>
#include <condition_variable>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <mutex>
#include <sstream>
#include <utility>

#include "testing/LogSink.h"

namespace accessory::testkit {
namespace {

/// Keeps the lines while a catcher lives. The lock guards all members; nothing is called under it but the
/// matchers of a waiting test.
class Recorder {
  public:
    void begin() {
        const std::lock_guard lock(mLock);
        mLines.clear();
        mCatching = true;
    }

    void end() {
        const std::lock_guard lock(mLock);
        mCatching = false;
    }

    /// @return whether a catcher lives, and so the line was kept.
    bool keep(const LogLine& line) {
        const std::lock_guard lock(mLock);
        if (mCatching) mLines.push_back(line);
        mArrived.notify_all();
        return mCatching;
    }

    std::vector<LogLine> lines() {
        const std::lock_guard lock(mLock);
        return mLines;
    }

    std::vector<LogLine> take() {
        const std::lock_guard lock(mLock);
        return std::exchange(mLines, {});
    }

    bool waitFor(const testing::Matcher<const LogLine&>& wanted, std::chrono::milliseconds patience) {
        std::unique_lock lock(mLock);
        return mArrived.wait_for(lock, patience, [&] {
            return std::any_of(mLines.begin(), mLines.end(),
                               [&](const LogLine& line) { return wanted.Matches(line); });
        });
    }

  private:
    std::mutex mLock;
    std::condition_variable mArrived;
    std::vector<LogLine> mLines;
    bool mCatching = false;
};

/// Never destroyed: runtime threads may log until the process is gone.
Recorder& recorder() {
    static Recorder& instance = *new Recorder;
    return instance;
}

bool isDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

MATCHER_P(ReadsAs, pattern, std::string(negation ? "does not read" : "reads") + " as \"" + pattern + '"') {
    return readsAs(pattern, arg);
}

std::string describe(const testing::Matcher<const LogLine&>& matcher) {
    std::ostringstream text;
    matcher.DescribeTo(&text);
    return text.str();
}

}  // namespace

void sinkLogLine(int priority, const char* tag, const std::string& text) {
    const LogLine line{priority, tag != nullptr ? tag : "", text};
    if (recorder().keep(line) || std::getenv("ACCESSORY_TEST_LOG") == nullptr) return;
    // One string and one write, so that lines of several threads and processes do not mix.
    std::cerr << testing::PrintToString(line) + "\n";
}

void PrintTo(const LogLine& line, std::ostream* out) {
    constexpr char kLetters[] = "??VDIWEF";
    const bool known = line.priority >= ANDROID_LOG_VERBOSE && line.priority <= ANDROID_LOG_FATAL;
    *out << (known ? kLetters[line.priority] : '?') << '/' << line.tag << ": " << line.text;
}

bool readsAs(const std::string& pattern, const std::string& text) {
    auto at = text.begin();
    for (const char expected : pattern) {
        if (at == text.end()) return false;
        if (expected != '#') {
            if (*at++ != expected) return false;
            continue;
        }
        if (!isDigit(*at)) return false;
        at = std::find_if_not(at, text.end(), isDigit);
    }
    return at == text.end();
}

testing::Matcher<const LogLine&> Logged(int priority, const std::string& tag, const std::string& pattern) {
    return testing::AllOf(testing::Field("priority", &LogLine::priority, priority),
                          testing::Field("tag", &LogLine::tag, tag),
                          testing::Field("text", &LogLine::text, ReadsAs(pattern)));
}

testing::Matcher<const LogLine&> LoggedCheck(const std::string& tag, const std::string& function,
                                             const std::string& condition) {
    return Logged(ANDROID_LOG_ERROR, tag, "[" + function + "][#] check '" + condition + "' failed");
}

testing::Matcher<const LogLine&> LoggedStatusCheck(const std::string& tag, const std::string& function) {
    return Logged(ANDROID_LOG_ERROR, tag, function + " #:check return value failed");
}

LogCatcher::LogCatcher() {
    standInForLiblog();
    recorder().begin();
}
LogCatcher::~LogCatcher() { recorder().end(); }

std::vector<LogLine> LogCatcher::lines() const { return recorder().lines(); }
std::vector<LogLine> LogCatcher::take() { return recorder().take(); }
void LogCatcher::clear() { take(); }

std::vector<LogLine> LogCatcher::linesWith(const std::string& tag) const {
    std::vector<LogLine> all = lines();
    std::vector<LogLine> ours;
    std::copy_if(std::make_move_iterator(all.begin()), std::make_move_iterator(all.end()),
                 std::back_inserter(ours), [&](const LogLine& line) { return line.tag == tag; });
    return ours;
}

testing::AssertionResult LogCatcher::arrives(const testing::Matcher<const LogLine&>& line,
                                             std::chrono::milliseconds patience) const {
    if (recorder().waitFor(line, patience)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "no line that " << describe(line) << " within " << patience.count()
                                       << " ms; logged: " << testing::PrintToString(lines());
}

}  // namespace accessory::testkit
