// ./run demo: the smallest service and the smallest client as two processes; the service is killed in the
// end.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

namespace {

const char* colour(const char* code) {
    static const bool coloured = isatty(STDOUT_FILENO) != 0 && getenv("NO_COLOR") == nullptr;
    return coloured ? code : "";
}

/// A program whose output and log lines are shown under its name as they come.
class Program {
  public:
    Program(const std::string& folder, const char* name, const char* label, const char* code)
        : mLabel(label), mColour(code) {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) return;
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
        std::string path = folder + "/" + name;
        char* arguments[] = {path.data(), nullptr};
        if (posix_spawn(&mPid, path.c_str(), &actions, nullptr, arguments, environ) != 0) mPid = -1;
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        mRelay = std::thread([this, output = fdopen(ends[0], "r")] { relay(output); });
    }

    ~Program() {
        kill();
        wait();
        mRelay.join();
    }

    /// Waits for a line that contains @p text. @return false when the program ends without one.
    bool says(const char* text) {
        std::unique_lock<std::mutex> guard(mLock);
        const auto said = [&] { return mSaid.find(text) != std::string::npos; };
        mChanged.wait(guard, [&] { return said() || mEnded; });
        return said();
    }

    void kill() const {
        if (mPid > 0) ::kill(mPid, SIGKILL);
    }

    /// @return the exit status, or 128 and the signal that ended it.
    int wait() {
        int status = 0;
        if (mPid <= 0 || waitpid(std::exchange(mPid, -1), &status, 0) < 0) return -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

  private:
    void relay(FILE* output) {
        char line[512];
        while (fgets(line, sizeof(line), output) != nullptr) {
            printf("%s%-8s|%s %s", colour(mColour), mLabel, colour("\033[0m"), line);
            fflush(stdout);
            note(line, false);
        }
        fclose(output);
        note("", true);
    }

    void note(const char* line, bool ended) {
        const std::lock_guard<std::mutex> guard(mLock);
        mSaid += line;
        mEnded = ended;
        mChanged.notify_all();
    }

    const char* const mLabel;
    const char* const mColour;
    pid_t mPid = -1;
    std::thread mRelay;
    std::mutex mLock;
    std::condition_variable mChanged;
    std::string mSaid;
    bool mEnded = false;
};

std::string ownFolder() {
    char path[4096];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof(path));
    const std::string self(path, length > 0 ? static_cast<size_t>(length) : 0);
    return self.substr(0, self.rfind('/'));
}

/// A runtime folder of the demo's own, so that it meets no other service.
class PrivateRuntime {
  public:
    PrivateRuntime() { setenv("BINDER_RUNTIME_DIR", mkdtemp(mPath), 1); }
    ~PrivateRuntime() {
        const std::string command = std::string("rm -rf ") + mPath;
        if (system(command.c_str()) != 0) fprintf(stderr, "%s is left behind\n", mPath);
    }

  private:
    char mPath[32] = "/tmp/accessory-demo-XXXXXX";
};

}  // namespace

int main() {
    const PrivateRuntime runtime;
    Program service(ownFolder(), "accessory_service", "service", "\033[36m");
    if (!service.says("serving")) return 1;
    Program client(ownFolder(), "accessory_client", "client", "\033[33m");
    const bool asked = client.says("waiting for the service to end");
    printf("%-8s| kills the service\n", "demo");
    service.kill();
    const bool noticed = client.says("the service has ended");
    const bool clean = client.wait() == 0 && service.wait() == 128 + SIGKILL;
    const bool good = asked && noticed && clean;
    printf("%-8s| %s\n", "demo", good ? "all went as it should" : "something went wrong");
    return good ? 0 : 1;
}
