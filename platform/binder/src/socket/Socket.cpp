#include "Socket.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <utility>

#include "../OutOfMemory.h"
#include "Frame.h"
#include "Identity.h"

namespace android::runtime {

namespace {

constexpr int kBacklog = 4096;

RuntimeFd newSocket(int flags) {
    return RuntimeFd::made([flags] { return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0); });
}

const sockaddr* generic(const sockaddr_un& address) { return reinterpret_cast<const sockaddr*>(&address); }

/// How long a connection waits for room at a listener who takes none in.
constexpr timeval kPatience{5, 0};

std::string bytesLeft(const msghdr& message) {
    std::string bytes;
    for (size_t i = 0; i < message.msg_iovlen; ++i) {
        const iovec& part = message.msg_iov[i];
        bytes.append(static_cast<const char*>(part.iov_base), part.iov_len);
    }
    return bytes;
}

/// Whoever has no memory for a moment is asked again after another one.
void awaitMemory() {
    constexpr int kPauseMs = 1;
    poll(nullptr, 0, kPauseMs);
}

/// Drops the first @p count bytes and the parts that are empty then.
void advance(msghdr* message, size_t count) {
    while (message->msg_iovlen > 0 && (count > 0 || message->msg_iov->iov_len == 0)) {
        iovec& part = *message->msg_iov;
        const size_t taken = std::min(count, part.iov_len);
        part.iov_base = static_cast<uint8_t*>(part.iov_base) + taken;
        part.iov_len -= taken;
        count -= taken;
        if (part.iov_len > 0) return;
        ++message->msg_iov;
        --message->msg_iovlen;
    }
}

}  // namespace

bool isHangUp(int error) { return error == EPIPE || error == ECONNRESET; }

bool isPassing(int error) { return error == EAGAIN || error == EINTR || error == ENOMEM || error == ENOBUFS; }

bool awaitEvents(int fd, short events, int milliseconds) {
    using std::chrono::steady_clock;
    const auto deadline = steady_clock::now() + std::chrono::milliseconds(milliseconds);
    for (int left = milliseconds;;) {
        pollfd wanted{fd, events, 0};
        const int count = poll(&wanted, 1, left);
        if (count >= 0) return count > 0;
        if (milliseconds < 0) continue;
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(deadline - steady_clock::now());
        left = static_cast<int>(std::max<int64_t>(0, rest.count()));
    }
}

/// @param folder open as long as the address is used.
bool SocketFolder::address(const std::string& name, sockaddr_un* out, RuntimeFd* folder) const {
    *out = {};
    out->sun_family = AF_UNIX;
    std::string path = pathOf(name);
    // An address holds about a hundred characters; the way through the open folder is always short enough.
    if (path.size() >= sizeof(out->sun_path)) {
        *folder = RuntimeFd(open(mPath.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!folder->isOpen()) return false;
        path = "/proc/self/fd/" + std::to_string(folder->get()) + "/" + name;
    }
    if (path.size() >= sizeof(out->sun_path)) {
        errno = ENAMETOOLONG;
        return false;
    }
    std::memcpy(out->sun_path, path.c_str(), path.size() + 1);
    return true;
}

RuntimeFd SocketFolder::listen(const std::string& name, mode_t mode) const {
    sockaddr_un where{};
    RuntimeFd folder;
    if (!address("new-" + Secret::random().toString(), &where, &folder)) return {};
    RuntimeFd fd = newSocket(SOCK_NONBLOCK);
    if (!fd.isOpen() || bind(fd.get(), generic(where), sizeof(where)) != 0) return {};
    // Under its name only when somebody listens: until then it looks like that of a dead process. The name of
    // before is one that nobody guesses, or somebody else could have taken it.
    if (chmod(where.sun_path, mode) == 0 && ::listen(fd.get(), kBacklog) == 0 &&
        rename(where.sun_path, pathOf(name).c_str()) == 0) {
        return fd;
    }
    // The name is free again for the next attempt.
    const int error = errno;
    unlink(where.sun_path);
    errno = error;
    return {};
}

RuntimeFd SocketFolder::connect(const std::string& name, bool wait) const {
    sockaddr_un where{};
    RuntimeFd folder;
    if (!address(name, &where, &folder)) return {};
    RuntimeFd fd = newSocket(wait ? 0 : SOCK_NONBLOCK);
    if (!fd.isOpen()) return {};
    if (wait) setsockopt(fd.get(), SOL_SOCKET, SO_SNDTIMEO, &kPatience, sizeof(kPatience));
    while (::connect(fd.get(), generic(where), sizeof(where)) != 0) {
        if (errno != EINTR) return {};
    }
    if (!wait) fcntl(fd.get(), F_SETFL, 0);
    return fd;
}

bool SocketFolder::isAlive(const std::string& name) const {
    return connect(name, false).isOpen() || errno == EAGAIN;
}

bool readCredentials(int fd, Credentials* out) {
    ucred kernel{};
    socklen_t size = sizeof(kernel);
    if (getsockopt(fd, SOL_SOCKET, SO_PEERCRED, &kernel, &size) != 0) return false;
    *out = {kernel.pid, kernel.uid};
    return true;
}

ssize_t sendMessage(int fd, const msghdr* message, int flags) {
    if (message->msg_iovlen != 1 || message->msg_control != nullptr) {
        return syscall(SYS_sendmsg, fd, message, flags);
    }
    const iovec& part = *message->msg_iov;
    return syscall(SYS_sendto, fd, part.iov_base, part.iov_len, flags, nullptr, 0);
}

ssize_t receiveMessage(int fd, msghdr* message, int flags) {
    return syscall(SYS_recvmsg, fd, message, flags);
}

void awaitSocket(int fd, short events, bool lapsed, Patience* patience) {
    if (patience != nullptr) return patience->await(fd, events, lapsed);
    pollfd wanted{fd, events, 0};
    poll(&wanted, 1, -1);
}

Sent sendAll(int fd, iovec* parts, size_t partCount, const int* fds, size_t fdCount, std::string* rest,
             Patience* patience) {
    alignas(cmsghdr) uint8_t control[CMSG_SPACE(kMaxDescriptors * sizeof(int))];
    msghdr message{};
    message.msg_iov = parts;
    message.msg_iovlen = partCount;
    if (fdCount > 0) {
        message.msg_control = control;
        message.msg_controllen = CMSG_SPACE(fdCount * sizeof(int));
        std::memset(control, 0, message.msg_controllen);
        cmsghdr* const header = CMSG_FIRSTHDR(&message);
        header->cmsg_level = SOL_SOCKET;
        header->cmsg_type = SCM_RIGHTS;
        header->cmsg_len = CMSG_LEN(fdCount * sizeof(int));
        std::memcpy(CMSG_DATA(header), fds, fdCount * sizeof(int));
    }
    bool begun = false;
    while (message.msg_iovlen > 0) {
        const ssize_t sent = sendMessage(fd, &message, MSG_NOSIGNAL | (rest != nullptr ? MSG_DONTWAIT : 0));
        if (sent >= 0) {
            advance(&message, static_cast<size_t>(sent));
            message.msg_controllen = 0;
            message.msg_control = nullptr;
            begun = true;
        } else if (errno == EAGAIN && rest == nullptr) {
            awaitSocket(fd, POLLOUT, true, patience);
        } else if (begun && rest != nullptr && isPassing(errno)) {
            *rest = patiently([&] { return bytesLeft(message); });
            return Sent::kBegun;
        } else if (begun && isPassing(errno)) {
            awaitMemory();
        } else if (errno != EINTR) {
            return begun || isHangUp(errno) ? Sent::kGone : Sent::kNothing;
        }
    }
    return Sent::kAll;
}

}  // namespace android::runtime
