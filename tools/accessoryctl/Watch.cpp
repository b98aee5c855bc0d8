// watch: prints the events of the services until a signal, a count, a time or a death ends it.
#include <binder/ProcessState.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <optional>

#include "tools/accessoryctl/EventFilter.h"
#include "tools/accessoryctl/EventLines.h"
#include "tools/accessoryctl/FolderState.h"
#include "tools/accessoryctl/LineQueue.h"
#include "tools/accessoryctl/Verbs.h"
#include "tools/accessoryctl/WatchedService.h"

namespace accessory::ctl {

namespace {

using Clock = std::chrono::steady_clock;

constexpr size_t kMostWaitingLines = 1024;
constexpr double kSecondsToFinish = 2;
constexpr int kLookEveryMilliseconds = 100;

/// Lets SIGINT and SIGTERM be read from a descriptor; must come before any thread is started.
int signalDescriptor() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

/// One run of the verb. The listener and the deaths come on the runtime's threads and only push lines, count,
/// and wake the watcher, whose thread does everything else.
class Watcher {
  public:
    Watcher(const Options& options, const WatchOptions& watched);

    int run();

  private:
    void hear(const Event& event);
    void say(const char* type, const Json::Value& object, const std::string& text);
    void wake() const;
    bool connectAll();
    std::string waitingLine() const;
    int noteDeaths();
    std::optional<int> status() const;
    int rest(int milliseconds);
    int finish(int exitStatus);
    int watchUntilEnd();

    const Options mOptions;
    const WatchOptions mWatched;
    const EventFilter mFilter;
    const int mSignals;
    const int mWakeUps;
    const std::optional<Clock::time_point> mEnd;
    LineQueue mLines;
    std::atomic<unsigned> mHeard{0};
    std::vector<std::unique_ptr<WatchedService>> mServices;
};

std::optional<Clock::time_point> endOf(double seconds) {
    if (seconds <= 0) return std::nullopt;
    return Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
}

Watcher::Watcher(const Options& options, const WatchOptions& watched)
    : mOptions(options),
      mWatched(watched),
      mFilter(watched.events, watched.where),
      mSignals(signalDescriptor()),
      mWakeUps(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      mEnd(endOf(watched.seconds)),
      mLines(kMostWaitingLines, [json = options.json](size_t count) { return droppedLine(json, count); }) {
    for (const tools::Interface* each : mFilter.notifiers()) {
        mServices.push_back(std::make_unique<WatchedService>(
            *each, [this](const Event& event) { hear(event); }, [this] { wake(); }));
    }
}

void Watcher::hear(const Event& event) {
    if (!mFilter.wants(event.operation)) return;
    const bool undecoded = !event.error.empty();
    if (undecoded ? mFilter.hasConditions() : !mFilter.holds(event.arguments)) return;
    const unsigned number = ++mHeard;
    if (mWatched.count != 0 && number > mWatched.count) return;
    mLines.push(eventLine(mOptions, event));
    if (number == mWatched.count) wake();
}

void Watcher::say(const char* type, const Json::Value& object, const std::string& text) {
    mLines.push(mOptions.json ? jsonLine(type, object) : text);
}

void Watcher::wake() const {
    const uint64_t one = 1;
    // It fails only when enough wake-ups wait already.
    [[maybe_unused]] const ssize_t written = write(mWakeUps, &one, sizeof(one));
}

/// @return whether a service that was not there has come.
bool Watcher::connectAll() {
    Json::Value connected(Json::arrayValue);
    for (const auto& service : mServices) {
        if (!service->isConnected() && service->connect(mOptions)) connected.append(service->name());
    }
    if (connected.empty()) return false;
    Json::Value object;
    object["services"] = connected;
    object["absent"] = Json::Value(Json::arrayValue);
    for (const auto& service : mServices) {
        if (!service->isConnected()) object["absent"].append(service->name());
    }
    std::string text = "watching";
    for (const Json::Value& name : connected)
        text += " " + name.asString();
    say("watching", object, text);
    return true;
}

std::string Watcher::waitingLine() const {
    std::string text = "waiting for";
    for (const auto& service : mServices)
        text += " " + service->name();
    return text;
}

/// @return how many services died.
int Watcher::noteDeaths() {
    int deaths = 0;
    for (const auto& service : mServices) {
        if (!service->takeDeath()) continue;
        ++deaths;
        Json::Value object;
        object["service"] = service->name();
        say("died", object, service->name() + " died");
    }
    return deaths;
}

/// The exit status when a count or a time has ended the watch.
std::optional<int> Watcher::status() const {
    if (mWatched.count != 0 && mHeard >= mWatched.count) return kDone;
    if (mLines.isBroken()) return kDone;
    if (!mEnd.has_value() || Clock::now() < *mEnd) return std::nullopt;
    if (mWatched.count != 0) return kTimedOut;
    return mHeard > 0 ? kDone : kFailed;
}

/// Waits for a signal, a wake-up or the time. @return the number of the signal, or 0.
int Watcher::rest(int milliseconds) {
    pollfd sources[] = {{mSignals, POLLIN, 0}, {mWakeUps, POLLIN, 0}};
    poll(sources, 2, milliseconds);
    uint64_t wakeUps = 0;
    [[maybe_unused]] const ssize_t taken = read(mWakeUps, &wakeUps, sizeof(wakeUps));
    signalfd_siginfo signal{};
    const bool caught = (sources[0].revents & POLLIN) != 0 && read(mSignals, &signal, sizeof(signal)) > 0;
    return caught ? static_cast<int>(signal.ssi_signo) : 0;
}

int Watcher::finish(int exitStatus) {
    for (const auto& service : mServices)
        service->disconnect(mOptions);
    if (!mLines.finish(kSecondsToFinish)) _exit(exitStatus);
    return exitStatus;
}

int Watcher::watchUntilEnd() {
    while (true) {
        if (const auto ended = status()) return *ended;
        if (noteDeaths() > 0 && !mWatched.reconnect) return kServiceDied;
        if (mWatched.reconnect) connectAll();
        if (rest(kLookEveryMilliseconds) != 0) return kDone;
    }
}

int Watcher::run() {
    android::ProcessState::self()->startThreadPool();
    try {
        requireUsableFolder();
        const bool any = connectAll();
        if (!any && !mWatched.reconnect) throw noService(mServices[0]->name());
        if (!any && !mOptions.json) mLines.push(waitingLine());
        return finish(watchUntilEnd());
    } catch (const Failure&) {
        finish(kFailed);
        throw;
    }
}

}  // namespace

int watch(const Options& options, const WatchOptions& watched) {
    // Events can still arrive while the process ends, so the watcher stays.
    static auto* const watcher = new Watcher(options, watched);
    return watcher->run();
}

}  // namespace accessory::ctl
