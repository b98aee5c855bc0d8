#include "bench/support/Descriptors.h"

#include <sys/resource.h>

#include <cstdio>

namespace accessory::bench {

void allowManyDescriptors() {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    if (setrlimit(RLIMIT_NOFILE, &limit) != 0) std::perror("setrlimit");
}

}  // namespace accessory::bench
