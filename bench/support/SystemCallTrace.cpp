#include "bench/support/SystemCallTrace.h"

#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <system_error>

namespace accessory::bench {
namespace {

// Requests of prctl() that no kernel knows: they do nothing, and a tracer sees them.
constexpr uint64_t kBegin = 0x62656767;
constexpr uint64_t kEnd = 0x62656768;

constexpr long kOptions = PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_EXITKILL;
constexpr int kSystemCallStop = SIGTRAP | 0x80;

[[noreturn]] void fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

void goOn(pid_t thread, int signal) {
    ptrace(PTRACE_SYSCALL, thread, nullptr, static_cast<uintptr_t>(signal));
}

/// A signal on its way to the process is passed on; the tracer's own events are not.
int signalToDeliver(int status) {
    const bool event = status >> 16 != 0;
    const int signal = WSTOPSIG(status);
    return event || signal == SIGTRAP ? 0 : signal;
}

}  // namespace

void beginCounting() { prctl(kBegin, 0, 0, 0, 0); }

void endCounting() { prctl(kEnd, 0, 0, 0, 0); }

SystemCallTrace::SystemCallTrace(const std::vector<pid_t>& processes) {
    for (const pid_t process : processes)
        attach(process);
}

// Only a stopped thread can be let go.
SystemCallTrace::~SystemCallTrace() {
    for (const auto& [thread, process] : mProcesses) {
        ptrace(PTRACE_INTERRUPT, thread, nullptr, nullptr);
        int status = 0;
        if (waitpid(thread, &status, __WALL) == thread && WIFSTOPPED(status))
            ptrace(PTRACE_DETACH, thread, nullptr, nullptr);
    }
}

void SystemCallTrace::attach(pid_t process) {
    for (const auto& entry :
         std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task")) {
        const pid_t thread = std::stoi(entry.path().filename());
        if (ptrace(PTRACE_SEIZE, thread, nullptr, kOptions) != 0) fail("PTRACE_SEIZE");
        if (ptrace(PTRACE_INTERRUPT, thread, nullptr, nullptr) != 0) fail("PTRACE_INTERRUPT");
        if (waitpid(thread, nullptr, __WALL) != thread) fail("waitpid");
        mProcesses[thread] = process;
        goOn(thread, 0);
    }
}

std::map<pid_t, size_t> SystemCallTrace::count() {
    mCounts.clear();
    for (;;) {
        int status = 0;
        const pid_t thread = waitpid(-1, &status, __WALL);
        if (thread < 0 && errno == EINTR) continue;
        if (thread < 0) fail("waitpid");
        const pid_t process = processOf(thread);
        if (!WIFSTOPPED(status)) {
            mProcesses.erase(thread);
            if (thread == process) throw std::runtime_error("a traced process has ended");
            continue;
        }
        const bool done = WSTOPSIG(status) == kSystemCallStop && note(thread);
        goOn(thread, WSTOPSIG(status) == kSystemCallStop ? 0 : signalToDeliver(status));
        if (done) return mCounts;
    }
}

/// @return whether this ends the part that counts.
bool SystemCallTrace::note(pid_t thread) {
    __ptrace_syscall_info info{};
    if (ptrace(PTRACE_GET_SYSCALL_INFO, thread, sizeof(info), &info) <= 0) return false;
    if (info.op != PTRACE_SYSCALL_INFO_ENTRY) return false;
    if (info.entry.nr == SYS_prctl && info.entry.args[0] == kBegin) {
        mCounting = true;
    } else if (info.entry.nr == SYS_prctl && info.entry.args[0] == kEnd) {
        mCounting = false;
        return true;
    } else if (mCounting) {
        ++mCounts[processOf(thread)];
    }
    return false;
}

/// A thread that began under the trace is looked up once.
pid_t SystemCallTrace::processOf(pid_t thread) {
    const auto known = mProcesses.find(thread);
    if (known != mProcesses.end()) return known->second;
    std::ifstream status("/proc/" + std::to_string(thread) + "/status");
    pid_t process = thread;
    for (std::string word; status >> word;) {
        if (word == "Tgid:") status >> process;
    }
    return mProcesses[thread] = process;
}

}  // namespace accessory::bench
