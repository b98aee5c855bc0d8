// Clients register one after the other, each from a process of its own, as the register counts by process.
#include <accessory/AppleiAP2ManagerNotifierAdapter.h>
#include <accessory/IAppleiAP2Manager.h>

#include <algorithm>
#include <stdexcept>

#include "bench/scale/Part.h"
#include "bench/scale/ScaleService.h"
#include "bench/support/Clock.h"
#include "bench/support/Folder.h"

#include "bench/support/ManagerService.h"
#include "bench/support/ProcessFacts.h"
#include "bench/support/Progress.h"
#include "bench/support/Statistics.h"

namespace accessory::bench {
namespace {

using android::sp;

constexpr size_t kBatch = 25;
/// How many registrations the time of one more is the median of.
constexpr size_t kWindow = 10;

/// Registers when told, and tells how long that took, in nanoseconds.
void playClient(Channel& conductor, const Arguments& /*arguments*/) {
    const auto manager = managerNamed(kScaleService);
    // The first call of a process pays for the connection, and that is not what registering costs.
    manager->getEASessionCount(kAccessory);
    const sp<IAppleiAP2ManagerNotifier> notifier =
        new BnAppleiAP2ManagerNotifier(new AppleiAP2ManagerNotifierAdapter);
    conductor.send({});
    for (Words order; conductor.receive(&order);) {
        const uint64_t before = nanoseconds();
        const int status = manager->setNotifier(notifier);
        conductor.send({nanoseconds() - before, static_cast<uint64_t>(status)});
    }
}

const RoleRegistration kClient("registering client", playClient);

class Registrations {
  public:
    /// @param milestones  how many are registered when the time of one more is told.
    explicit Registrations(const std::vector<size_t>& milestones) : mMilestones(milestones) {}

    void run(Results* results) {
        for (const size_t milestone : mMilestones) {
            progress("registrations: up to " + std::to_string(milestone) + " clients");
            while (mClients.size() < milestone)
                addBatch(std::min(kBatch, milestone - mClients.size()));
            reportTime(milestone, results);
            mMemory.push_back(static_cast<double>(anonymousMemory(mService->pid())));
        }
        reportMemory(results);
    }

  private:
    void addBatch(size_t count) {
        const size_t before = mClients.size();
        for (size_t i = 0; i < count; ++i)
            mClients.push_back(std::make_unique<Child>("registering client"));
        for (size_t i = before; i < mClients.size(); ++i)
            mClients[i]->answer();
        for (size_t i = before; i < mClients.size(); ++i) {
            const Words answer = mClients[i]->ask({});
            if (answer.at(1) != 0) throw std::runtime_error("a registration was refused");
            mMicroseconds.push_back(static_cast<double>(answer.at(0)) / 1000);
        }
    }

    void reportTime(size_t milestone, Results* results) {
        const size_t count = std::min(kWindow, mMicroseconds.size());
        const std::vector<double> last(mMicroseconds.end() - static_cast<ptrdiff_t>(count),
                                       mMicroseconds.end());
        results->push_back(
            {"", std::to_string(milestone), "one more registration", "registrations", "us", median(last)});
    }

    void reportMemory(Results* results) {
        const std::vector<double> counts(mMilestones.begin(), mMilestones.end());
        results->push_back({"", "service", "memory for a registered client", "memory", "KiB",
                            slope(counts, mMemory) / 1024});
        results->push_back(
            {"", "service", "memory with all registered", "memory", "KiB", mMemory.back() / 1024});
    }

    const std::vector<size_t> mMilestones;
    const Folder mFolder;
    const std::unique_ptr<Child> mService = startScaleService();
    std::vector<std::unique_ptr<Child>> mClients;
    std::vector<double> mMicroseconds;
    std::vector<double> mMemory;
};

}  // namespace

void measureRegistrations(const Options& options, Results* results) {
    const std::vector<size_t> full = {10, 100, 500, 1000, 1500, 2000};
    const std::vector<size_t> quick = {10, 100, 200};
    const std::vector<size_t> smoke = {1, 3};
    Registrations(options.pick(full, quick, smoke)).run(results);
}

}  // namespace accessory::bench
