// What a benchmark program is doing: one line a step, on stderr, so that nobody wonders whether it hangs.
#pragma once

#include <cstdio>
#include <string>

namespace accessory::bench {

inline void progress(const std::string& step) { std::fprintf(stderr, "bench: %s\n", step.c_str()); }

}  // namespace accessory::bench
