#include "tests/tools/TraceFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace accessory::test {

TraceFolder::TraceFolder() : mFolder(testing::TempDir() + "traces-XXXXXX") {
    EXPECT_NE(mkdtemp(mFolder.data()), nullptr);
    setenv("BINDER_TRACE", (mFolder + "/%p.pcapng").c_str(), 1);
}

TraceFolder::~TraceFolder() {
    unsetenv("BINDER_TRACE");
    std::filesystem::remove_all(mFolder);
}

std::string TraceFolder::captureOf(pid_t pid) const {
    return mFolder + "/" + std::to_string(pid) + ".pcapng";
}

std::vector<std::string> TraceFolder::captures() const {
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(mFolder))
        paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    return paths;
}

}  // namespace accessory::test
