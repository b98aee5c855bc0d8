#include "Acceptor.h"

#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <utility>

#include "../Log.h"
#include "Node.h"

namespace android::runtime {

namespace {

using namespace std::chrono_literals;

constexpr auto kGreetingTime = 5s;
constexpr auto kSweepTime = 1s;
constexpr const char* kSilence = "it leaves too many connections without a word";
/// How many to let in before the reactor looks after everything else again.
constexpr int kTurn = 64;
/// How long to leave callers waiting at the door when this process has no descriptors left.
constexpr auto kPause = 50ms;

/// @param own nobody connects to itself; whoever says so would pass for this process, and his end for its
/// own.
bool isUsable(const Hello& hello, const PeerId& own) {
    const bool known = hello.kind == ConnectionKind::kLink || hello.kind == ConnectionKind::kCall ||
                       hello.kind == ConnectionKind::kOneway;
    return hello.protocol == kProtocol && known && hello.sender && hello.sender != own;
}

}  // namespace

Acceptor::Acceptor(Node& node)
    : mNode(node), mListener(node.folder.listen(node.id.toString(), node.access.fileMode())) {
    if (!mListener.isOpen()) {
        BINDER_LOGE("no socket in the runtime folder '%s': %s", node.folder.path().c_str(), strerror(errno));
        return;
    }
    mNode.reactor.after(0ms, [this] { open(); });
}

void Acceptor::open() {
    mWatch = mNode.reactor.watch(mListener.get(), EPOLLIN, [this](uint32_t) { acceptAll(); });
}

void Acceptor::acceptAll() {
    for (int taken = 0; taken < kTurn; ++taken) {
        auto greeting = std::make_shared<Greeting>();
        greeting->fd = RuntimeFd(accept4(mListener.get(), nullptr, nullptr, SOCK_CLOEXEC));
        if (greeting->fd.isOpen()) {
            greet(greeting);
        } else if (errno == EMFILE || errno == ENFILE || errno == ENOMEM || errno == ENOBUFS) {
            return pause();
        } else if (errno != EINTR && errno != ECONNABORTED) {
            return;
        }
    }
}

void Acceptor::pause() {
    BINDER_LOGE("callers have to wait at the door: %s", strerror(errno));
    mNode.reactor.forget(mWatch, mListener.get());
    mNode.reactor.after(kPause, [this] { open(); });
}

/// Usually the Hello is there already; a caller who takes his time must not hold up the others.
void Acceptor::greet(const std::shared_ptr<Greeting>& greeting) {
    const ssize_t got = recv(greeting->fd.get(), reinterpret_cast<char*>(&greeting->hello) + greeting->bytes,
                             sizeof(Hello) - greeting->bytes, MSG_DONTWAIT);
    if (got > 0) greeting->bytes += static_cast<size_t>(got);
    const bool waiting = got > 0 ? greeting->bytes < sizeof(Hello) : got < 0 && errno == EAGAIN;
    if (waiting && greeting->watch == 0) return listenOn(greeting);
    if (waiting) return;
    end(greeting.get());
    RuntimeFd fd = std::move(greeting->fd);
    if (greeting->bytes == sizeof(Hello)) admit(std::move(fd), greeting->hello);
}

void Acceptor::listenOn(const std::shared_ptr<Greeting>& greeting) {
    if (!readCredentials(greeting->fd.get(), &greeting->who)) return;
    greeting->share = mQuota.take(greeting->who.pid);
    if (!greeting->share) return mNode.refusals.tell(greeting->who, kSilence);
    if (mGreetings.size() >= kMostGreetingsInAll) endOldest();
    greeting->watch =
        mNode.reactor.watch(greeting->fd.get(), EPOLLIN, [this, greeting](uint32_t) { greet(greeting); });
    if (greeting->watch == 0) return;
    greeting->deadline = Reactor::Clock::now() + kGreetingTime;
    sweepLater();
    mGreetings.emplace(greeting->watch, greeting);
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
    if (std::exchange(mSweeping, true)) return;
    mNode.reactor.after(kSweepTime, [this] { sweep(); });
}

void Acceptor::sweep() {
    mSweeping = false;
    const auto now = Reactor::Clock::now();
    while (!mGreetings.empty() && mGreetings.begin()->second->deadline <= now) {
        const auto late = mGreetings.begin()->second;
        end(late.get());
        late->fd.reset();
    }
    if (!mGreetings.empty()) sweepLater();
}

void Acceptor::admit(RuntimeFd fd, const Hello& hello) {
    Credentials credentials;
    if (!readCredentials(fd.get(), &credentials)) return;
    if (!mNode.access.admits(fd.get(), credentials))
        return mNode.refusals.tell(credentials, "it is another user's");
    if (!isUsable(hello, mNode.id)) {
        return mNode.refusals.tell(credentials, "it does not speak this version of the protocol");
    }
    const std::shared_ptr<Peer> peer = mNode.peers.get(hello.sender);
    if (!peer->isOf(credentials)) return mNode.refusals.tell(credentials, "it poses as another process");
    if (hello.kind == ConnectionKind::kLink) return peer->adoptLink(std::move(fd), credentials);
    auto connection = std::make_unique<Connection>(std::move(fd), hello.kind, peer, credentials);
    if (!mNode.workers.add(std::move(connection)))
        mNode.refusals.tell(credentials, "it has too many connections");
}

}  // namespace android::runtime
