#include "bench/support/Options.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace accessory::bench {
namespace {

[[noreturn]] void misused(const char* program, const std::string& what) {
    std::fprintf(stderr, "%s: %s; expected --quick, --smoke, --json FILE or --only REGEX. Type: %s --help\n",
                 program, what.c_str(), program);
    std::exit(2);
}

[[noreturn]] void help(const char* program) {
    std::printf(
        "usage: %s [--quick | --smoke] [--json FILE] [--only REGEX]\n"
        "  --quick       fewer and shorter rounds\n"
        "  --smoke       everything a few times, to see that it works; times mean nothing\n"
        "  --json FILE   write the results there, one object per line\n"
        "  --only REGEX  only the contenders or parts whose name it matches\n",
        program);
    std::exit(0);
}

std::regex pattern(const char* program, const std::string& text) {
    try {
        return std::regex(text);
    } catch (const std::regex_error&) {
        misused(program, "'" + text + "' is not a regular expression");
    }
}

}  // namespace

Options parseOptions(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        const bool takesValue = argument == "--json" || argument == "--only";
        if (takesValue && i + 1 == argc) misused(argv[0], std::string(argument) + " needs a value");
        if (argument == "--help") help(argv[0]);
        if (argument == "--quick") {
            options.effort = Effort::kQuick;
        } else if (argument == "--smoke") {
            options.effort = Effort::kSmoke;
        } else if (argument == "--json") {
            options.json = argv[++i];
        } else if (argument == "--only") {
            options.onlyText = argv[++i];
            options.only = pattern(argv[0], options.onlyText);
        } else {
            misused(argv[0], "'" + std::string(argument) + "' is unknown");
        }
    }
    return options;
}

}  // namespace accessory::bench
