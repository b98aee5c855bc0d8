// The command line that all benchmark programs share.
#pragma once

#include <regex>
#include <string>

namespace accessory::bench {

/// How long a program may take.
enum class Effort {
    kFull,
    kQuick,  ///< fewer and shorter rounds: for a look while working
    kSmoke   ///< every path once or thrice: shows that it works, its times mean nothing
};

struct Options {
    Effort effort = Effort::kFull;
    std::string json;       ///< file for the results; none when empty
    std::regex only{".*"};  ///< which contenders or parts take part, by name
    std::string onlyText;   ///< the same as it was typed

    bool wants(const std::string& name) const { return std::regex_search(name, only); }
    /// @return the value for the effort that was asked for.
    template <typename T>
    T pick(T full, T quick, T smoke) const {
        if (effort == Effort::kFull) return full;
        return effort == Effort::kQuick ? quick : smoke;
    }
};

/// Ends the program with a message and status 2 when the command line cannot be understood, and with status 0
/// after --help.
Options parseOptions(int argc, char** argv);

}  // namespace accessory::bench
