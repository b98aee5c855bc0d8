// A program that the demo runs: its lines are shown under its label as they come, and remembered.
#pragma once

#include <sys/types.h>

#include <condition_variable>
#include <cstdio>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace demo {

/// The escape sequence of a colour; empty when standard output is no terminal or NO_COLOR is set.
const char* colour(const char* code);

/// One line under a label, cut to the width of a screen.
void show(const char* label, const char* colourCode, const std::string& line);

struct Appearance {
    const char* label;
    const char* colourCode;
    /// Whether a line is shown; all are remembered.
    std::function<bool(const std::string& line)> isShown = [](const std::string&) { return true; };
};

class Program {
  public:
    /// Starts @p command, whose first word is the program's file. Its log lines are not shown.
    Program(const std::vector<std::string>& command, Appearance appearance);
    /// Kills it if it still runs.
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    pid_t pid() const { return mPid; }

    /// Waits for a line that contains @p text. @return false when the program ends without one.
    bool says(const std::string& text);

    void signal(int number) const;
    /// @return the exit status, or 128 and the signal that ended it; when it has ended, all its lines are
    /// known.
    int wait();

    /// What it has said so far.
    std::vector<std::string> lines();

  private:
    void relay(FILE* output);
    void note(const std::string& line);

    const Appearance mAppearance;
    pid_t mPid = -1;
    int mStatus = -1;
    std::thread mRelay;
    std::mutex mLock;
    std::condition_variable mChanged;
    std::vector<std::string> mLines;
    bool mEnded = false;
};

}  // namespace demo
