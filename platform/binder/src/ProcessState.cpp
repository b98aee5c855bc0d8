#include <binder/ProcessState.h>

#include "OutOfMemory.h"
#include "Transport.h"

namespace android {

ProcessState::ProcessState() = default;
ProcessState::~ProcessState() = default;

sp<ProcessState> ProcessState::self() {
    static const auto* const instance =
        runtime::patiently([] { return new sp<ProcessState>(new ProcessState()); });
    runtime::Transport::instance();
    return *instance;
}

sp<ProcessState> ProcessState::selfOrNull() { return runtime::Transport::isRunning() ? self() : nullptr; }

void ProcessState::startThreadPool() { runtime::Transport::instance().startThreadPool(); }

status_t ProcessState::setThreadPoolMaxThreadCount(size_t maxThreads) {
    runtime::Transport::instance().setMaxThreads(maxThreads);
    return NO_ERROR;
}

String8 ProcessState::getDriverName() {
    return String8(runtime::Transport::instance().meetingPlace().c_str());
}

}  // namespace android
