// The two processes of a contender, for as long as they are measured.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "bench/support/Child.h"

namespace accessory::bench {

struct Contender;

class ContenderProcesses {
  public:
    /// Starts them, and waits until the caller is connected. @param folder  where they meet.
    ContenderProcesses(const Contender& contender, const std::string& folder);

    /// @return the time of each of so many calls with a payload of so many bytes, in microseconds.
    std::vector<double> timeCalls(size_t size, size_t calls);

    const std::string name;

  private:
    // The service goes first: one that lost its caller would complain.
    std::unique_ptr<Child> mCaller;
    std::unique_ptr<Child> mService;
};

}  // namespace accessory::bench
