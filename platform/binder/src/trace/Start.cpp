// Whether and where this process is traced: BINDER_TRACE in its environment.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "../Log.h"
#include "../socket/RuntimeThread.h"
#include "Recorder.h"
#include "Trace.h"

namespace android::runtime::trace {

namespace {

constexpr size_t kRingBytes = size_t{4} * 1024 * 1024;

/// A library that is loaded with the program may export a text under this name, which every capture then
/// carries as its comment: what those who read it should know.
constexpr char kNoteSymbol[] = "binder_trace_note";

std::string note() {
    const void* const text = dlsym(RTLD_DEFAULT, kNoteSymbol);
    return text != nullptr ? static_cast<const char*>(text) : "";
}

/// @p pattern with the process's number in place of every %p.
std::string pathOf(const std::string& pattern) {
    std::string path = pattern;
    for (size_t at = path.find("%p"); at != std::string::npos; at = path.find("%p", at))
        path.replace(at, 2, std::to_string(getpid()));
    return path;
}

/// Other people's calls are in it, so nobody else may read it.
RuntimeFd create(const std::string& path) {
    return RuntimeFd(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600));
}

/// Never writes over a file that is there: it may be another process's, or an earlier run's.
RuntimeFd createCapture(const std::string& path) {
    RuntimeFd file = create(path);
    if (file.isOpen() || errno != EEXIST) return file;
    const std::string own = path + "." + std::to_string(getpid());
    BINDER_LOGW("%s is there already; the transactions go to %s", path.c_str(), own.c_str());
    return create(own);
}

/// A forked child ends in its own right, and the capture is its parent's.
void finishAtExit() {
    Recorder* const active = recorder();
    if (active != nullptr && !RuntimeFd::isForkedChild()) active->finish();
}

bool startThread(Recorder* recorder) {
    return startRuntimeThread("binder:trace", [recorder] { recorder->run(); });
}

}  // namespace

void startIfAsked() {
    const char* const pattern = secure_getenv("BINDER_TRACE");
    if (pattern == nullptr || *pattern == '\0') return;
    const std::string path = pathOf(pattern);
    RuntimeFd file = createCapture(path);
    if (!file.isOpen()) {
        BINDER_LOGE("transactions cannot be traced to %s: %s", path.c_str(), strerror(errno));
        return;
    }
    auto made = std::make_unique<Recorder>(std::move(file), kRingBytes);
    if (!made->begin(program_invocation_short_name, note()) || !startThread(made.get())) return;
    gRecorder.store(made.release(), std::memory_order_release);
    std::atexit(finishAtExit);
    std::at_quick_exit(finishAtExit);
}

}  // namespace android::runtime::trace
