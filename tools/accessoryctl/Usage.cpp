#include "tools/accessoryctl/Usage.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "tools/accessoryctl/Failure.h"
#include "tools/accessoryctl/Text.h"

namespace accessory::ctl {

CLI::Validator secondsAbove0(const std::string& option) {
    const auto check = [option](std::string& text) {
        constexpr double kThreeYears = 1e8;
        char* end = nullptr;
        const double seconds = strtod(text.c_str(), &end);
        const bool good = end != text.c_str() && *end == '\0' && seconds > 0;
        if (!good) {
            throw Failure(kWrongUsage, option + " expects a number of seconds above 0, got '" + text + "'",
                          "accessoryctl --help");
        }
        if (seconds > kThreeYears) text = std::to_string(kThreeYears);
        return std::string();
    };
    return {check, "", "seconds"};
}

CLI::Validator countAbove0(const std::string& option) {
    const auto check = [option](const std::string& text) {
        const bool isWhole = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
        const bool good = isWhole && text.find_first_not_of('0') != std::string::npos && text.size() < 10;
        if (good) return std::string();
        throw Failure(kWrongUsage, option + " expects a whole number from 1 to 999999999, got '" + text + "'",
                      "accessoryctl watch --help");
    };
    return {check, "", "count"};
}

char** verbIn(char** begin, char** end) {
    for (char** word = begin; word < end; ++word) {
        if (std::string(*word) == "--timeout")
            ++word;  // and its value
        else if (**word != '-')
            return word;
    }
    return end;
}

void checkVerb(const CLI::App& app, char** verb, char** end) {
    if (verb >= end) return;
    std::vector<std::string> names;
    for (const CLI::App* each : app.get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(each->get_name());
    if (std::find(names.begin(), names.end(), *verb) != names.end()) return;
    const std::string meant = nearest(*verb, names);
    const std::string hint = meant.empty() ? "" : "; did you mean '" + meant + "'?";
    std::string right = "accessoryctl " + meant;
    for (char** word = verb + 1; word < end; ++word)
        right += " " + shellWord(*word);
    throw Failure(kWrongUsage,
                  "there is no verb '" + std::string(*verb) + "'; there are " + joined(names, ", ") + hint,
                  meant.empty() ? "accessoryctl --help" : right);
}

bool isHelp(char** verb, char** end) { return verb < end && std::string(*verb) == "help"; }

int help(const CLI::App& app, char** verb, char** end) {
    checkVerb(app, verb, end);
    const std::string text = verb < end ? app.get_subcommand(*verb)->help("accessoryctl") : app.help();
    fputs(text.c_str(), stdout);
    return kDone;
}

}  // namespace accessory::ctl
