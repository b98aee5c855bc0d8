#include "tests/platform/TestObjects.h"

#include <dirent.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <unistd.h>

#include <csignal>
#include <memory>

namespace accessory::test {
namespace {

std::atomic<int> gAlarms{0};

void ringEvery(suseconds_t microseconds) {
    const itimerval interval{{0, microseconds}, {0, microseconds}};
    setitimer(ITIMER_REAL, &interval, nullptr);
}

}  // namespace

Alarms::Alarms() {
    struct sigaction action {};
    action.sa_handler = [](int) { ++gAlarms; };
    sigaction(SIGALRM, &action, nullptr);
    ringEvery(200);
}

Alarms::~Alarms() {
    ringEvery(0);
    std::signal(SIGALRM, SIG_IGN);
}

int alarmCount() { return gAlarms; }

int openDescriptors() {
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir("/proc/self/fd"), closedir);
    int count = -3;  // ".", ".." and the folder itself
    while (folder != nullptr && readdir(folder.get()) != nullptr)
        ++count;
    return count;
}

bool leaveDescriptors(int count) {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    const int lowestFree = dup(STDIN_FILENO);
    close(lowestFree);
    limit.rlim_cur = count < 0 ? limit.rlim_max : static_cast<rlim_t>(lowestFree + count);
    return setrlimit(RLIMIT_NOFILE, &limit) == 0;
}

}  // namespace accessory::test
