// docs/SIMULATOR.md: its reference of scenario files is what the program says.
#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "simulator/faults/Operations.h"
#include "simulator/scenario/ScenarioReader.h"

namespace accessory::simulator::test {
namespace {

std::string page() {
    std::stringstream text;
    text << std::ifstream(SIMULATOR_PAGE).rdbuf();
    return text.str();
}

TEST(SimulatorPage, HasTheReferenceThatTheProgramPrints) {
    EXPECT_THAT(page(), testing::HasSubstr("```text\n" + scenarioReference() + "```\n"))
        << "paste what accessory-simulator --describe-scenario prints";
}

TEST(SimulatorPage, SaysWhatEveryRequestDoes) {
    const std::string text = page();
    for (const HostedInterface* hosted :
         {&accessoryManagerInterface(), &iAP2ManagerInterface(), &usbAudioManagerInterface()}) {
        for (const Operation& operation : hosted->operations)
            EXPECT_THAT(text, testing::HasSubstr("`" + std::string(operation.name))) << hosted->name;
    }
}

}  // namespace
}  // namespace accessory::simulator::test
