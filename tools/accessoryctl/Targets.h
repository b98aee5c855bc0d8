// What a word on the command line means: an interface, an operation, a service.
#pragma once

#include <string>
#include <vector>

#include "tools/rows/Operation.h"

namespace accessory::ctl {

/// @throws Failure kWrongUsage for an unknown name, with the names that there are.
const tools::Interface& interfaceCalled(const std::string& name);

/// "Interface.operation": one operation, or several of that name.
struct Target {
    const tools::Interface* interface;
    std::vector<const tools::Operation*> operations;
};

/// The words around the one that names a target, for a command line that is right.
struct Around {
    std::string verb;
    std::vector<std::string> behind;
};

/// "accessoryctl VERB WORD ...", quoted for a shell.
std::string commandLine(const std::string& word, const Around& around);

/// @param word "Interface.operation"; "operation" alone, of every interface that has it; or "Interface"
/// alone, which leaves the operations empty.
/// @return at least one.
/// @throws Failure kWrongUsage as above.
std::vector<Target> targetsOf(const std::string& word, const Around& around);

/// The service of an interface that is called so, or the name itself.
std::string serviceCalled(const std::string& name);

/// Names of all operations of an interface, each once.
std::vector<std::string> operationNames(const tools::Interface& interface);

}  // namespace accessory::ctl
