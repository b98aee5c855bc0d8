// IPCThreadState: what the runtime knows about the calling thread, above all who is calling it.
#pragma once

#include <binder/Visibility.h>
#include <sys/types.h>
#include <utils/Errors.h>

#include <cstdint>

namespace android {

namespace runtime {
class CallerScope;
}

/// One per thread, made on first use, gone with the thread; to be used by that thread only.
class BINDER_EXPORT IPCThreadState {
  public:
    /// The calling thread's state; null only after shutdown().
    static IPCThreadState* self();
    /// As self(), but null as well when the thread has no state yet.
    static IPCThreadState* selfOrNull();

    /// @name The caller
    /// @{

    /// Whose call this thread is serving, as the kernel names it; outside a call, this process.
    pid_t getCallingPid() const { return mCallingPid; }
    uid_t getCallingUid() const { return mCallingUid; }

    /// @}

    /// Makes this process its own caller until restoreCallingIdentity() with the token that is returned.
    int64_t clearCallingIdentity();
    /// Takes clearCallingIdentity() back.
    void restoreCallingIdentity(int64_t token);

    /// @name Strict-mode policy
    /// @{

    /// A word that the header of every request carries; the runtime does nothing else with it.
    void setStrictModePolicy(int32_t policy) { mStrictModePolicy = policy; }
    int32_t getStrictModePolicy() const { return mStrictModePolicy; }

    /// @}

    /// The user to account calls to, carried in the header of every request from now on.
    /// @return a token for restoreCallingWorkSource().
    int64_t setCallingWorkSourceUid(uid_t uid);
    /// As setCallingWorkSourceUid(), but whether requests carry it stays as it is.
    int64_t setCallingWorkSourceUidWithoutPropagation(uid_t uid);
    /// The user to account calls to; kUnsetWorkSource when nobody said.
    uid_t getCallingWorkSourceUid() const { return static_cast<uid_t>(mWorkSource); }
    /// Sets kUnsetWorkSource. @return a token for restoreCallingWorkSource().
    int64_t clearCallingWorkSource();
    /// Puts back what was set when @p token was given.
    void restoreCallingWorkSource(int64_t token);
    bool shouldPropagateWorkSource() const { return mPropagateWorkSource; }  ///< whether requests carry it
    void clearPropagateWorkSource() { mPropagateWorkSource = false; }  ///< requests carry none from now on

    /// @name Flags
    /// @{

    /// The flags of the call being served; 0 outside a call.
    int32_t getLastTransactionBinderFlags() const { return mLastTransactionFlags; }
    void setLastTransactionBinderFlags(int32_t flags) { mLastTransactionFlags = flags; }

    /// @}

    /// Lets this thread serve calls. Does not return.
    void joinThreadPool(bool isMain = true);

    /// Sends out what waits to be sent; this runtime never holds anything back.
    void flushCommands() {}

    /// Takes the thread states away, as at the end of a process: self() is null from here on, on every
    /// thread.
    static void shutdown();

    static const int32_t kUnsetWorkSource = -1;  ///< nobody to account calls to

    IPCThreadState(const IPCThreadState&) = delete;
    IPCThreadState& operator=(const IPCThreadState&) = delete;
    ~IPCThreadState();

  private:
    friend class runtime::CallerScope;

    IPCThreadState();

    pid_t mCallingPid;
    uid_t mCallingUid;
    int32_t mStrictModePolicy = 0;
    int32_t mWorkSource = kUnsetWorkSource;
    bool mPropagateWorkSource = false;
    int32_t mLastTransactionFlags = 0;
};

}  // namespace android
