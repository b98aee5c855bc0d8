#include "simulator/Options.h"

#include <accessory/Version.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>

namespace accessory::simulator {

namespace {

constexpr double kHighestSpeed = 1e6;

constexpr const char* kFooter = R"(Look at it from another terminal:
  accessoryctl watch
  accessoryctl dump AppleiAP2Manager
  accessoryctl dump AppleiAP2Manager notifier

Exit status: 0 ended as asked, 1 nothing could be published, 2 a mistake on the command line,
3 a mistake in a scenario or no such scenario, 4 another process has one of the names.)";

/// What only readFlags() knows until the line is read.
struct Flags {
    bool list = false;
    bool describe = false;
    std::string check;
    std::vector<std::string> faults;
};

void addTasks(CLI::App& app, Flags* flags) {
    app.add_flag("--list", flags->list, "List the ready-made scenarios and where they lie");
    app.add_option("--check", flags->check, "Check a scenario file and end")->type_name("FILE");
    app.add_flag("--describe-scenario", flags->describe, "Print every field of a scenario file and end");
}

void addPlaying(CLI::App& app, Options* options) {
    app.add_option("scenario", options->scenario, "A scenario file, or the name of a ready-made one")
        ->capture_default_str();
    app.add_option("--speed", options->playing.speed,
                   "How fast time passes: 1 as in life, 0 from event to event without waiting")
        ->check(CLI::Range(0.0, kHighestSpeed))
        ->capture_default_str();
    app.add_option("--seed", options->playing.seed,
                   "Seed of what is left to chance, instead of the scenario's");
    auto* const loop = app.add_flag("--loop", options->playing.loop, "Begin anew at the end of the timeline");
    app.add_flag("--exit", options->exitAtEnd, "End at the end of the timeline")->excludes(loop);
    app.add_flag("--unattended", options->playing.unattended,
                 "Do what a client would: start everything up and ask for every event");
}

void addReporting(CLI::App& app, Options* options, Flags* flags) {
    app.add_option("--fault", flags->faults,
                   "operation=kind[:value][@call][/every], kind one of delay, error, empty, die; repeatable")
        ->type_name("FAULT")
        ->expected(1)
        ->take_all();
    app.add_flag("-v,--verbose", options->verbose, "Show every request and every event");
    app.add_option("--ready-fd", options->readyDescriptor,
                   "Write a line to this descriptor, and close it, once everything is published")
        ->check(CLI::Range(1, 1 << 20))
        ->type_name("FD");
}

/// @return false after a message when the fault makes no sense.
bool readFault(const std::string& text, std::vector<Fault>* faults) {
    const std::string problem = parseFault(text, &faults->emplace_back());
    if (problem.empty()) return true;
    fprintf(stderr, "accessory-simulator: --fault: %s. Type: accessory-simulator --help\n", problem.c_str());
    return false;
}

bool readFaults(const Flags& flags, Options* options) {
    return std::all_of(flags.faults.begin(), flags.faults.end(),
                       [&](const std::string& text) { return readFault(text, &options->faults); });
}

void chooseTask(const Flags& flags, Options* options) {
    if (flags.list) options->task = Options::Task::kList;
    if (flags.describe) options->task = Options::Task::kDescribe;
    if (flags.check.empty()) return;
    options->task = Options::Task::kCheck;
    options->scenario = flags.check;
}

}  // namespace

std::optional<int> readOptions(int argc, char** argv, Options* options) {
    Flags flags;
    CLI::App app("Hosts AccessoryManager, AppleiAP2Manager and AppleUSBAudioManager with simulated devices.",
                 "accessory-simulator");
    app.set_version_flag("--version", "accessory-simulator " ACCESSORY_VERSION);
    app.footer(kFooter);
    addPlaying(app, options);
    addTasks(app, &flags);
    addReporting(app, options, &flags);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);
        fprintf(stderr, "accessory-simulator: %s. Type: accessory-simulator --help\n", error.what());
        return kMisused;
    }
    chooseTask(flags, options);
    return readFaults(flags, options) ? std::nullopt : std::optional<int>(kMisused);
}

}  // namespace accessory::simulator
