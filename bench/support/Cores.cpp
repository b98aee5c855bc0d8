#include "bench/support/Cores.h"

#include <sched.h>

#include <cstdio>

namespace accessory::bench {
namespace {

/// The cores that the program was allowed to use when it began.
cpu_set_t allowedCores() {
    static const cpu_set_t cores = [] {
        cpu_set_t all;
        CPU_ZERO(&all);
        sched_getaffinity(0, sizeof(all), &all);
        return all;
    }();
    return cores;
}

/// Not the first, which often has the interrupts.
cpu_set_t lastOf(const cpu_set_t& cores) {
    int last = 0;
    for (int core = 0; core < CPU_SETSIZE; ++core) {
        if (CPU_ISSET(core, &cores)) last = core;
    }
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(last, &one);
    return one;
}

}  // namespace

void enter(const std::string& setting) {
    const cpu_set_t all = allowedCores();
    const cpu_set_t cores = setting == "pinned" ? lastOf(all) : all;
    if (sched_setaffinity(0, sizeof(cores), &cores) != 0) std::perror("sched_setaffinity");
}

}  // namespace accessory::bench
