// The command line of accessory-simulator.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simulator/World.h"
#include "simulator/faults/Fault.h"

namespace accessory::simulator {

/// Exit statuses of the program.
enum ExitStatus : int {
    kEnded = 0,
    kUnusable = 1,        ///< no runtime directory, no room, no file
    kMisused = 2,         ///< a mistake on the command line
    kBadScenario = 3,     ///< a mistake in a scenario, or there is none of that name
    kAlreadyRunning = 4,  ///< another process has one of the names
};

struct Options {
    enum class Task { kSimulate, kList, kCheck, kDescribe };

    Task task = Task::kSimulate;
    std::string scenario = "commute";  ///< a file or a ready-made name
    Playing playing;
    std::vector<Fault> faults;
    bool verbose = false;
    bool exitAtEnd = false;
    int readyDescriptor = -1;
};

/// @return an exit status when the program is to end: after help, or after a message about a mistake.
std::optional<int> readOptions(int argc, char** argv, Options* options);

}  // namespace accessory::simulator
