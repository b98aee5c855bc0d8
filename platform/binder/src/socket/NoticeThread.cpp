#include "NoticeThread.h"

#include <utility>

#include "../Contained.h"
#include "../Log.h"
#include "RuntimeThread.h"

namespace android::runtime {

void NoticeThread::post(Notice notice) {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        mNotices.push_back(std::move(notice));
        mArrived.notify_one();
        if (mStarted) return;
    }
    ensureRunning();
}

void NoticeThread::ensureRunning() {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (!mStarted) mStarted = startRuntimeThread("binder-notices", [this] { run(); });
        if (mStarted) return;
    }
    mRetry();
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
        if (const auto thrown = thrownBy(next)) {
            BINDER_LOGE("an exception left a destructor or another notice: %s", thrown->c_str());
        }
    }
}

}  // namespace android::runtime
