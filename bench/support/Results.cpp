#include "bench/support/Results.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>

namespace accessory::bench {
namespace {

constexpr int kColumnGap = 2;
constexpr size_t kNarrowest = 7;

Results selected(const Results& results, const std::string& setting, const std::string& measure) {
    Results found;
    std::copy_if(results.begin(), results.end(), std::back_inserter(found), [&](const Result& result) {
        return result.setting == setting && result.measure == measure;
    });
    return found;
}

std::vector<std::string> distinct(const Results& results, std::string Result::*member) {
    std::vector<std::string> names;
    for (const Result& result : results) {
        const std::string& name = result.*member;
        if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    }
    return names;
}

int widest(const std::vector<std::string>& names) {
    size_t width = kNarrowest;
    for (const std::string& name : names)
        width = std::max(width, name.size());
    return static_cast<int>(width) + kColumnGap;
}

const Result* find(const Results& results, const std::string& what, const std::string& contender) {
    const auto found = std::find_if(results.begin(), results.end(), [&](const Result& result) {
        return result.what == what && result.contender == contender;
    });
    return found != results.end() ? &*found : nullptr;
}

void printCell(const Result* result, int width, int decimals) {
    if (result == nullptr) {
        std::printf("%*s", width, "-");
    } else {
        std::printf("%*.*f", width, decimals, result->value);
    }
}

}  // namespace

void writeJson(const std::string& file, const std::string& subject, const Results& results) {
    if (file.empty()) return;
    FILE* const out = std::fopen(file.c_str(), "w");
    if (out == nullptr) {
        std::perror(file.c_str());
        std::exit(EXIT_FAILURE);
    }
    std::fputs("[", out);
    const char* separator = "\n";
    for (const Result& result : results) {
        std::fprintf(out,
                     "%s{\"subject\": \"%s\", \"setting\": \"%s\", \"what\": \"%s\", \"contender\": \"%s\", "
                     "\"measure\": \"%s\", \"unit\": \"%s\", \"value\": %.6g}",
                     separator, subject.c_str(), result.setting.c_str(), result.what.c_str(),
                     result.contender.c_str(), result.measure.c_str(), result.unit.c_str(), result.value);
        separator = ",\n";
    }
    std::fputs("\n]\n", out);
    std::fclose(out);
}

// Contenders stand one below the other: there are more of them than of sizes, and their names are longer.
void printTable(const std::string& title, const Results& results, const std::string& setting,
                const std::string& measure, int decimals) {
    const Results shown = selected(results, setting, measure);
    if (shown.empty()) return;
    const auto rows = distinct(shown, &Result::contender);
    const auto columns = distinct(shown, &Result::what);
    const int first = widest(rows);
    const int width = widest(columns);
    std::printf("\n%s\n%*s", title.c_str(), first, "");
    for (const std::string& column : columns)
        std::printf("%*s", width, column.c_str());
    std::printf("\n");
    for (const std::string& row : rows) {
        std::printf("%-*s", first, row.c_str());
        for (const std::string& column : columns)
            printCell(find(shown, column, row), width, decimals);
        std::printf("\n");
    }
}

void printList(const Results& results) {
    for (const Result& result : results) {
        std::printf("  %-28s %-34s %-22s %12.3f %s\n", result.what.c_str(), result.contender.c_str(),
                    result.measure.c_str(), result.value, result.unit.c_str());
    }
}

}  // namespace accessory::bench
