// completion: scripts that the shells accept and that offer exactly what there is.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/tools/Program.h"
#include "tools/rows/Operation.h"

namespace accessory::test {
namespace {

/// A completion script in a folder of its own, under the name that zsh looks for in such a folder.
class Script {
  public:
    explicit Script(const std::string& shell) {
        std::string folder = testing::TempDir() + "accessoryctl-completion-XXXXXX";
        EXPECT_NE(mkdtemp(folder.data()), nullptr);
        mFolder = folder;
        const Ran ran = run({"completion", shell});
        EXPECT_EQ(ran.status, 0);
        std::ofstream(path()) << ran.out;
    }
    ~Script() { std::filesystem::remove_all(mFolder); }
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    const std::string& folder() const { return mFolder; }
    std::string path() const { return mFolder + "/_accessoryctl"; }

  private:
    std::string mFolder;
};

bool isInstalled(const std::string& shell) {
    return system(("command -v " + shell + " > /dev/null").c_str()) == 0;
}

/// The command line as an array of either shell.
std::string quotedLine(const Words& words) {
    std::string line = "(accessoryctl";
    for (const std::string& word : words)
        line += " '" + word + "'";
    return line + ")";
}

/// The lines that @p shell prints when it carries out @p command, in ascending order.
Words printedBy(const std::string& shell, const std::string& command) {
    setenv("ACCESSORYCTL_SCRIPT", command.c_str(), 1);
    FILE* const output = popen((shell + " -c \"$ACCESSORYCTL_SCRIPT\"").c_str(), "r");
    std::string text;
    for (int c = 0; (c = fgetc(output)) != EOF;)
        text += static_cast<char>(c);
    EXPECT_EQ(pclose(output), 0) << text;
    Words all;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        if (!line.empty()) all.push_back(line);
    std::sort(all.begin(), all.end());
    return all;
}

/// What bash offers for the last of @p words.
Words offered(const Script& script, const Words& words) {
    return printedBy("bash", "source " + script.path() + "; COMP_WORDS=" + quotedLine(words) +
                                 "; COMP_CWORD=" + std::to_string(words.size()) +
                                 R"(; compopt() { :; }; _accessoryctl; printf '%s\n' "${COMPREPLY[@]}")");
}

/// What zsh offers for the last of @p words when it loads the script for that.
Words offeredByZsh(const Script& script, const Words& words) {
    return printedBy("zsh -f", "fpath=(" + script.folder() + "); autoload -Uz _accessoryctl; words=" +
                                   quotedLine(words) + "; CURRENT=" + std::to_string(words.size() + 1) + R"(
                                   compadd() {
                                       while [[ $1 != -- ]]; do shift; done
                                       shift
                                       print -rl -- ${(M)@:#${words[CURRENT]}*}
                                   }
                                   _accessoryctl)");
}

/// "Interface.operation" of all services, or of all notifiers, each once, in ascending order.
Words namesFromRows(bool notifiers) {
    Words names;
    for (const tools::Interface* interface : tools::allInterfaces()) {
        if (interface->isNotifier != notifiers) continue;
        for (const auto& operation : interface->operations)
            names.push_back(interface->name + "." + operation->name);
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

TEST(Completion, IsAScriptThatBashAccepts) {
    const Script script("bash");
    EXPECT_EQ(system(("bash -n " + script.path()).c_str()), 0);
}

TEST(Completion, IsAScriptThatZshAccepts) {
    if (!isInstalled("zsh")) GTEST_SKIP() << "zsh is not installed";
    const Script script("zsh");
    EXPECT_EQ(system(("zsh -n " + script.path()).c_str()), 0);
}

TEST(Completion, WorksInZshFromTheFirstKeyPress) {
    if (!isInstalled("zsh")) GTEST_SKIP() << "zsh is not installed";
    const Script script("zsh");
    EXPECT_EQ(offeredByZsh(script, {"d"}), (Words{"decode", "describe", "doctor", "dump"}));
    EXPECT_EQ(offeredByZsh(script, {"call", ""}), namesFromRows(false));
    EXPECT_EQ(offeredByZsh(script, {"call", "IAppleiAP2Manager.launchAPP", ""}),
              (Words{"accId=", "appId=", "method="}));
    EXPECT_EQ(offeredByZsh(script, {"watch", "--re"}), (Words{"--reconnect"}));
    EXPECT_EQ(offeredByZsh(script, {"call", "laun"}), (Words{"launchAPP"}));
    EXPECT_EQ(offeredByZsh(script, {"watch", "powerUpdate", "--where", "power.chargeL"}),
              (Words{"power.chargeLevel="}));
    EXPECT_EQ(offeredByZsh(script, {"call", "startPowerUpdate", "powerMask=chargeL"}),
              (Words{"powerMask=chargeLevel"}));
}

TEST(Completion, OffersTheOperationsAndEventsOfTheRows) {
    const Script script("bash");
    EXPECT_EQ(offered(script, {"call", ""}), namesFromRows(false));
    EXPECT_EQ(offered(script, {"watch", ""}), namesFromRows(true));
}

TEST(Completion, OffersVerbsFieldsAndOptions) {
    const Script script("bash");
    EXPECT_EQ(offered(script, {"d"}), (Words{"decode", "describe", "doctor", "dump"}));
    EXPECT_EQ(offered(script, {"call", "IAppleiAP2Manager.launchAPP", ""}),
              (Words{"accId=", "appId=", "method="}));
    EXPECT_EQ(offered(script, {"call", "IAppleiAP2Manager.InitiateCall", "param.d"}),
              (Words{"param.destinationId="}));
    EXPECT_EQ(offered(script, {"watch", "--re"}), (Words{"--reconnect"}));
    EXPECT_EQ(offered(script, {"dump", "IAcc"}), (Words{"IAccessoryManager"}));
    EXPECT_EQ(offered(script, {"completion", ""}), (Words{"bash", "zsh"}));
    EXPECT_EQ(offered(script, {"doctor", "--t"}), (Words{"--tidy", "--timeout"}));
    EXPECT_EQ(offered(script, {"call", "IAppleiAP2Manager.launchAPP", "accId", "=", ""}), Words{});
}

TEST(Completion, OffersNamesWithoutTheirInterface) {
    const Script script("bash");
    EXPECT_EQ(offered(script, {"call", "laun"}), (Words{"launchAPP"}));
    EXPECT_EQ(offered(script, {"call", "launchAPP", ""}), (Words{"accId=", "appId=", "method="}));
    EXPECT_EQ(offered(script, {"describe", "laun"}), (Words{"launchAPP"}));
    EXPECT_EQ(offered(script, {"watch", "nowP"}), (Words{"nowPlayingUpdate"}));
}

TEST(Completion, OffersTheFieldsOfTheWatchedEvents) {
    const Script script("bash");
    EXPECT_EQ(offered(script, {"watch", "attach", "--where", ""}), (Words{"accId=", "accessoryId="}));
    EXPECT_EQ(offered(script, {"watch", "powerUpdate", "--where", "power.charge"}),
              (Words{"power.chargeIsPresent=", "power.chargeLevel=", "power.chargeState="}));
    EXPECT_EQ(offered(script, {"watch", "--where", "power.chargeL"}), (Words{"power.chargeLevel="}));
}

TEST(Completion, OffersTheBitsOfAMask) {
    const Script script("bash");
    const Words charge = {"chargeIsPresent", "chargeLevel", "chargeState"};
    EXPECT_EQ(offered(script, {"call", "startPowerUpdate", "powerMask", "=", "charge"}), charge);
    EXPECT_EQ(offered(script, {"call", "IAppleiAP2Manager.startPowerUpdate", "powerMask", "=", "charge"}),
              charge);
}

TEST(Completion, LeavesFilesToTheShell) {
    const Script script("bash");
    EXPECT_EQ(printedBy("bash", "source " + script.path() + "; complete -p accessoryctl"),
              (Words{"complete -o default -F _accessoryctl accessoryctl"}));
    EXPECT_EQ(offered(script, {"decode", "/tm"}), Words{});
    EXPECT_EQ(offered(script, {"timeline", "-o", "/tm"}), Words{});
    for (const char* mark : {"@", "=@"})
        EXPECT_EQ(offered(script, {"call", "setBluetoothAddr", mark, script.path()}), Words{script.path()});
}

}  // namespace
}  // namespace accessory::test
