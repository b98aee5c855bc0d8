// SystemCallTrace: counts the system calls of other processes, exactly, by tracing them.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <map>
#include <vector>

namespace accessory::bench {

/// Said by a traced process when the part of its work begins, and when it ends, whose system calls count.
/// Costs one system call, which is not counted; does nothing in a process that is not traced.
void beginCounting();
void endCounting();

/// For the thread that made it. The processes are children of this one.
class SystemCallTrace {
  public:
    /// Begins to trace all threads of the processes.
    /// @throw std::system_error when that is not allowed.
    explicit SystemCallTrace(const std::vector<pid_t>& processes);
    /// Lets the processes run on, untraced.
    ~SystemCallTrace();
    SystemCallTrace(const SystemCallTrace&) = delete;
    SystemCallTrace& operator=(const SystemCallTrace&) = delete;

    /// Lets the processes run until one of them has said beginCounting() and endCounting().
    /// @return the system calls of each process in between.
    /// @throw std::runtime_error when a process has ended.
    std::map<pid_t, size_t> count();

  private:
    void attach(pid_t process);
    bool note(pid_t thread);
    pid_t processOf(pid_t thread);

    std::map<pid_t, pid_t> mProcesses;  ///< by thread
    std::map<pid_t, size_t> mCounts;    ///< by process
    bool mCounting = false;
};

}  // namespace accessory::bench
