// SimulatorProcess: the program, or a client of it, as a child of the test.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace accessory::simulator::test {

/// What it prints, on both streams, is kept.
class SimulatorProcess {
  public:
    explicit SimulatorProcess(const std::vector<std::string>& arguments);
    /// Another program instead.
    SimulatorProcess(const std::string& program, const std::vector<std::string>& arguments);
    /// Kills it if it still runs.
    ~SimulatorProcess();

    SimulatorProcess(const SimulatorProcess&) = delete;
    SimulatorProcess& operator=(const SimulatorProcess&) = delete;

    /// Reads until it has printed @p text. @return false when it ends without, or takes too long.
    bool says(const std::string& text);
    bool ready() { return says("ready\n"); }

    pid_t pid() const { return mPid; }
    void signal(int number) const;

    /// Reads to the end. @return the exit status, or 128 and the signal that ended it.
    int wait();

    /// Reads what it has printed so far: a process that nobody listens to stands still in the end.
    void listen();

    /// What it has printed as far as it was read.
    const std::string& output() const { return mOutput; }

  private:
    bool hasMore(int milliseconds) const;
    bool readMore();

    pid_t mPid = -1;
    int mPipe = -1;
    std::string mOutput;
    std::optional<int> mStatus;
};

}  // namespace accessory::simulator::test
