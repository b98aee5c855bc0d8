// One event to many registered clients, each a process: the time until the last of them has it, and how that
// grows with their number.
#include <algorithm>
#include <exception>
#include <memory>

#include "bench/fan_out/Crowd.h"
#include "bench/fan_out/FanOut.h"
#include "bench/support/Child.h"
#include "bench/support/Cores.h"
#include "bench/support/Descriptors.h"
#include "bench/support/Folder.h"
#include "bench/support/Options.h"
#include "bench/support/Progress.h"
#include "bench/support/Results.h"
#include "bench/support/Statistics.h"

namespace accessory::bench {
namespace {

constexpr char kOurs[] = "library";
struct Plan {
    std::vector<size_t> clients;
    size_t rounds;
    double roundMicroseconds;  ///< about how long one round of one contender lasts
};

Plan planFor(const Options& options) {
    return options.pick<Plan>({{1, 10, 100, 1000}, 9, 60'000}, {{1, 10, 100}, 5, 20'000}, {{1, 3}, 1, 0});
}

class FanOutBench {
  public:
    explicit FanOutBench(const Options& options) : mOptions(options), mPlan(planFor(options)) {}

    void run() {
        for (const std::string& setting : kSettings)
            runSetting(setting);
        enter("unpinned");
    }

    Results results;

  private:
    using Crowds = std::vector<std::unique_ptr<Crowd>>;
    using Medians = std::vector<std::vector<double>>;  ///< by contender, then by round

    void runSetting(const std::string& setting) {
        enter(setting);
        const Folder folder;
        Crowds crowds;
        for (const FanOut& way : fanOuts()) {
            if (mOptions.wants(way.name)) crowds.push_back(std::make_unique<Crowd>(way.name, folder.path()));
        }
        for (const size_t clients : mPlan.clients) {
            progress(setting + ": " + std::to_string(clients) + " clients of each of " +
                     std::to_string(crowds.size()) + " contenders");
            for (const auto& crowd : crowds)
                crowd->growTo(clients);
            runCrowds(setting, clients, crowds);
        }
        reportSlopes(setting, crowds);
        progress(setting + ": ending the clients");
    }

    void runCrowds(const std::string& setting, size_t clients, const Crowds& crowds) {
        std::vector<size_t> events;
        for (const auto& crowd : crowds)
            events.push_back(eventsARound(*crowd));
        Medians p50(crowds.size());
        Medians p99(crowds.size());
        for (size_t round = 0; round < mPlan.rounds; ++round) {
            for (size_t i = 0; i < crowds.size(); ++i) {
                const auto times = crowds[i]->timeEvents(events[i]);
                p50[i].push_back(percentile(times, 0.5));
                p99[i].push_back(percentile(times, 0.99));
            }
        }
        for (size_t i = 0; i < crowds.size(); ++i)
            report(setting, clients, crowds[i]->name, median(p50[i]), median(p99[i]));
        compare(setting, clients, crowds, p50);
    }

    /// After a few events that nobody measures.
    size_t eventsARound(Crowd& crowd) const {
        if (mPlan.roundMicroseconds == 0) return 3;
        const double one = median(crowd.timeEvents(5));
        return static_cast<size_t>(std::clamp(mPlan.roundMicroseconds / one, 3.0, 2000.0));
    }

    void report(const std::string& setting, size_t clients, const std::string& name, double p50, double p99) {
        const std::string what = clientsName(clients);
        results.push_back({setting, what, name, "p50", "us", p50});
        results.push_back({setting, what, name, "p99", "us", p99});
        results.push_back({setting, what, name, "per client", "us", p50 / static_cast<double>(clients)});
    }

    void compare(const std::string& setting, size_t clients, const Crowds& crowds, const Medians& p50) {
        for (size_t i = 1; i < crowds.size() && crowds[0]->name == kOurs; ++i) {
            std::vector<double> ratios;
            for (size_t round = 0; round < p50[i].size(); ++round)
                ratios.push_back(p50[0][round] / p50[i][round]);
            results.push_back(
                {setting, clientsName(clients), crowds[i]->name, "ratio of library", "1", median(ratios)});
        }
    }

    void reportSlopes(const std::string& setting, const Crowds& crowds) {
        const std::vector<double> x(mPlan.clients.begin(), mPlan.clients.end());
        for (const auto& crowd : crowds) {
            std::vector<double> y;
            for (const size_t clients : mPlan.clients)
                y.push_back(medianOf(setting, clients, crowd->name));
            results.push_back({setting, "one more client", crowd->name, "slope", "us", slope(x, y)});
        }
    }

    double medianOf(const std::string& setting, size_t clients, const std::string& name) const {
        for (const Result& result : results) {
            if (result.setting == setting && result.what == clientsName(clients) &&
                result.contender == name && result.measure == "p50")
                return result.value;
        }
        return 0;
    }

    static std::string clientsName(size_t clients) {
        return std::to_string(clients) + (clients == 1 ? " client" : " clients");
    }

    const Options& mOptions;
    const Plan mPlan;
};

void print(const Results& results) {
    for (const std::string& setting : kSettings) {
        printTable("Until the last client has the event, median, microseconds, " + setting, results, setting,
                   "p50", 1);
        printTable("The same, 99 of 100 events are quicker, " + setting, results, setting, "p99", 1);
        printTable("The median divided by the number of clients, " + setting, results, setting, "per client",
                   2);
        printTable("Microseconds for one more client, " + setting, results, setting, "slope", 2);
        printTable(
            "Time of 'library', which alone waits for answers, as a multiple of the others', " + setting,
            results, setting, "ratio of library", 2);
    }
}

int run(const Options& options) {
    FanOutBench bench(options);
    bench.run();
    print(bench.results);
    writeJson(options.json, "fan_out", bench.results);
    return 0;
}

}  // namespace

int start(int argc, char** argv) {
    if (runAsChild(argc, argv)) return 0;
    try {
        allowManyDescriptors();
        return run(parseOptions(argc, argv));
    } catch (const std::exception& exception) {
        progress(std::string("fan_out FAILED: ") + exception.what());
        return 1;
    }
}

}  // namespace accessory::bench

int main(int argc, char** argv) { return accessory::bench::start(argc, argv); }
