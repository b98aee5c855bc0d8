#include "Program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace demo {

namespace {

constexpr size_t kLineWidth = 110;

pid_t start(const std::vector<std::string>& command, int output) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    pid_t pid = -1;
    const int failed = posix_spawn(&pid, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failed != 0) fprintf(stderr, "demo: %s cannot be started: %s\n", arguments[0], strerror(failed));
    return failed == 0 ? pid : -1;
}

}  // namespace

const char* colour(const char* code) {
    static const bool coloured = isatty(STDOUT_FILENO) != 0 && getenv("NO_COLOR") == nullptr;
    return coloured ? code : "";
}

void show(const char* label, const char* colourCode, const std::string& line) {
    printf("%s%-10s|%s %s\n", colour(colourCode), label, colour("\033[0m"),
           line.substr(0, kLineWidth).c_str());
    fflush(stdout);
}

Program::Program(const std::vector<std::string>& command, Appearance appearance)
    : mAppearance(std::move(appearance)) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return;
    mPid = start(command, ends[1]);
    close(ends[1]);
    mRelay = std::thread([this, output = fdopen(ends[0], "r")] { relay(output); });
}

Program::~Program() {
    signal(SIGKILL);
    wait();
}

void Program::relay(FILE* output) {
    char part[512];
    std::string line;
    while (fgets(part, sizeof(part), output) != nullptr) {
        line += part;
        if (line.back() != '\n') continue;
        line.pop_back();
        note(line);
        line.clear();
    }
    fclose(output);
    const std::lock_guard<std::mutex> guard(mLock);
    mEnded = true;
    mChanged.notify_all();
}

void Program::note(const std::string& line) {
    if (mAppearance.isShown(line)) show(mAppearance.label, mAppearance.colourCode, line);
    const std::lock_guard<std::mutex> guard(mLock);
    mLines.push_back(line);
    mChanged.notify_all();
}

bool Program::says(const std::string& text) {
    std::unique_lock<std::mutex> guard(mLock);
    const auto said = [&] {
        return std::any_of(mLines.begin(), mLines.end(),
                           [&](const std::string& line) { return line.find(text) != std::string::npos; });
    };
    mChanged.wait(guard, [&] { return said() || mEnded; });
    return said();
}

void Program::signal(int number) const {
    if (mPid > 0) kill(mPid, number);
}

int Program::wait() {
    int status = 0;
    if (mPid > 0 && waitpid(std::exchange(mPid, -1), &status, 0) > 0) {
        mStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    if (mRelay.joinable()) mRelay.join();
    return mStatus;
}

std::vector<std::string> Program::lines() {
    const std::lock_guard<std::mutex> guard(mLock);
    return mLines;
}

}  // namespace demo
