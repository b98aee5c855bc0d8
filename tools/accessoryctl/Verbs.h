// The verbs of the command line. Each prints its result and returns the exit status, or throws Failure.
#pragma once

#include <string>
#include <vector>

#include "tools/accessoryctl/Output.h"

namespace accessory::ctl {

int list(const Options& options);

/// @param word empty, "Interface" or "Interface.operation".
int describe(const Options& options, const std::string& word);

/// @param word "Interface.operation". @param words its arguments.
int call(const Options& options, const std::string& word, const std::vector<std::string>& words);

struct WatchOptions {
    std::vector<std::string> events;  ///< "event" or "Interface.event"; all when empty
    std::vector<std::string> where;   ///< "field=value", which must all hold
    unsigned count = 0;               ///< ends after as many events; 0 for no limit
    double seconds = 0;               ///< ends after as long; 0 for no limit
    bool reconnect = false;           ///< waits for a service that is not there or died
};
int watch(const Options& options, const WatchOptions& watched);

/// @param name an interface or a service. @param words for the service.
int dump(const Options& options, const std::string& name, const std::vector<std::string>& words);

/// @param name an interface or a service.
int wait(const Options& options, const std::string& name);

/// @param tidying first removes what processes that have ended left behind.
int doctor(const Options& options, bool tidying);

/// @param paths of captures.
int decode(const Options& options, const std::vector<std::string>& paths);

/// @param outputPath of the document; empty for the standard output.
int timeline(const Options& options, const std::vector<std::string>& paths, const std::string& outputPath);

/// @param shell "bash" or "zsh".
int completion(const std::string& shell);

}  // namespace accessory::ctl
