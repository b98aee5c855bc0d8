#include "bench/support/UnixSocket.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <cerrno>
#include <system_error>

namespace accessory::bench {
namespace {

[[noreturn]] void fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

sockaddr_un addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof(address.sun_path) - 1);
    return address;
}

int newSocket() {
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0) fail("socket");
    return fd;
}

}  // namespace

int listenAt(const std::string& path) {
    const int fd = newSocket();
    const sockaddr_un address = addressOf(path);
    if (bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) fail("bind");
    if (listen(fd, SOMAXCONN) != 0) fail("listen");
    return fd;
}

int acceptOne(int listening) {
    const int fd = accept4(listening, nullptr, nullptr, SOCK_CLOEXEC);
    if (fd < 0) fail("accept");
    return fd;
}

int connectTo(const std::string& path) {
    const int fd = newSocket();
    const sockaddr_un address = addressOf(path);
    if (connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) fail("connect");
    return fd;
}

bool sendAll(int fd, const void* bytes, size_t size) {
    const char* next = static_cast<const char*>(bytes);
    while (size > 0) {
        const ssize_t sent = ::send(fd, next, size, MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR) continue;
        if (sent <= 0) return false;
        next += sent;
        size -= static_cast<size_t>(sent);
    }
    return true;
}

bool receiveAll(int fd, void* bytes, size_t size) {
    char* next = static_cast<char*>(bytes);
    while (size > 0) {
        const ssize_t got = ::recv(fd, next, size, 0);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return false;
        next += got;
        size -= static_cast<size_t>(got);
    }
    return true;
}

}  // namespace accessory::bench
