#include "bench/support/Contest.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <functional>
#include <map>
#include <memory>

#include "bench/support/Contender.h"
#include "bench/support/ContenderProcesses.h"
#include "bench/support/Cores.h"
#include "bench/support/Folder.h"
#include "bench/support/Progress.h"
#include "bench/support/Statistics.h"

namespace accessory::bench {
namespace {

struct Measure {
    size_t rounds;
    double roundMicroseconds;  ///< about how long one round of one contender lasts
    size_t fewest;             ///< calls a round
    size_t most;
};

Measure measureFor(const Options& options) {
    return options.pick<Measure>({15, 40'000, 10, 20'000}, {5, 8'000, 5, 2'000}, {1, 0, 3, 3});
}

/// What the rounds told of one contender with one payload, in microseconds.
struct Rounds {
    std::vector<double> p50;
    std::vector<double> p99;
};

bool includes(const Comparison& comparison, const std::string& name) {
    const auto& others = comparison.others;
    if (others.empty()) return name != comparison.ours;
    return std::find(others.begin(), others.end(), name) != others.end();
}

class Contest {
  public:
    Contest(const Options& options, const std::vector<Comparison>& comparisons)
        : mOptions(options), mComparisons(comparisons), mMeasure(measureFor(options)) {}

    void run() {
        for (const std::string& setting : kSettings) {
            start(setting);
            for (const size_t size : kPayloadSizes)
                runSize(setting, size);
            mPairs.clear();
            mFolder.reset();
        }
        enter("unpinned");
    }

    Results results;
    bool failed = false;

  private:
    void start(const std::string& setting) {
        enter(setting);
        mFolder = std::make_unique<Folder>();
        for (const Contender& contender : contenders()) {
            if (!mOptions.wants(contender.name) || mLost.count(contender.name) != 0) continue;
            progress(setting + ": starting " + contender.name);
            guarded(contender.name, [&] {
                mPairs.push_back(std::make_unique<ContenderProcesses>(contender, mFolder->path()));
            });
        }
    }

    void runSize(const std::string& setting, size_t size) {
        progress(setting + ": " + std::to_string(mMeasure.rounds) + " rounds of " + sizeName(size) + ", " +
                 std::to_string(mPairs.size()) + " contenders in turn");
        std::map<std::string, size_t> calls;
        for (const auto& pair : mPairs)
            guarded(pair->name, [&] { calls[pair->name] = callsARound(*pair, size); });
        std::map<std::string, Rounds> rounds;
        for (size_t round = 0; round < mMeasure.rounds; ++round) {
            for (const auto& pair : mPairs)
                guarded(pair->name, [&] { playRound(*pair, size, calls[pair->name], &rounds[pair->name]); });
        }
        report(setting, sizeName(size), rounds);
        forgetLost();
    }

    size_t callsARound(ContenderProcesses& pair, size_t size) const {
        if (mMeasure.roundMicroseconds == 0) return mMeasure.fewest;
        const double one = median(pair.timeCalls(size, 20));
        const auto calls = static_cast<size_t>(mMeasure.roundMicroseconds / one);
        return std::clamp(calls, mMeasure.fewest, mMeasure.most);
    }

    static void playRound(ContenderProcesses& pair, size_t size, size_t calls, Rounds* rounds) {
        const auto times = pair.timeCalls(size, calls);
        rounds->p50.push_back(percentile(times, 0.5));
        rounds->p99.push_back(percentile(times, 0.99));
    }

    void report(const std::string& setting, const std::string& what, std::map<std::string, Rounds>& rounds) {
        for (const auto& pair : mPairs) {
            if (mLost.count(pair->name) != 0) continue;
            const Rounds& own = rounds[pair->name];
            results.push_back({setting, what, pair->name, "p50", "us", median(own.p50)});
            results.push_back({setting, what, pair->name, "p99", "us", median(own.p99)});
        }
        for (const Comparison& comparison : mComparisons) {
            for (const auto& pair : mPairs) {
                if (includes(comparison, pair->name))
                    compare(setting, what, comparison.ours, pair->name, rounds);
            }
        }
    }

    void compare(const std::string& setting, const std::string& what, const std::string& ours,
                 const std::string& other, std::map<std::string, Rounds>& rounds) {
        const auto& mine = rounds[ours].p50;
        const auto& theirs = rounds[other].p50;
        if (mine.size() != theirs.size() || mine.empty()) return;
        std::vector<double> ratios(mine.size());
        std::transform(mine.begin(), mine.end(), theirs.begin(), ratios.begin(), std::divides<>());
        results.push_back({setting, what, other, "ratio of " + ours, "1", median(ratios)});
    }

    /// A contender that cannot do something leaves the contest, and the others go on.
    template <typename Step>
    void guarded(const std::string& name, Step step) {
        if (mLost.count(name) != 0) return;
        try {
            step();
        } catch (const std::exception& exception) {
            std::fprintf(stderr, "bench: %s FAILED and is left out: %s\n", name.c_str(), exception.what());
            mLost[name] = true;
            failed = true;
        }
    }

    void forgetLost() {
        const auto lost = [&](const std::unique_ptr<ContenderProcesses>& pair) {
            return mLost.count(pair->name) != 0;
        };
        mPairs.erase(std::remove_if(mPairs.begin(), mPairs.end(), lost), mPairs.end());
    }

    const Options& mOptions;
    const std::vector<Comparison>& mComparisons;
    const Measure mMeasure;
    std::unique_ptr<Folder> mFolder;
    std::vector<std::unique_ptr<ContenderProcesses>> mPairs;
    std::map<std::string, bool> mLost;
};

}  // namespace

Results runContest(const Options& options, const std::vector<Comparison>& comparisons, bool* failed) {
    Contest contest(options, comparisons);
    contest.run();
    *failed = contest.failed;
    return contest.results;
}

void printContest(const Results& results, const std::vector<Comparison>& comparisons) {
    for (const std::string& setting : kSettings) {
        printTable("Median of a call, microseconds, " + setting, results, setting, "p50", 1);
        printTable("99 of 100 calls are quicker, microseconds, " + setting, results, setting, "p99", 1);
        for (const Comparison& comparison : comparisons) {
            const std::string& ours = comparison.ours;
            printTable("Time of '" + ours + "' as a multiple of the others', " + setting +
                           " (below 1: it is faster)",
                       results, setting, "ratio of " + ours, 2);
        }
    }
}

std::string sizeName(size_t bytes) {
    if (bytes < kKibi) return std::to_string(bytes) + " B";
    return std::to_string(bytes / kKibi) + " KiB";
}

}  // namespace accessory::bench
