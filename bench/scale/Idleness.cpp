// A service that has served, has a registered client, and is then left alone: nothing in it should wake up.
#include <accessory/AppleiAP2ManagerNotifierAdapter.h>
#include <accessory/IAppleiAP2Manager.h>

#include <chrono>
#include <thread>

#include "bench/scale/Part.h"
#include "bench/scale/ScaleService.h"
#include "bench/support/Folder.h"

#include "bench/support/ManagerService.h"
#include "bench/support/ProcessFacts.h"
#include "bench/support/Progress.h"

namespace accessory::bench {
namespace {

using std::chrono::milliseconds;

/// After a call the runtime's threads stay with the connection for a few milliseconds; more on a busy
/// machine.
constexpr milliseconds kUntilIdle{500};

void playClient(Channel& conductor, const Arguments& /*arguments*/) {
    const auto manager = managerNamed(kScaleService);
    const android::sp<IAppleiAP2ManagerNotifier> notifier =
        new BnAppleiAP2ManagerNotifier(new AppleiAP2ManagerNotifierAdapter);
    manager->setNotifier(notifier);
    conductor.send({});
    Words never;
    conductor.receive(&never);
}

const RoleRegistration kClient("idle client", playClient);

}  // namespace

void measureIdleness(const Options& options, Results* results) {
    const milliseconds pause{options.pick(5000, 1000, 200)};
    progress("idle: looking away for " + std::to_string(pause.count()) + " ms");
    const Folder folder;
    const auto service = startScaleService();
    Child client("idle client");
    client.answer();
    std::this_thread::sleep_for(kUntilIdle);
    const uint64_t ofService = contextSwitches(service->pid());
    const uint64_t ofClient = contextSwitches(client.pid());
    std::this_thread::sleep_for(pause);
    const auto add = [&](const char* side, uint64_t wakeUps) {
        results->push_back({"", side, "wake-ups while idle", "idle", "1", static_cast<double>(wakeUps)});
    };
    add("service", contextSwitches(service->pid()) - ofService);
    add("client", contextSwitches(client.pid()) - ofClient);
}

}  // namespace accessory::bench
