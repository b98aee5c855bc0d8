// ProcessWatch: what a process uses while it is under load, and whether it sleeps afterwards.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "tests/simulator/Samples.h"

namespace accessory::load {

class ProcessWatch {
  public:
    explicit ProcessWatch(pid_t pid) : mPid(pid) {}

    /// What it uses now; remembered.
    simulator::test::Sample sample();
    /// Forgets what was sampled so far: the warm-up.
    void forget() { mSamples.clear(); }

    /// Prints the ranges, and fails the test when memory is anywhere further than 15 % from its mean, which
    /// is not asked of a sanitizer.
    void expectSteadyMemory() const;
    /// The most descriptors or threads that were seen.
    size_t most(size_t simulator::test::Sample::*figure) const;

  private:
    const pid_t mPid;
    std::vector<simulator::test::Sample> mSamples;
};

/// Fails the test unless there comes a second, before too long, in which no thread of these processes wakes
/// up; a sanitizer has a thread of its own and is not asked.
void expectSleep(const std::vector<pid_t>& pids);

}  // namespace accessory::load
