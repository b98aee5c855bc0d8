// What was exchanged in the demo, counted from what the programs said.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace demo {

using Counts = std::map<std::string, int>;

/// The events that the simulator says it raised: "   16.212 event    attach(1)".
Counts raisedEvents(const std::vector<std::string>& simulatorLines);
/// The requests that it says it served.
Counts servedRequests(const std::vector<std::string>& simulatorLines);
/// The events that 'accessoryctl watch' says it received: "12:35:28.390Z IFoo.attach accId=1".
Counts watchedEvents(const std::vector<std::string>& watchLines);

/// Prints how often each event was raised and received. @return whether these agree, and there were some.
bool compare(const Counts& raised, const Counts& received);

}  // namespace demo
