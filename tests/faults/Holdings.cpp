#include "tests/faults/Holdings.h"

#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>

namespace accessory::test {
namespace {

int entriesIn(const char* folder) {
    int count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder))
        ++count;
    return count;
}

bool isSocketOfTheDead(int descriptor) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0 || !S_ISSOCK(status.st_mode)) return false;
    pollfd asked{descriptor, POLLRDHUP, 0};
    return poll(&asked, 1, 0) == 1 && (asked.revents & (POLLHUP | POLLRDHUP)) != 0;
}

int mappedBlocks() {
    std::ifstream maps("/proc/self/maps");
    int blocks = 0;
    for (std::string line; std::getline(maps, line);)
        blocks += line.find("memfd:binder") != std::string::npos ? 1 : 0;
    return blocks;
}

}  // namespace

Holdings Holdings::now() {
    constexpr int kFolderItself = 1;
    return {entriesIn("/proc/self/fd") - kFolderItself, entriesIn("/proc/self/task"), mappedBlocks()};
}

void PrintTo(const Holdings& holdings, std::ostream* out) {
    *out << holdings.descriptors << " descriptors, " << holdings.threads << " threads, "
         << holdings.sharedBlocks << " shared blocks";
}

bool holdsASocketOfTheDead() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::any_of(begin(all), end(all), [](const std::filesystem::directory_entry& entry) {
        const int descriptor = std::stoi(entry.path().filename());
        return descriptor > STDERR_FILENO && isSocketOfTheDead(descriptor);
    });
}

int poolThreads() {
    int count = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::string name;
        std::getline(std::ifstream(task.path() / "comm"), name);
        count += name.rfind("binder:", 0) == 0 ? 1 : 0;
    }
    return count;
}

}  // namespace accessory::test
