// The round trip of a call between two processes: a request that carries the bytes, an answer that fits a
// word. Two calls of this library beside two floors and the peers that the machine has; each contender's file
// says how it is used.
#include "bench/support/Child.h"
#include "bench/support/Contest.h"

namespace accessory::bench {
namespace {

int run(const Options& options) {
    const std::vector<Comparison> comparisons = {{"AcceptCall", {}}, {"updateLocation", {}}};
    bool failed = false;
    const Results results = runContest(options, comparisons, &failed);
    printContest(results, comparisons);
    writeJson(options.json, "round_trip", results);
    return failed ? 1 : 0;
}

}  // namespace

int start(int argc, char** argv) {
    if (runAsChild(argc, argv)) return 0;
    return run(parseOptions(argc, argv));
}

}  // namespace accessory::bench

int main(int argc, char** argv) { return accessory::bench::start(argc, argv); }
