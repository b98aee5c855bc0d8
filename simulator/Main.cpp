// accessory-simulator: a whole accessory service without an accessory.
#include <binder/ProcessState.h>
#include <pthread.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "simulator/Host.h"
#include "simulator/Options.h"
#include "simulator/scenario/ReadyMade.h"
#include "simulator/scenario/ScenarioReader.h"
#include "tools/LogPriority.h"

namespace accessory::simulator {
namespace {

bool showsColours() { return isatty(STDOUT_FILENO) != 0 && getenv("NO_COLOR") == nullptr; }

/// Before any thread starts, so that all inherit it: the signals that end the program are only read.
int blockEndSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

void awaitEnd(int descriptor) {
    signalfd_siginfo info{};
    while (read(descriptor, &info, sizeof(info)) < 0 && errno == EINTR) {
    }
}

int printProblems(const std::vector<std::string>& problems) {
    for (const std::string& problem : problems)
        fprintf(stderr, "%s\n", problem.c_str());
    return problems.empty() ? kEnded : kBadScenario;
}

int listReadyMade() {
    for (const std::string& file : listScenarios()) {
        Scenario scenario;
        const bool good = readScenarioFile(file, &scenario).empty();
        printf("%-20s %s\n%-20s %s\n", good ? scenario.name.c_str() : "(broken)",
               good ? scenario.description.c_str() : "see --check", "", file.c_str());
    }
    return kEnded;
}

int check(const std::string& file) {
    Scenario scenario;
    const int status = printProblems(readScenarioFile(file, &scenario));
    if (status == kEnded) printf("%s is a good scenario.\n", file.c_str());
    return status;
}

/// @return an exit status when there is no such scenario, or a broken one.
std::optional<int> load(const std::string& name, Scenario* scenario) {
    const std::optional<std::string> file = findScenario(name);
    if (!file) {
        fprintf(stderr,
                "accessory-simulator: there is no scenario '%s'; expected a file, or one of those that "
                "accessory-simulator --list shows.\n",
                name.c_str());
        return kBadScenario;
    }
    const int status = printProblems(readScenarioFile(*file, scenario));
    return status != kEnded ? std::optional<int>(status) : std::nullopt;
}

int explain(android::status_t status, const std::string& name) {
    const std::string folder = android::ProcessState::self()->getDriverName().string();
    if (status == android::ALREADY_EXISTS) {
        fprintf(stderr,
                "accessory-simulator: another process hosts %s in %s; end it, or set BINDER_RUNTIME_DIR to "
                "another folder for this one and its clients.\n",
                name.c_str(), folder.c_str());
        return kAlreadyRunning;
    }
    fprintf(stderr,
            "accessory-simulator: %s cannot be published in %s: %s; expected a folder of your own with mode "
            "0700. Set BINDER_RUNTIME_DIR to one.\n",
            name.c_str(), folder.c_str(), strerror(-status));
    return kUnusable;
}

void welcome(const Scenario& scenario, bool unattended) {
    const char* const separator = scenario.description.empty() ? "" : ": ";
    printf("Scenario \"%s\"%s%s\n", scenario.name.c_str(), separator, scenario.description.c_str());
    printf(
        "Hosting accessory.AccessoryManager, accessory.AppleiAP2Manager and accessory.AppleUSBAudioManager\n"
        "in %s as process %d.\n",
        android::ProcessState::self()->getDriverName().string(), getpid());
    printf("%s\n", scenario.beginsAtOnce || unattended ? "The timeline begins now."
                                                       : "The timeline begins with the first startup().");
    printf(
        "Look at it: accessoryctl watch, accessoryctl dump AppleiAP2Manager [notifier]. End it: Ctrl-C.\n");
}

void tellReady(int descriptor) {
    printf("ready\n");
    fflush(stdout);
    if (descriptor < 0) return;
    if (write(descriptor, "ready\n", 6) != 6) perror("accessory-simulator: --ready-fd");
    close(descriptor);
}

void farewell(const Report& report) {
    printf("Served %llu requests and raised %llu events.\n",
           static_cast<unsigned long long>(report.count(Report::Kind::kRequest)),
           static_cast<unsigned long long>(report.count(Report::Kind::kEvent)));
}

int simulate(const Options& options) {
    Scenario scenario;
    if (const std::optional<int> status = load(options.scenario, &scenario)) return *status;
    scenario.faults.insert(scenario.faults.end(), options.faults.begin(), options.faults.end());
    const int endSignals = blockEndSignals();
    // These stay: the runtime may serve calls until the very end of the process.
    auto* const report = new Report(options.verbose, showsColours());
    auto* const faults = new FaultInjector(scenario.faults);
    auto* const world = new World(scenario, options.playing, *report);
    Host host(*world, *report, *faults);
    std::string name;
    if (const android::status_t status = host.publish(&name)) return explain(status, name);
    if (options.exitAtEnd) world->setOnEnd([] { kill(getpid(), SIGTERM); });
    welcome(scenario, options.playing.unattended);
    android::ProcessState::self()->startThreadPool();
    tellReady(options.readyDescriptor);
    world->start();
    awaitEnd(endSignals);
    world->stop();
    farewell(*report);
    return kEnded;
}

int run(const Options& options) {
    switch (options.task) {
        case Options::Task::kList:
            return listReadyMade();
        case Options::Task::kDescribe:
            fputs(scenarioReference().c_str(), stdout);
            return kEnded;
        case Options::Task::kCheck:
            return check(options.scenario);
        default:
            return simulate(options);
    }
}

int gStatus = kEnded;

/// The runtime's threads may be in the middle of a call; nothing is to be torn down under them. Registered
/// first, this handler comes last: behind the runtime's, which tidies its folder, and in front of whatever
/// was made before main().
void leaveTheRestStanding() {
    fflush(stdout);
    _exit(gStatus);
}

int runCommandLine(int argc, char** argv) {
    Options options;
    const std::optional<int> status = readOptions(argc, argv, &options);
    return status ? *status : run(options);
}

}  // namespace
}  // namespace accessory::simulator

int main(int argc, char** argv) {
    using namespace accessory::simulator;
    std::atexit(leaveTheRestStanding);
    accessory::tools::chooseLogPriority(ANDROID_LOG_INFO);
    gStatus = runCommandLine(argc, argv);
    return gStatus;
}
