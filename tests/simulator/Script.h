// Script: a simulated device to which something is done at given times, played at once and without waiting.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "simulator/World.h"

namespace accessory::simulator::test {

class Script {
  public:
    /// @param deviceFields of the scenario file's device 1, beside its name; e.g. `"path": "/p"`.
    explicit Script(const std::string& deviceFields = "");

    /// @param action runs with the world locked.
    Script& at(double seconds, std::function<void(Device&)> action);

    /// Plays the script; the transport is started up at 0 s.
    /// @return every event as "seconds event(arguments)".
    std::vector<std::string> play(double seconds);

    /// What the world says of itself at the end.
    const std::string& description() const { return mDescription; }

  private:
    Scenario mScenario;
    std::string mDescription;
};

/// The lines in which @p word is.
std::vector<std::string> about(const std::string& word, const std::vector<std::string>& lines);

}  // namespace accessory::simulator::test
