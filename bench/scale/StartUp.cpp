// A client's process up to its first answer, beside a process of the same program that says hello and does
// nothing else: what is left is finding the service, connecting and calling.
#include "bench/scale/Part.h"
#include "bench/scale/ScaleService.h"
#include "bench/support/Clock.h"
#include "bench/support/Folder.h"
#include "bench/support/ManagerService.h"
#include "bench/support/Progress.h"
#include "bench/support/Statistics.h"

namespace accessory::bench {
namespace {

void playFirstAnswer(Channel& conductor, const Arguments& /*arguments*/) {
    managerNamed(kScaleService)->getEASessionCount(kAccessory);
    conductor.send({});
}

void playHello(Channel& conductor, const Arguments& /*arguments*/) { conductor.send({}); }

const RoleRegistration kFirstAnswer("first answer", playFirstAnswer);
const RoleRegistration kHello("hello", playHello);

/// In milliseconds.
double timeOf(const char* role) {
    const uint64_t before = nanoseconds();
    Child child(role);
    child.answer();
    return static_cast<double>(nanoseconds() - before) / 1e6;
}

}  // namespace

void measureStartUp(const Options& options, Results* results) {
    const auto rounds = options.pick<size_t>(101, 31, 2);
    progress("start-up: " + std::to_string(rounds) + " processes of either kind");
    const Folder folder;
    const auto service = startScaleService();
    std::vector<double> answers;
    std::vector<double> hellos;
    for (size_t i = 0; i < rounds; ++i) {
        answers.push_back(timeOf("first answer"));
        hellos.push_back(timeOf("hello"));
    }
    results->push_back({"", "client", "process to first answer", "start-up", "ms", median(answers)});
    results->push_back({"", "client", "the same process, no call", "start-up", "ms", median(hellos)});
}

}  // namespace accessory::bench
