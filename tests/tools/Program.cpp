#include "tests/tools/Program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tools/rows/Values.h"

namespace accessory::test {

namespace {

int exitStatus(int status) { return WIFEXITED(status) ? WEXITSTATUS(status) : -1; }

/// A child with its output and errors at the given descriptors, with nothing of ours left open in it.
pid_t start(const Words& words, int out, int err) {
    std::vector<char*> argv = {const_cast<char*>(ACCESSORYCTL)};
    for (const std::string& word : words)
        argv.push_back(const_cast<char*>(word.c_str()));
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        dup2(out, STDOUT_FILENO);
        dup2(err, STDERR_FILENO);
        execv(ACCESSORYCTL, argv.data());
        _exit(127);
    }
    return child;
}

/// The status of @p child, which must end in time.
int reap(pid_t child) {
    int status = 0;
    const bool ended = bool(eventually([&] { return waitpid(child, &status, WNOHANG) == child; }));
    EXPECT_TRUE(ended) << "accessoryctl still runs";
    if (!ended) {
        kill(child, SIGKILL);
        waitpid(child, &status, 0);
    }
    return exitStatus(status);
}

/// A file without a name, which a child fills and we read afterwards.
class Collected {
  public:
    Collected() : mFile(tmpfile()) { EXPECT_NE(mFile, nullptr); }
    ~Collected() { fclose(mFile); }
    Collected(const Collected&) = delete;
    Collected& operator=(const Collected&) = delete;

    int descriptor() const { return fileno(mFile); }
    std::string text() const {
        rewind(mFile);
        std::string all;
        std::array<char, 4096> block{};
        for (size_t count = 0; (count = fread(block.data(), 1, block.size(), mFile)) > 0;)
            all.append(block.data(), count);
        return all;
    }

  private:
    FILE* const mFile;
};

}  // namespace

Json::Value parsed(const std::string& line) {
    Json::Value value;
    EXPECT_TRUE(tools::parseJson(line, &value)) << "no JSON: " << line;
    return value;
}

std::vector<Json::Value> Ran::objects() const {
    std::vector<Json::Value> all;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);)
        all.push_back(parsed(line));
    return all;
}

Ran run(const Words& words) {
    const Collected out;
    const Collected err;
    Ran ran;
    ran.status = reap(start(words, out.descriptor(), err.descriptor()));
    ran.out = out.text();
    ran.err = err.text();
    return ran;
}

Program::Program(const Words& words) {
    const auto [ours, theirs] = LineChannel::connectedPair();
    mPid = start(words, theirs, STDERR_FILENO);
    close(theirs);
    mOutput.emplace(ours);
}

Program::~Program() {
    if (!mStatus.has_value()) {
        kill(mPid, SIGKILL);
        waitpid(mPid, nullptr, 0);
    }
}

std::string Program::expectLine() {
    const auto line = mOutput->receive(kPatience);
    EXPECT_TRUE(line.has_value()) << "accessoryctl printed nothing";
    return line.value_or("");
}

Json::Value Program::expectObject() { return parsed(expectLine()); }

std::vector<std::string> Program::remainingLines() {
    std::vector<std::string> lines;
    while (const auto line = mOutput->receive(kPatience))
        lines.push_back(*line);
    EXPECT_TRUE(mOutput->ended()) << "the output does not end";
    return lines;
}

int Program::wait() {
    if (!mStatus.has_value()) mStatus = reap(mPid);
    return *mStatus;
}

}  // namespace accessory::test
