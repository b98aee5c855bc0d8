// What the parser of options would refuse in words of its own: verbs, times and counts.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace accessory::ctl {

/// For the value of @p option. What no clock can count becomes a long time.
CLI::Validator secondsAbove0(const std::string& option);
CLI::Validator countAbove0(const std::string& option);

/// The first word that is no option, or @p end.
char** verbIn(char** begin, char** end);

/// @throws Failure kWrongUsage for a word at @p verb that is no verb. @p end for none.
void checkVerb(const CLI::App& app, char** verb, char** end);

/// "help" and "help VERB" are what "--help" and "VERB --help" are.
bool isHelp(char** verb, char** end);
/// @param verb what help is wanted about, or @p end. @return the exit status.
int help(const CLI::App& app, char** verb, char** end);

}  // namespace accessory::ctl
