// Program: the built accessoryctl, run as people run it.
#pragma once

#include <json/json.h>
#include <sys/types.h>

#include <csignal>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/LineChannel.h"

namespace accessory::test {

using Words = std::vector<std::string>;

/// What a run left behind.
struct Ran {
    int status = -1;  ///< exit status, or -1 when a signal ended it
    std::string out;
    std::string err;

    /// The objects of the output, one a line; a line that is none fails the test.
    std::vector<Json::Value> objects() const;
};

/// Runs accessoryctl to its end, which must come within kPatience.
Ran run(const Words& words);

/// An accessoryctl that goes on, and whose lines are read one by one.
class Program {
  public:
    explicit Program(const Words& words);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    pid_t pid() const { return mPid; }

    /// The next line of its output; empty, and the test has failed, when none comes in time.
    std::string expectLine();
    /// That line as JSON.
    Json::Value expectObject();
    /// All that comes until the output ends.
    std::vector<std::string> remainingLines();

    void signal(int number) const { ::kill(mPid, number); }

    /// @return the exit status, -1 when a signal ended it.
    int wait();

  private:
    std::optional<int> mStatus;
    pid_t mPid = -1;
    std::optional<LineChannel> mOutput;
};

Json::Value parsed(const std::string& line);

}  // namespace accessory::test
