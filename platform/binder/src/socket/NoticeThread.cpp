#include "NoticeThread.h"

#include <utility>

#include "../Contained.h"
#include "../Log.h"
#include "RuntimeThread.h"

namespace android::runtime {

void NoticeThread::post(std::string subject, std::function<void()> action) {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        mNotices.push_back({std::move(subject), std::move(action)});
        mArrived.notify_one();
        if (!mStarted) mStarted = startRuntimeThread("binder-notices", [this] { run(); });
    }
    watch();
}

void NoticeThread::run() {
    for (;;) {
        Notice next;
        {
            std::unique_lock<std::mutex> guard(mLock);
            mArrived.wait(guard, [this] { return !mNotices.empty(); });
            next = std::move(mNotices.front());
            mNotices.pop_front();
            mRunning.begin(LongWait::Clock::now());
            mSubject = next.subject;
        }
        watch();
        if (const auto thrown = thrownBy(next.action)) {
            BINDER_LOGE("an exception left a destructor or another notice: %s", thrown->c_str());
        }
        end();
    }
}

void NoticeThread::end() {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mRunning.wasTold()) {
        BINDER_LOGW("%s has ended after %.1f s; notices go on", mSubject.c_str(), mRunning.seconds());
    }
    mSubject.clear();
}

/// Sees to it that somebody looks in time, if a notice waits behind another.
void NoticeThread::watch() {
    std::chrono::milliseconds left{0};
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mWatched || mSubject.empty() || mNotices.empty() || LongWait::firstSpan().count() == 0) return;
        mWatched = true;
        left = mRunning.untilTelling();
    }
    mReactor.after(left, [this] { look(); });
}

/// On the reactor's thread. What is running may have begun after the look was arranged.
void NoticeThread::look() {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        mWatched = false;
        if (!mSubject.empty() && !mNotices.empty() && mRunning.untilTelling().count() == 0) {
            BINDER_LOGW("%s has been going on for %.1f s; %zu notices wait behind it", mSubject.c_str(),
                        mRunning.seconds(), mNotices.size());
            mRunning.told();
        }
    }
    watch();
}

}  // namespace android::runtime
