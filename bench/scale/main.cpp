// How the library grows with its clients, and what it costs besides time.
#include <algorithm>
#include <exception>

#include "bench/scale/Part.h"
#include "bench/support/Child.h"
#include "bench/support/Descriptors.h"
#include "bench/support/Progress.h"

namespace accessory::bench {
namespace {

struct Part {
    const char* name;
    void (*measure)(const Options& options, Results* results);
};

constexpr Part kParts[] = {
    {"clients at once", measureClientsAtOnce}, {"registrations", measureRegistrations},
    {"cost of a call", measureCostOfACall},    {"start-up", measureStartUp},
    {"libraries", measureLibraries},           {"idle", measureIdleness},
};

/// A part that cannot be measured here does not keep the others from it. @return whether it could.
bool measured(const Part& part, const Options& options, Results* results) {
    try {
        part.measure(options, results);
        return true;
    } catch (const std::exception& exception) {
        progress(std::string(part.name) + " FAILED: " + exception.what());
        return false;
    }
}

void print(const Results& results) {
    printTable("Clients that call at once, by their number", results, "", "clients at once", 1);
    printTable("Time of one more registration, microseconds, by the number of registered clients", results,
               "", "registrations", 1);
    Results others;
    std::copy_if(results.begin(), results.end(), std::back_inserter(others), [](const Result& result) {
        return result.measure != "clients at once" && result.measure != "registrations";
    });
    std::printf("\nBesides time\n");
    printList(others);
}

int run(const Options& options) {
    allowManyDescriptors();
    Results results;
    bool all = true;
    for (const Part& part : kParts) {
        if (options.wants(part.name)) all = measured(part, options, &results) && all;
    }
    print(results);
    writeJson(options.json, "scale", results);
    return all ? 0 : 1;
}

}  // namespace

int start(int argc, char** argv) {
    if (runAsChild(argc, argv)) return 0;
    return run(parseOptions(argc, argv));
}

}  // namespace accessory::bench

int main(int argc, char** argv) { return accessory::bench::start(argc, argv); }
