// The library's share of a call: a request through proxy and stub beside the same parcel in a bare
// transact(), and beside code that writes and reads that parcel by hand; between two processes, and within
// one.
#include "bench/share/Places.h"
#include "bench/support/Child.h"
#include "bench/support/Contest.h"

namespace accessory::bench {
namespace {

int run(const Options& options) {
    const std::vector<Comparison> comparisons = {{kLibraryAcross, {kByHandAcross, kBareAcross}},
                                                 {kLibraryWithin, {kByHandWithin, kBareWithin}}};
    bool failed = false;
    const Results results = runContest(options, comparisons, &failed);
    printContest(results, comparisons);
    writeJson(options.json, "share", results);
    return failed ? 1 : 0;
}

}  // namespace

int start(int argc, char** argv) {
    if (runAsChild(argc, argv)) return 0;
    return run(parseOptions(argc, argv));
}

}  // namespace accessory::bench

int main(int argc, char** argv) { return accessory::bench::start(argc, argv); }
