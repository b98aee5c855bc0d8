#include "simulator/Report.h"

#include <cstdio>

namespace accessory::simulator {

namespace {

struct Look {
    const char* name;
    const char* colour;
};
constexpr Look kLooks[] = {
    {"request ", "\033[36m"}, {"event   ", "\033[32m"}, {"timeline", "\033[33m"}, {"fault   ", "\033[31m"}};

}  // namespace

void Report::tell(Kind kind, std::chrono::milliseconds time, const std::string& text) {
    ++mCounts[static_cast<size_t>(kind)];
    if (!mVerbose) return;
    const Look& look = kLooks[static_cast<size_t>(kind)];
    const std::lock_guard lock(mLock);
    printf("%10.3f %s%s%s %s\n", static_cast<double>(time.count()) / 1000, mColoured ? look.colour : "",
           look.name, mColoured ? "\033[0m" : "", text.c_str());
    fflush(stdout);
}

}  // namespace accessory::simulator
