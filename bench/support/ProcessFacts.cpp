#include "bench/support/ProcessFacts.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace accessory::bench {
namespace {

/// The sum of the numbers that follow a word of @p file that ends in @p name.
uint64_t sumOf(const std::string& file, const std::string& name) {
    std::ifstream in(file);
    uint64_t sum = 0;
    for (std::string word; in >> word;) {
        const bool ends =
            word.size() >= name.size() && word.compare(word.size() - name.size(), name.size(), name) == 0;
        uint64_t number = 0;
        if (ends && in >> number) sum += number;
    }
    return sum;
}

std::string folderOf(pid_t process) { return "/proc/" + std::to_string(process); }

}  // namespace

uint64_t anonymousMemory(pid_t process) {
    constexpr uint64_t kKibi = 1024;
    return sumOf(folderOf(process) + "/smaps_rollup", "Anonymous:") * kKibi;
}

uint64_t contextSwitches(pid_t process) {
    uint64_t sum = 0;
    for (const auto& thread : std::filesystem::directory_iterator(folderOf(process) + "/task"))
        sum += sumOf(thread.path() / "status", "ctxt_switches:");
    return sum;
}

}  // namespace accessory::bench
