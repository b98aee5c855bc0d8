// The round trip of a call between two processes, beside a bare ping-pong of the same bytes on a Unix socket.
//
// Both processes are pinned to one core, so that what counts is the work and not the scheduler's choice of
// cores. Look at the ratio of the two in one run; the times alone say little on a shared machine.
#include <accessory/IAccessoryManager.h>
#include <benchmark/benchmark.h>
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/Parcel.h>
#include <binder/ProcessState.h>
#include <sched.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

using android::IBinder;
using android::Parcel;
using android::sp;
using android::String16;

/// What a frame of the runtime has besides the parcel: the ping-pong moves as many bytes.
constexpr size_t kFrameHeader = 40;

class Echo : public android::BBinder {
  protected:
    android::status_t onTransact(uint32_t /*code*/, const Parcel& data, Parcel* reply,
                                 uint32_t /*flags*/) override {
        return reply->write(data.data(), data.dataSize());
    }
};

void pinToOneCore() {
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(0, &one);
    sched_setaffinity(0, sizeof(one), &one);
}

bool readAll(int fd, std::vector<char>& bytes) {
    for (size_t done = 0; done < bytes.size();) {
        const ssize_t got = recv(fd, bytes.data() + done, bytes.size() - done, 0);
        if (got <= 0) return false;
        done += static_cast<size_t>(got);
    }
    return true;
}

bool writeAll(int fd, const std::vector<char>& bytes) {
    for (size_t done = 0; done < bytes.size();) {
        const ssize_t sent = send(fd, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
        if (sent <= 0) return false;
        done += static_cast<size_t>(sent);
    }
    return true;
}

[[noreturn]] void servePings(int fd, size_t size) {
    std::vector<char> bytes(size);
    while (readAll(fd, bytes) && writeAll(fd, bytes)) {
    }
    _exit(0);
}

[[noreturn]] void serveCalls() {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    pinToOneCore();
    android::defaultServiceManager()->addService(String16("bench.echo"), new Echo());
    android::ProcessState::self()->startThreadPool();
    android::IPCThreadState::self()->joinThreadPool();
    _exit(0);
}

void BareSocket(benchmark::State& state) {
    const size_t size = static_cast<size_t>(state.range(0)) + kFrameHeader;
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return state.SkipWithError("socketpair");
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        servePings(ends[1], size);
    }
    close(ends[1]);
    std::vector<char> bytes(size);
    while (state.KeepRunning()) {
        if (!writeAll(ends[0], bytes) || !readAll(ends[0], bytes))
            return state.SkipWithError("lost the child");
    }
    close(ends[0]);
    waitpid(child, nullptr, 0);
}

void Transact(benchmark::State& state) {
    const sp<IBinder> echo = android::defaultServiceManager()->getService(String16("bench.echo"));
    if (echo == nullptr) return state.SkipWithError("no service");
    const std::vector<char> payload(static_cast<size_t>(state.range(0)));
    while (state.KeepRunning()) {
        Parcel data;
        Parcel reply;
        data.write(payload.data(), payload.size());
        if (echo->transact(1, data, &reply) != android::NO_ERROR) return state.SkipWithError("call failed");
        benchmark::DoNotOptimize(reply.data());
    }
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    for (const int size : {16, 64, 1024, 64 * 1024, 512 * 1024})
        benchmark->Arg(size);
    benchmark->UseRealTime()->Repetitions(9)->ReportAggregatesOnly();
}

BENCHMARK(BareSocket)->Apply(sizes);
BENCHMARK(Transact)->Apply(sizes);

/// Another process of this program, which serves until this one ends.
pid_t startService() {
    char* arguments[] = {const_cast<char*>("bench_round_trip"), const_cast<char*>("--serve"), nullptr};
    pid_t pid = -1;
    posix_spawn(&pid, "/proc/self/exe", nullptr, nullptr, arguments, environ);
    return pid;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && strcmp(argv[1], "--serve") == 0) serveCalls();
    char folder[] = "/tmp/bench-XXXXXX";
    setenv("BINDER_RUNTIME_DIR", mkdtemp(folder), 1);
    const pid_t service = startService();
    pinToOneCore();
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1, interleave.data());
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    benchmark::RunSpecifiedBenchmarks();
    kill(service, SIGKILL);
    waitpid(service, nullptr, 0);
    const std::string clean = std::string("rm -rf ") + folder;
    return system(clean.c_str());
}
