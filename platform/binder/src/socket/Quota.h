// How much of one thing each process may have here.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace android::runtime {

/// Counts something by process, and refuses what is too much. Outlives its shares. Any thread; mLock is a
/// leaf.
class Quota {
  public:
    /// One of them, counted until its end; or none, when it was refused.
    class Share {
      public:
        Share() = default;
        Share(Quota* quota, pid_t process) : mQuota(quota), mProcess(process) {}
        Share(Share&& other) noexcept
            : mQuota(std::exchange(other.mQuota, nullptr)), mProcess(other.mProcess) {}
        Share& operator=(Share&& other) noexcept;
        ~Share();
        explicit operator bool() const { return mQuota != nullptr; }

      private:
        Quota* mQuota = nullptr;
        pid_t mProcess = 0;
    };

    explicit Quota(size_t mostOfAProcess) : mMostOfAProcess(mostOfAProcess) {}

    Share take(pid_t process);

  private:
    void giveBack(pid_t process);

    const size_t mMostOfAProcess;
    std::mutex mLock;
    std::unordered_map<pid_t, size_t> mByProcess;
};

}  // namespace android::runtime
