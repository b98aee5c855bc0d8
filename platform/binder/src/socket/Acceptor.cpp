#include "Acceptor.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <utility>

#include "../Log.h"
#include "../OutOfMemory.h"
#include "Node.h"

namespace android::runtime {

namespace {

using namespace std::chrono_literals;

constexpr auto kGreetingTime = 5s;
constexpr auto kSweepTime = 1s;
constexpr const char* kSilence = "it leaves too many connections without a word";
/// How many to let in before the reactor looks after everything else again.
constexpr int kTurn = 64;

/// @param own nobody connects to itself; whoever says so would pass for this process, and his end for its
/// own.
bool isUsable(const Hello& hello, const PeerId& own) {
    const bool known = hello.kind == ConnectionKind::kLink || hello.kind == ConnectionKind::kCall ||
                       hello.kind == ConnectionKind::kOneway;
    return hello.protocol == kProtocol && known && hello.sender && hello.sender != own;
}

}  // namespace

bool Acceptor::open() {
    const std::lock_guard<std::mutex> guard(mLock);
    if (isOpenLocked()) return true;
    auto listener =
        std::make_shared<const RuntimeFd>(mNode.folder.listen(mNode.id.toString(), mNode.access.fileMode()));
    if (!listener->isOpen()) {
        BINDER_LOGE("no socket in the runtime folder '%s': %s", mNode.folder.path().c_str(), strerror(errno));
        return false;
    }
    const uint64_t watch = watchListener(listener);
    if (watch == 0) return false;
    if (mWatch != 0) mNode.reactor.forget(mWatch, mListener->get());
    mWatch = watch;
    mListener = std::move(listener);
    return true;
}

uint64_t Acceptor::timesDeserted() {
    const std::lock_guard<std::mutex> guard(mLock);
    pollfd door{mListener != nullptr ? mListener->get() : -1, POLLIN, 0};
    if (poll(&door, 1, 0) == 0) ++mTimesDeserted;
    return mTimesDeserted;
}

/// A socket without its name is one that nobody finds.
bool Acceptor::isOpenLocked() const {
    if (mListener == nullptr) return false;
    struct stat state {};
    const int found = lstat(mNode.folder.pathOf(mNode.id.toString()).c_str(), &state);
    return found == 0 ? S_ISSOCK(state.st_mode) : errno != ENOENT && errno != ENOTDIR;
}

uint64_t Acceptor::watchListener(const Listener& listener) {
    return mNode.reactor.watch(listener->get(), EPOLLIN, [this, listener](uint32_t) { acceptAll(listener); });
}

void Acceptor::rewatch() {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mWatch == 0) mWatch = patiently([this] { return watchListener(mListener); });
}

void Acceptor::acceptAll(const Listener& listener) {
    for (int taken = 0; taken < kTurn; ++taken) {
        auto greeting = patiently([] { return std::make_shared<Greeting>(); });
        greeting->fd =
            RuntimeFd::made([&] { return accept4(listener->get(), nullptr, nullptr, SOCK_CLOEXEC); });
        if (greeting->fd.isOpen()) {
            greet(greeting);
        } else if (errno == EMFILE || errno == ENFILE || errno == ENOMEM || errno == ENOBUFS) {
            return pause(listener);
        } else if (errno != EINTR && errno != ECONNABORTED) {
            ++mTimesDeserted;
            return;
        }
    }
}

void Acceptor::pause(const Listener& listener) {
    BINDER_LOGE("callers have to wait at the door: %s", strerror(errno));
    const std::lock_guard<std::mutex> guard(mLock);
    if (mListener != listener) return;
    patiently([this] { mNode.reactor.after(Reactor::kPause, [this] { rewatch(); }); });
    mNode.reactor.forget(std::exchange(mWatch, 0), listener->get());
}

/// Usually the Hello is there already; a caller who takes his time must not hold up the others.
void Acceptor::greet(const std::shared_ptr<Greeting>& greeting) {
    const ssize_t got = recv(greeting->fd.get(), reinterpret_cast<char*>(&greeting->hello) + greeting->bytes,
                             sizeof(Hello) - greeting->bytes, MSG_DONTWAIT);
    if (got > 0) greeting->bytes += static_cast<size_t>(got);
    const bool waiting = got > 0 ? greeting->bytes < sizeof(Hello) : got < 0 && isPassing(errno);
    if (waiting && greeting->watch == 0) return listenOn(greeting);
    if (waiting) return;
    end(greeting.get());
    if (greeting->bytes == sizeof(Hello)) return admit(greeting);
    greeting->fd.reset();
}

/// A connection that is closed here looks to its caller like the end of this process; so one of whom it
/// cannot be found out just now who he is waits until it can.
void Acceptor::admit(const std::shared_ptr<Greeting>& greeting) {
    const Admission admission =
        patiently([&] { return admit(&greeting->fd, greeting->hello, &greeting->who); });
    if (admission == Admission::kUnclear && mayWait(greeting)) {
        return patiently(
            [&] { mNode.reactor.after(Reactor::kPause, [this, greeting] { admit(greeting); }); });
    }
    greeting->fd.reset();
}

/// @return false for one who has left, or leaves too many.
bool Acceptor::mayWait(const std::shared_ptr<Greeting>& greeting) {
    pollfd state{greeting->fd.get(), 0, 0};
    if (poll(&state, 1, 0) > 0 && (state.revents & POLLHUP) != 0) return false;
    if (!greeting->share) greeting->share = patiently([&] { return mQuota.take(greeting->who.pid); });
    if (!greeting->share) mNode.refusals.tell(greeting->who, "nobody can say whether it poses as another");
    return static_cast<bool>(greeting->share);
}

void Acceptor::listenOn(const std::shared_ptr<Greeting>& greeting) {
    if (!readCredentials(greeting->fd.get(), &greeting->who)) return;
    greeting->share = patiently([&] { return mQuota.take(greeting->who.pid); });
    if (!greeting->share) return mNode.refusals.tell(greeting->who, kSilence);
    if (mGreetings.size() >= kMostGreetingsInAll) endOldest();
    greeting->deadline = Reactor::Clock::now() + kGreetingTime;
    greeting->watch = patiently([&] { return watch(greeting); });
    if (greeting->watch == 0) return;
    patiently([&] {
        mGreetings.emplace(greeting->watch, greeting);
        sweepLater();
    });
}

uint64_t Acceptor::watch(const std::shared_ptr<Greeting>& greeting) {
    return mNode.reactor.watch(greeting->fd.get(), EPOLLIN, [this, greeting](uint32_t) { greet(greeting); });
}

void Acceptor::end(Greeting* greeting) {
    if (greeting->watch == 0) return;
    mNode.reactor.forget(greeting->watch, greeting->fd.get());
    mGreetings.erase(greeting->watch);
}

/// Who means to speak does so at once, so it is never an honest one's turn.
void Acceptor::endOldest() {
    const auto oldest = mGreetings.begin()->second;
    mNode.refusals.tell(oldest->who, kSilence);
    end(oldest.get());
    oldest->fd.reset();
}

void Acceptor::sweepLater() {
    if (mSweeping) return;
    mNode.reactor.after(kSweepTime, [this] { sweep(); });
    mSweeping = true;
}

void Acceptor::sweep() {
    mSweeping = false;
    const auto now = Reactor::Clock::now();
    while (!mGreetings.empty() && mGreetings.begin()->second->deadline <= now) {
        const auto late = mGreetings.begin()->second;
        end(late.get());
        late->fd.reset();
    }
    if (!mGreetings.empty()) patiently([this] { sweepLater(); });
}

/// Memory is waited for: until @p fd is taken over nothing has happened that cannot happen again.
Acceptor::Admission Acceptor::admit(RuntimeFd* fd, const Hello& hello, Credentials* who) {
    if (!readCredentials(fd->get(), who)) return Admission::kEnded;
    if (!mNode.access.admits(fd->get(), *who)) return refuse(*who, "it is another user's");
    if (!isUsable(hello, mNode.id)) return refuse(*who, "it does not speak this version of the protocol");
    const std::shared_ptr<Peer> peer = mNode.peers.get(hello.sender);
    const Claim claim = peer->claimOf(*who);
    if (claim == Claim::kUnclear) return Admission::kUnclear;
    if (claim == Claim::kFalse) return refuse(*who, "it poses as another process");
    takeOver(fd, hello.kind, peer, *who);
    return Admission::kEnded;
}

Acceptor::Admission Acceptor::refuse(const Credentials& who, const char* why) {
    mNode.refusals.tell(who, why);
    return Admission::kEnded;
}

void Acceptor::takeOver(RuntimeFd* fd, ConnectionKind kind, const std::shared_ptr<Peer>& peer,
                        const Credentials& who) {
    if (kind == ConnectionKind::kLink) return peer->adoptLink(fd, who);
    auto connection = std::make_unique<Connection>(std::move(*fd), kind, peer, who);
    if (!patiently([&] { return mNode.workers.add(&connection); }))
        mNode.refusals.tell(who, "it has too many connections");
}

}  // namespace android::runtime
