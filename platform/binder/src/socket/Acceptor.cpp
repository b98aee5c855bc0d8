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
/// How many callers to let in before the reactor looks after everything else again, deaths above all.
constexpr int kAtOnce = 32;
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
    mWatch = mNode.reactor.watch(mListener.get(), EPOLLIN, [this](uint32_t) { acceptSome(); });
}

void Acceptor::acceptSome() {
    for (int i = 0; i < kAtOnce; ++i) {
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
    if (greeting->watch != 0) mNode.reactor.forget(greeting->watch, greeting->fd.get());
    if (greeting->bytes == sizeof(Hello)) admit(std::move(greeting->fd), greeting->hello);
    greeting->fd.reset();
}

void Acceptor::listenOn(const std::shared_ptr<Greeting>& greeting) {
    greeting->watch =
        mNode.reactor.watch(greeting->fd.get(), EPOLLIN, [this, greeting](uint32_t) { greet(greeting); });
    mNode.reactor.after(kGreetingTime, [this, waiting = std::weak_ptr<Greeting>(greeting)] {
        const auto late = waiting.lock();
        if (late == nullptr || !late->fd.isOpen()) return;
        mNode.reactor.forget(late->watch, late->fd.get());
        late->fd.reset();
    });
}

void Acceptor::admit(RuntimeFd fd, const Hello& hello) {
    Credentials credentials;
    if (!readCredentials(fd.get(), &credentials)) return;
    if (!mNode.access.admits(fd.get(), credentials))
        return mRefusals.tell(credentials, "it is another user's");
    if (!isUsable(hello, mNode.id)) {
        return mRefusals.tell(credentials, "it does not speak this version of the protocol");
    }
    const std::shared_ptr<Peer> peer = mNode.peers.get(hello.sender);
    if (hello.kind == ConnectionKind::kLink) return peer->adoptLink(std::move(fd), credentials);
    auto connection = std::make_unique<Connection>(std::move(fd), hello.kind, peer, credentials);
    if (!mNode.workers.add(std::move(connection))) mRefusals.tell(credentials, "it has too many connections");
}

}  // namespace android::runtime
