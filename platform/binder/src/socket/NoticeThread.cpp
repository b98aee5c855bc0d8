#include "NoticeThread.h"

#include <exception>
#include <utility>

#include "../Log.h"
#include "RuntimeThread.h"

namespace android::runtime {

namespace {

/// A notice is foreign code; what it throws must not end the process.
void runContained(const NoticeThread::Notice& notice) {
    try {
        notice();
    } catch (const std::exception& error) {
        BINDER_LOGE("an exception left a death recipient or a destructor: %s", error.what());
    }
}

}  // namespace

void NoticeThread::post(Notice notice) {
    const std::lock_guard<std::mutex> guard(mLock);
    mNotices.push_back(std::move(notice));
    mArrived.notify_one();
    if (mStarted) return;
    mStarted = startRuntimeThread("binder-notices", [this] { run(); });
}

void NoticeThread::run() {
    for (;;) {
        Notice next;
        {
            std::unique_lock<std::mutex> guard(mLock);
            mArrived.wait(guard, [this] { return !mNotices.empty(); });
            next = std::move(mNotices.front());
            mNotices.pop_front();
        }
        runContained(next);
    }
}

}  // namespace android::runtime
