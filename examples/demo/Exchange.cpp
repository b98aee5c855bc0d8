#include "Exchange.h"

#include <cstdio>
#include <set>
#include <sstream>

#include "Program.h"

namespace demo {

namespace {

/// How often each operation stands in lines whose second word is @p kind.
Counts operations(const std::vector<std::string>& lines, const std::string& kind) {
    Counts counts;
    for (const std::string& line : lines) {
        std::istringstream words(line);
        std::string time;
        std::string what;
        std::string operation;
        if (!(words >> time >> what >> operation) || what != kind) continue;
        ++counts[operation.substr(0, operation.find('('))];
    }
    return counts;
}

int countOf(const Counts& counts, const std::string& name) {
    const auto found = counts.find(name);
    return found != counts.end() ? found->second : 0;
}

}  // namespace

Counts raisedEvents(const std::vector<std::string>& simulatorLines) {
    return operations(simulatorLines, "event");
}

Counts servedRequests(const std::vector<std::string>& simulatorLines) {
    return operations(simulatorLines, "request");
}

Counts watchedEvents(const std::vector<std::string>& watchLines) {
    Counts counts;
    for (const std::string& line : watchLines) {
        std::istringstream words(line);
        std::string time;
        std::string event;
        if (!(words >> time >> event) || time.back() != 'Z') continue;
        const size_t dot = event.find('.');
        if (dot != std::string::npos) ++counts[event.substr(dot + 1)];
    }
    return counts;
}

bool compare(const Counts& raised, const Counts& received) {
    std::set<std::string> names;
    for (const Counts* counts : {&raised, &received}) {
        for (const auto& [name, count] : *counts)
            names.insert(name);
    }
    printf("\n%-40s %8s %8s\n", "event", "raised", "received");
    bool agree = !raised.empty();
    for (const std::string& name : names) {
        const int sent = countOf(raised, name);
        const int seen = countOf(received, name);
        const bool same = sent == seen;
        agree = agree && same;
        printf("%s%-40s %8d %8d%s%s\n", same ? "" : colour("\033[31m"), name.c_str(), sent, seen,
               same ? "" : "  lost", same ? "" : colour("\033[0m"));
    }
    return agree;
}

}  // namespace demo
