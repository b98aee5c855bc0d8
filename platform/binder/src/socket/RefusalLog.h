// What is told of peers that ask for too much or speak wrongly.
#pragma once

#include <chrono>
#include <map>
#include <mutex>
#include <string>

#include "Socket.h"

namespace android::runtime {

/// Tells of refusals without letting whoever is refused fill the log: one line a second for each reason. Any
/// thread; mLock is a leaf.
class RefusalLog {
  public:
    /// @param why a literal.
    void tell(const Credentials& who, const char* why);

  private:
    struct Reason {
        std::chrono::steady_clock::time_point quietUntil;
        unsigned untold = 0;
    };

    std::mutex mLock;
    std::map<std::string, Reason> mReasons;
};

}  // namespace android::runtime
