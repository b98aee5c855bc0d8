#include "RefusalLog.h"

#include "../Log.h"

namespace android::runtime {

namespace {

constexpr std::chrono::seconds kQuiet{1};

}  // namespace

void RefusalLog::tell(const Credentials& who, const char* why) {
    const auto now = std::chrono::steady_clock::now();
    const std::lock_guard<std::mutex> guard(mLock);
    Reason& reason = mReasons[why];
    if (now < reason.quietUntil) {
        ++reason.untold;
        return;
    }
    BINDER_LOGW("process %d of user %d is refused: %s (%u refusals before it were not told)", who.pid,
                static_cast<int>(who.uid), why, reason.untold);
    reason = {now + kQuiet, 0};
}

}  // namespace android::runtime
