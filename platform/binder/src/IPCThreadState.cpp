#include <binder/IPCThreadState.h>
#include <unistd.h>

#include <atomic>
#include <new>
#include <utility>

#include "CallerScope.h"
#include "Transport.h"

namespace android {

namespace {

std::atomic<bool> gShutDown{false};

/// Holds the thread's state in memory of its own: a call is never served under a wrong identity because there
/// was none left.
struct StateOfThread {
    alignas(IPCThreadState) unsigned char place[sizeof(IPCThreadState)] = {};
    IPCThreadState* state = nullptr;
    ~StateOfThread() {
        if (state != nullptr) std::exchange(state, nullptr)->~IPCThreadState();
    }
};
thread_local StateOfThread tState;

// Outlives tState: whoever asks while the thread is being taken apart gets null instead of a dead object.
thread_local bool tGone = false;

constexpr int64_t kPropagateBit = int64_t{1} << 32;

}  // namespace

IPCThreadState::IPCThreadState() : mCallingPid(getpid()), mCallingUid(getuid()) {}

IPCThreadState::~IPCThreadState() { tGone = true; }

IPCThreadState* IPCThreadState::self() {
    if (gShutDown || tGone) return nullptr;
    if (tState.state == nullptr) tState.state = new (tState.place) IPCThreadState();
    return tState.state;
}

IPCThreadState* IPCThreadState::selfOrNull() { return gShutDown || tGone ? nullptr : tState.state; }

void IPCThreadState::shutdown() { gShutDown = true; }

// The token carries the user in its upper and the process in its lower half.
int64_t IPCThreadState::clearCallingIdentity() {
    const int64_t token = (static_cast<int64_t>(mCallingUid) << 32) | static_cast<uint32_t>(mCallingPid);
    mCallingPid = getpid();
    mCallingUid = getuid();
    return token;
}

void IPCThreadState::restoreCallingIdentity(int64_t token) {
    mCallingUid = static_cast<uid_t>(token >> 32);
    mCallingPid = static_cast<pid_t>(token);
}

int64_t IPCThreadState::setCallingWorkSourceUid(uid_t uid) {
    const int64_t token = setCallingWorkSourceUidWithoutPropagation(uid);
    mPropagateWorkSource = true;
    return token;
}

int64_t IPCThreadState::setCallingWorkSourceUidWithoutPropagation(uid_t uid) {
    const int64_t token = (mPropagateWorkSource ? kPropagateBit : 0) | static_cast<uint32_t>(mWorkSource);
    mWorkSource = static_cast<int32_t>(uid);
    return token;
}

int64_t IPCThreadState::clearCallingWorkSource() {
    return setCallingWorkSourceUid(static_cast<uid_t>(kUnsetWorkSource));
}

void IPCThreadState::restoreCallingWorkSource(int64_t token) {
    mWorkSource = static_cast<int32_t>(token);
    mPropagateWorkSource = (token & kPropagateBit) != 0;
}

void IPCThreadState::joinThreadPool(bool /*isMain*/) { runtime::Transport::instance().joinThreadPool(); }

namespace runtime {

CallerScope::CallerScope(pid_t pid, uid_t uid, uint32_t flags) : mState(IPCThreadState::self()) {
    if (mState == nullptr) return;
    mPid = mState->mCallingPid;
    mUid = mState->mCallingUid;
    mStrictModePolicy = mState->mStrictModePolicy;
    mWorkSource = mState->mWorkSource;
    mPropagateWorkSource = mState->mPropagateWorkSource;
    mFlags = mState->mLastTransactionFlags;
    mState->mCallingPid = pid;
    mState->mCallingUid = uid;
    mState->mWorkSource = IPCThreadState::kUnsetWorkSource;
    mState->mPropagateWorkSource = false;
    mState->mLastTransactionFlags = static_cast<int32_t>(flags);
}

CallerScope::~CallerScope() {
    if (mState == nullptr) return;
    mState->mCallingPid = mPid;
    mState->mCallingUid = mUid;
    mState->mStrictModePolicy = mStrictModePolicy;
    mState->mWorkSource = mWorkSource;
    mState->mPropagateWorkSource = mPropagateWorkSource;
    mState->mLastTransactionFlags = mFlags;
}

}  // namespace runtime
}  // namespace android
