#include "tests/support/ChildProcess.h"

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace accessory::test {
namespace {

/// Where the child's end goes, and a signal mask that does not depend on the test's.
class SpawnSettings {
  public:
    explicit SpawnSettings(int childEnd) {
        posix_spawn_file_actions_init(&mActions);
        posix_spawn_file_actions_adddup2(&mActions, childEnd, kChildDescriptor);
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_init(&mAttributes);
        posix_spawnattr_setsigmask(&mAttributes, &none);
        posix_spawnattr_setflags(&mAttributes, POSIX_SPAWN_SETSIGMASK);
    }

    ~SpawnSettings() {
        posix_spawnattr_destroy(&mAttributes);
        posix_spawn_file_actions_destroy(&mActions);
    }

    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    pid_t spawn(std::vector<std::string> words) const {
        std::vector<char*> argv;
        argv.reserve(words.size() + 1);
        for (std::string& word : words)
            argv.push_back(word.data());
        argv.push_back(nullptr);
        pid_t pid = -1;
        const int error = posix_spawn(&pid, "/proc/self/exe", &mActions, &mAttributes, argv.data(), environ);
        if (error != 0) throw std::system_error(error, std::generic_category(), "posix_spawn");
        return pid;
    }

  private:
    posix_spawn_file_actions_t mActions{};
    posix_spawnattr_t mAttributes{};
};

/// Starts this program in a role, with @p childEnd as its end of the conversation; closes it here.
pid_t start(const std::string& role, const RoleArguments& args, int childEnd) {
    std::vector<std::string> words = {program_invocation_name, "--child=" + role, std::to_string(getpid())};
    words.insert(words.end(), args.begin(), args.end());
    const LineChannel closesItHere(childEnd);
    return SpawnSettings(childEnd).spawn(std::move(words));
}

}  // namespace

ChildProcess::ChildProcess(const std::string& role, const RoleArguments& args)
    : ChildProcess(role, args, LineChannel::connectedPair()) {}

ChildProcess::ChildProcess(const std::string& role, const RoleArguments& args, std::pair<int, int> ends)
    : mRole(role), mChannel(ends.first), mPid(start(role, args, ends.second)) {}

ChildProcess::~ChildProcess() {
    kill(SIGKILL);
    reap(0);
}

std::string ChildProcess::expectLine(std::chrono::milliseconds patience, const char* file, int line) {
    const auto text = mChannel.receive(patience);
    if (!text && mChannel.ended()) ADD_FAILURE_AT(file, line) << name() << " hung up without another line";
    if (!text && !mChannel.ended()) {
        ADD_FAILURE_AT(file, line) << name() << " sent no line within " << patience.count() << " ms";
    }
    return text.value_or("");
}

void ChildProcess::send(const std::string& text, const char* file, int line) {
    if (!mChannel.send(text)) ADD_FAILURE_AT(file, line) << name() << " does not take '" << text << "'";
}

void ChildProcess::kill(int signal) {
    if (!mStatus) ::kill(mPid, signal);
}

/// A thread of the child that is awake may go on for a while after kill() has returned.
void ChildProcess::stop() {
    kill(SIGSTOP);
    siginfo_t stopped{};
    while (waitid(P_PID, static_cast<id_t>(mPid), &stopped, WSTOPPED) < 0 && errno == EINTR) {
    }
}

int ChildProcess::wait(std::chrono::milliseconds patience, const char* file, int line) {
    if (!eventually([this] { return reap(WNOHANG); }, patience)) {
        ADD_FAILURE_AT(file, line) << name() << " did not end within " << patience.count() << " ms";
        kill(SIGKILL);
        reap(0);
    }
    return *mStatus;
}

/// @return whether the child has ended; its status is kept.
bool ChildProcess::reap(int options) {
    if (mStatus) return true;
    int status = 0;
    pid_t ended = -1;
    do {
        ended = waitpid(mPid, &status, options);
    } while (ended < 0 && errno == EINTR);
    if (ended < 0) throw std::system_error(errno, std::generic_category(), "waitpid");
    if (ended == mPid) mStatus = status;
    return mStatus.has_value();
}

std::string ChildProcess::name() const { return "child " + std::to_string(mPid) + " in role " + mRole; }

}  // namespace accessory::test
