// The thread on which death notices are given and objects that nobody holds any more are let go.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>

#include "LongWait.h"
#include "Reactor.h"

namespace android::runtime {

/// Runs foreign code that the runtime provokes outside any call, in order, one after the other: recipients of
/// death notices and destructors of lent objects may lock and wait without holding up the reactor. The thread
/// starts with the first notice. A notice that holds up others for long is told to the log. mLock is a leaf;
/// notices run without it.
class NoticeThread {
  public:
    explicit NoticeThread(Reactor& reactor) : mReactor(reactor) {}

    /// Runs @p action soon, after all that were posted before. Any thread.
    /// @param subject what the log calls it.
    void post(std::string subject, std::function<void()> action);

  private:
    struct Notice {
        std::string subject;
        std::function<void()> action;
    };

    void run();
    void end();
    void watch();
    void look();

    Reactor& mReactor;
    std::mutex mLock;
    std::condition_variable mArrived;
    std::deque<Notice> mNotices;
    bool mStarted = false;
    std::string mSubject;  // of the notice that runs; none when empty
    LongWait mRunning;
    bool mWatched = false;  // a look is due
};

}  // namespace android::runtime
