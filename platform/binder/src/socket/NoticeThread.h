// The thread on which death notices are given and objects that nobody holds any more are let go.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <utility>

namespace android::runtime {

/// Runs foreign code that the runtime provokes outside any call, in order, one after the other: recipients of
/// death notices and destructors of lent objects may lock and wait without holding up the reactor. The thread
/// starts with the first notice. mLock is a leaf; notices run without it.
class NoticeThread {
  public:
    using Notice = std::function<void()>;

    /// @param retry called when the system has no thread left: to call run() again some time later.
    explicit NoticeThread(std::function<void()> retry) : mRetry(std::move(retry)) {}

    /// Runs @p notice soon, after all that were posted before. Any thread.
    void post(Notice notice);

    /// Sees to it that there is a thread for what was posted.
    void ensureRunning();

  private:
    void run();

    const std::function<void()> mRetry;

    std::mutex mLock;
    std::condition_variable mArrived;
    std::deque<Notice> mNotices;
    bool mStarted = false;
};

}  // namespace android::runtime
