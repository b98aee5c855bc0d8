#include "bench/support/Child.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <map>
#include <stdexcept>
#include <system_error>

#include "bench/support/UnixSocket.h"

namespace accessory::bench {
namespace {

/// Where a child finds its end of the conversation.
constexpr int kChildDescriptor = 3;
constexpr char kChildFlag[] = "--child";

std::map<std::string, Role>& roles() {
    static std::map<std::string, Role> byName;
    return byName;
}

[[noreturn]] void fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

std::pair<int, int> connectedPair() {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) fail("socketpair");
    return {ends[0], ends[1]};
}

pid_t spawn(const std::string& role, const Arguments& arguments, int descriptor) {
    std::vector<std::string> texts = {"bench", kChildFlag, role};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    // A descriptor that is duplicated onto itself would stay close-on-exec.
    const int source = descriptor == kChildDescriptor ? fcntl(descriptor, F_DUPFD_CLOEXEC, 10) : descriptor;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, source, kChildDescriptor);
    pid_t pid = -1;
    const int error = posix_spawn(&pid, "/proc/self/exe", &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(source);
    if (source != descriptor) close(descriptor);
    if (error != 0) throw std::system_error(error, std::generic_category(), "posix_spawn");
    return pid;
}

void play(const std::string& name, const Arguments& arguments) {
    const auto role = roles().find(name);
    if (role == roles().end()) throw std::runtime_error("no such role");
    // As long as the conductor and all its children live, and not freed with threads of the role running.
    auto* const conductor = new Channel(kChildDescriptor);
    role->second(*conductor, arguments);
}

}  // namespace

Channel::~Channel() { close(mDescriptor); }

bool Channel::send(const Words& words) {
    const uint64_t count = words.size();
    return sendAll(mDescriptor, &count, sizeof(count)) &&
           sendAll(mDescriptor, words.data(), words.size() * sizeof(uint64_t));
}

bool Channel::receive(Words* words) {
    uint64_t count = 0;
    if (!receiveAll(mDescriptor, &count, sizeof(count))) return false;
    words->resize(count);
    return receiveAll(mDescriptor, words->data(), count * sizeof(uint64_t));
}

RoleRegistration::RoleRegistration(const char* name, Role role) { roles()[name] = role; }

bool runAsChild(int argc, char** argv) {
    if (argc < 3 || std::strcmp(argv[1], kChildFlag) != 0) return false;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    try {
        play(argv[2], Arguments(argv + 3, argv + argc));
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "bench: %s: %s\n", argv[2], exception.what());
        std::fflush(nullptr);
        _exit(EXIT_FAILURE);
    }
    // Threads of the role may be in the middle of anything: no destructors.
    _exit(EXIT_SUCCESS);
}

Child::Child(const std::string& role, const Arguments& arguments) : Child(role, arguments, connectedPair()) {}

Child::Child(const std::string& role, const Arguments& arguments, std::pair<int, int> ends)
    : mName(arguments.empty() ? role : role + ' ' + arguments.front()),
      mChannel(ends.first),
      mPid(spawn(role, arguments, ends.second)) {}

Child::~Child() {
    kill(mPid, SIGKILL);
    while (waitpid(mPid, nullptr, 0) < 0 && errno == EINTR) {
    }
}

void Child::tell(const Words& words) {
    if (!mChannel.send(words)) throw std::runtime_error(mName + " has ended");
}

Words Child::answer() {
    Words words;
    if (!mChannel.receive(&words)) throw std::runtime_error(mName + " has ended");
    return words;
}

Words Child::ask(const Words& words) {
    tell(words);
    return answer();
}

}  // namespace accessory::bench
