// accessoryctl: the services and their events from a shell.
#include <accessory/Version.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "tools/LogPriority.h"
#include "tools/accessoryctl/BinderCalls.h"
#include "tools/accessoryctl/Usage.h"
#include "tools/accessoryctl/Verbs.h"
#include "tools/capture/Decode.h"

namespace accessory::ctl {

namespace {

constexpr char kFooter[] =
    "Exit status: 0 done; 1 the call failed (a result below 0 counts), or nothing matched;\n"
    "2 wrong usage; 3 the service is not there; 4 it did not answer in time; 5 it died.\n"
    "Interfaces are called IAppleiAP2Manager, AppleiAP2Manager or accessory.AppleiAP2Manager, in any case.";

/// What the command line asked for.
struct CommandLine {
    Options options;
    std::string target;
    std::vector<std::string> words;
    std::vector<std::string> onlyValues;  ///< behind "--"
    WatchOptions watch;
    std::string shell;
    std::string output;
    bool tidying = false;
    int (*run)(const CommandLine&) = nullptr;
};

/// They may stand in front of the verb or behind it.
void addCommonOptions(CLI::App* app, CommandLine* line) {
    app->add_flag("--json", line->options.json, "Print one JSON object a line");
    app->add_option("--timeout", line->options.timeout, "Seconds that a service has for anything (5)")
        ->check(secondsAbove0("--timeout"));
}

CLI::App* addVerb(CLI::App* app, CommandLine* line, const char* name, const char* help,
                  int (*run)(const CommandLine&)) {
    CLI::App* const verb = app->add_subcommand(name, help);
    addCommonOptions(verb, line);
    verb->callback([line, run] { line->run = run; });
    return verb;
}

void addWatch(CLI::App* app, CommandLine* line) {
    CLI::App* const verb =
        addVerb(app, line, "watch", "Print events as they happen",
                [](const CommandLine& asked) { return watch(asked.options, asked.watch); });
    verb->add_option("event", line->watch.events, "Events, all when none is named");
    verb->add_option("--where", line->watch.where, "field=value that must hold; several must all hold")
        ->allow_extra_args(false);
    verb->add_option("--count", line->watch.count, "End after as many events")->check(countAbove0("--count"));
    verb->add_option("--for", line->watch.seconds, "End after as many seconds")
        ->check(secondsAbove0("--for"));
    verb->add_flag("--reconnect", line->watch.reconnect, "Wait for a service that is not there or died");
}

void addCall(CLI::App* app, CommandLine* line) {
    CLI::App* const verb =
        addVerb(app, line, "call", "Call an operation and print its reply",
                [](const CommandLine& asked) { return call(asked.options, asked.target, asked.words); });
    verb->add_option("operation", line->target, "Interface.operation")->required();
    // What follows is taken as it is: the parser would cut lists in brackets apart.
    verb->allow_extras();
    verb->footer(
        "Arguments: name=value, name.member=value, or values in their order. Bytes are hex digits or\n"
        "@file, lists 1,2,3 or JSON, masks names joined by |, and null is null.");
}

void addCaptureVerbs(CLI::App* app, CommandLine* line) {
    addVerb(app, line, "decode", "Print the transactions of captures",
            [](const CommandLine& asked) { return decode(asked.options, asked.words); })
        ->add_option("capture", line->words, "Files that BINDER_TRACE named")
        ->required();
    CLI::App* const verb =
        addVerb(app, line, "timeline", "Turn captures into a document for trace viewers",
                [](const CommandLine& asked) { return timeline(asked.options, asked.words, asked.output); });
    verb->add_option("capture", line->words, "Files that BINDER_TRACE named")->required();
    verb->add_option("-o,--output", line->output, "Where to write it; to the standard output unless told");
}

void addOthers(CLI::App* app, CommandLine* line) {
    addVerb(app, line, "list", "List the services of the runtime",
            [](const CommandLine& asked) { return list(asked.options); });
    addVerb(app, line, "describe", "Describe interfaces, operations and fields",
            [](const CommandLine& asked) { return describe(asked.options, asked.target); })
        ->add_option("target", line->target, "Interface or Interface.operation");
    CLI::App* const dumped =
        addVerb(app, line, "dump", "Print what a service says about itself",
                [](const CommandLine& asked) { return dump(asked.options, asked.target, asked.words); });
    dumped->add_option("interface", line->target, "Interface or name of the service")->required();
    dumped->add_option("arguments", line->words, "'notifier' for the registered clients");
    addVerb(app, line, "wait", "Wait until a service is there",
            [](const CommandLine& asked) { return wait(asked.options, asked.target); })
        ->add_option("service", line->target, "Interface or name of the service")
        ->required();
    addVerb(app, line, "doctor", "Check the runtime and its services", [](const CommandLine& asked) {
        return doctor(asked.options, asked.tidying);
    })->add_flag("--tidy", line->tidying, "First remove what processes that have ended left behind");
    addVerb(app, line, "completion", "Print the completion script of a shell",
            [](const CommandLine& asked) { return completion(asked.shell); })
        ->add_option("shell", line->shell, "bash or zsh")
        ->required()
        ->check(CLI::IsMember({"bash", "zsh"}));
}

/// The words of a call, of which those like options are none.
void takeWords(const CLI::App& app, CommandLine* line) {
    const CLI::App* const verb = app.get_subcommand("call");
    if (!verb->parsed()) return;
    for (const std::string& word : verb->remaining()) {
        if (word.rfind("--", 0) == 0) {
            throw Failure(kWrongUsage, "there is no option '" + word + "'", "accessoryctl call --help");
        }
        line->words.push_back(word);
    }
    line->words.insert(line->words.end(), line->onlyValues.begin(), line->onlyValues.end());
}

/// Sets aside what follows "--". @return how many arguments are left.
int setValuesAside(int argc, char** argv, CommandLine* line) {
    char** const end = argv + argc;
    char** const mark = std::find(argv, end, std::string("--"));
    if (mark != end) line->onlyValues.assign(mark + 1, end);
    line->options.json = std::find(argv, mark, std::string("--json")) != mark;
    return static_cast<int>(mark - argv);
}

int run(const CLI::App& app, CommandLine* line) {
    try {
        takeWords(app, line);
        return line->run(*line);
    } catch (const Failure& failure) {
        report(line->options, failure);
        return failure.status;
    }
}

int refuse(const CLI::App& app, const CommandLine& line, const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);  // help or version
    const auto& verbs = app.get_subcommands();
    const std::string verb = verbs.empty() ? "" : " " + verbs[0]->get_name();
    report(line.options, Failure(kWrongUsage, error.what(), "accessoryctl" + verb + " --help"));
    return kWrongUsage;
}

}  // namespace

static void addEverything(CLI::App* app, CommandLine* line) {
    app->require_subcommand(1);
    app->set_version_flag("--version", "accessoryctl " ACCESSORY_VERSION "\ntables " + tools::tablesDigest());
    app->footer(kFooter);
    addCommonOptions(app, line);
    addCall(app, line);
    addWatch(app, line);
    addCaptureVerbs(app, line);
    addOthers(app, line);
}

/// @return the exit status of the program.
static int runCommandLine(int argc, char** argv) {
    // The library reports failed steps to the platform log, which here is the standard error; what matters of
    // them is in the messages of the verbs.
    setenv("ANDROID_LOG_TAGS", "*:f", 0);
    tools::chooseLogPriority(ANDROID_LOG_FATAL);
    signal(SIGPIPE, SIG_IGN);
    CommandLine line;
    CLI::App app("Calls, watches and examines accessory services.", "accessoryctl");
    addEverything(&app, &line);
    try {
        const int count = setValuesAside(argc, argv, &line);
        char** const end = argv + count;
        char** const verb = verbIn(argv + 1, end);
        if (isHelp(verb, end)) return help(app, verb + 1, end);
        checkVerb(app, verb, end);
        app.parse(count, argv);
    } catch (const CLI::ParseError& error) {
        return refuse(app, line, error);
    } catch (const Failure& failure) {
        report(line.options, failure);
        return failure.status;
    }
    const int status = run(app, &line);
    if (leftThreadBehind()) _exit(status);
    return status;
}

}  // namespace accessory::ctl

int main(int argc, char** argv) { return accessory::ctl::runCommandLine(argc, argv); }
