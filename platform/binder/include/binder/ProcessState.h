// ProcessState: this process as a member of the Binder world; its threads that serve calls.
#pragma once

#include <binder/Visibility.h>
#include <utils/Errors.h>
#include <utils/RefBase.h>
#include <utils/String8.h>

#include <cstddef>

namespace android {

/// The process and its threads for calls; one instance.
class BINDER_EXPORT ProcessState : public virtual RefBase {
  public:
    /// The one instance, made on first use and kept until the process ends. Any thread may use it.
    static sp<ProcessState> self();
    /// As self(), but null when nothing has used the runtime yet.
    static sp<ProcessState> selfOrNull();

    /// Starts serving calls in the background; more threads follow as calls need them. Calls that arrived
    /// earlier are served now. Further calls of this function do nothing.
    void startThreadPool();

    /// Sets how many pool threads there may be besides those that joined; 15 unless told. Threads that run
    /// already are kept.
    status_t setThreadPoolMaxThreadCount(size_t maxThreads);

    /// Where this process meets the others: the runtime directory.
    String8 getDriverName();

  private:
    ProcessState();
    ~ProcessState() override;
};

}  // namespace android
