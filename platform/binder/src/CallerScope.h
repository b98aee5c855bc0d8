// The identity under which a call is served.
#pragma once

#include <binder/IPCThreadState.h>

namespace android::runtime {

/// For as long as it lives, the calling thread is serving a call of the given process; afterwards it is
/// again what it was before, which lets calls nest.
class CallerScope {
  public:
    CallerScope(pid_t pid, uid_t uid, uint32_t flags);
    ~CallerScope();
    CallerScope(const CallerScope&) = delete;
    CallerScope& operator=(const CallerScope&) = delete;

  private:
    IPCThreadState* const mState;  ///< null after IPCThreadState::shutdown()
    pid_t mPid = 0;
    uid_t mUid = 0;
    int32_t mStrictModePolicy = 0;
    int32_t mWorkSource = 0;
    bool mPropagateWorkSource = false;
    int32_t mFlags = 0;
};

}  // namespace android::runtime
