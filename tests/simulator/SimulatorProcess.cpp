#include "tests/simulator/SimulatorProcess.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "tests/support/Eventually.h"

namespace accessory::simulator::test {

namespace {

pid_t start(std::vector<std::string> words, int output) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t pid = -1;
    EXPECT_EQ(posix_spawn(&pid, arguments[0], &actions, nullptr, arguments.data(), environ), 0);
    posix_spawn_file_actions_destroy(&actions);
    return pid;
}

}  // namespace

SimulatorProcess::SimulatorProcess(const std::vector<std::string>& arguments)
    : SimulatorProcess(SIMULATOR, arguments) {}

SimulatorProcess::SimulatorProcess(const std::string& program, const std::vector<std::string>& arguments) {
    int ends[2] = {-1, -1};
    EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    mPid = start(words, ends[1]);
    mPipe = ends[0];
    close(ends[1]);
}

SimulatorProcess::~SimulatorProcess() {
    if (!mStatus) {
        signal(SIGKILL);
        wait();
    }
    close(mPipe);
}

bool SimulatorProcess::says(const std::string& text) {
    while (mOutput.find(text) == std::string::npos) {
        if (!readMore()) return false;
    }
    return true;
}

void SimulatorProcess::signal(int number) const {
    if (!mStatus && mPid > 0) kill(mPid, number);
}

int SimulatorProcess::wait() {
    if (mStatus) return *mStatus;
    while (readMore()) {
    }
    int status = 0;
    EXPECT_EQ(waitpid(mPid, &status, 0), mPid);
    mStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return *mStatus;
}

void SimulatorProcess::listen() {
    while (hasMore(0) && readMore()) {
    }
}

bool SimulatorProcess::hasMore(int milliseconds) const {
    pollfd readable{mPipe, POLLIN, 0};
    return poll(&readable, 1, milliseconds) > 0;
}

bool SimulatorProcess::readMore() {
    if (!hasMore(static_cast<int>(accessory::test::kPatience.count()))) {
        ADD_FAILURE() << "the simulator is silent; so far it said:\n" << mOutput;
        signal(SIGKILL);
        return false;
    }
    char text[4096];
    const ssize_t count = read(mPipe, text, sizeof(text));
    if (count > 0) mOutput.append(text, static_cast<size_t>(count));
    return count > 0;
}

}  // namespace accessory::simulator::test
