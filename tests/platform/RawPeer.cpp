#include "tests/platform/RawPeer.h"

#include <gtest/gtest.h>
#include <linux/sockios.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <utility>

#include "tests/platform/TestService.h"
#include "tests/support/Eventually.h"

namespace accessory::test {
namespace {

std::string runtimeFile(const std::string& name) {
    return std::string(std::getenv("BINDER_RUNTIME_DIR")) + "/" + name;
}

uint64_t hexadecimal(const std::string& digits) { return std::strtoull(digits.c_str(), nullptr, 16); }

RawId idFrom(const std::string& digits) {
    return {hexadecimal(digits.substr(0, 16)), hexadecimal(digits.substr(16, 16))};
}

sockaddr_un addressOf(const std::string& file) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    EXPECT_LT(file.size(), sizeof(address.sun_path));
    file.copy(address.sun_path, sizeof(address.sun_path) - 1);
    return address;
}

int newSocket() { return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0); }

int connectTo(const std::string& file) {
    const int fd = newSocket();
    const sockaddr_un address = addressOf(file);
    EXPECT_EQ(0, connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address))) << file;
    return fd;
}

int listenAt(const std::string& file, int door) {
    const int fd = newSocket();
    const sockaddr_un address = addressOf(file);
    EXPECT_EQ(0, bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address))) << file;
    EXPECT_EQ(0, listen(fd, door));
    return fd;
}

bool becomesReadable(int fd) {
    pollfd wanted{fd, POLLIN, 0};
    return poll(&wanted, 1, static_cast<int>(kPatience.count())) == 1;
}

/// 32 digits that name a process; nobody else uses the same.
std::string freshIdentity() {
    static int count = 0;
    std::array<char, 33> digits{};
    std::snprintf(digits.data(), digits.size(), "%016x%016x", getpid(), ++count);
    return digits.data();
}

/// Enters a service that is said to live behind a socket. @return the listening socket.
int enterService(const std::string& name, int door = 8) {
    const std::string owner = freshIdentity();
    std::ofstream(runtimeFile("service-" + name)) << owner << ' ' << std::string(31, '0') << "5\n";
    return listenAt(runtimeFile(owner), door);
}

}  // namespace

RawAddress RawAddress::of(const std::string& serviceName) {
    std::string owner;
    std::string token;
    std::ifstream(runtimeFile("service-" + serviceName)) >> owner >> token;
    EXPECT_EQ(32u, owner.size()) << serviceName;
    EXPECT_EQ(32u, token.size()) << serviceName;
    return {runtimeFile(owner), idFrom(owner), idFrom(token)};
}

RawPeer::RawPeer(const RawAddress& address) : mSocket(connectTo(address.socket)) {}

RawPeer::RawPeer(const RawAddress& address, const RawHello& hello) : RawPeer(address) {
    send(bytesOf(hello));
}

RawPeer::~RawPeer() { close(mSocket); }

void RawPeer::send(const std::string& bytes, const std::vector<int>& fds) {
    iovec part{const_cast<char*>(bytes.data()), bytes.size()};
    std::vector<char> control(CMSG_SPACE(fds.size() * sizeof(int)));
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    if (!fds.empty()) {
        message.msg_control = control.data();
        message.msg_controllen = control.size();
        cmsghdr* const header = CMSG_FIRSTHDR(&message);
        header->cmsg_level = SOL_SOCKET;
        header->cmsg_type = SCM_RIGHTS;
        header->cmsg_len = CMSG_LEN(fds.size() * sizeof(int));
        std::memcpy(CMSG_DATA(header), fds.data(), fds.size() * sizeof(int));
    }
    sendmsg(mSocket, &message, MSG_NOSIGNAL);
}

size_t RawPeer::offer(const std::string& bytes) {
    const ssize_t taken = ::send(mSocket, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    return taken > 0 ? static_cast<size_t>(taken) : 0;
}

bool RawPeer::isTakenIn() {
    return static_cast<bool>(eventually([this] {
        int waiting = 0;
        return ioctl(mSocket, SIOCOUTQ, &waiting) != 0 || waiting == 0;
    }));
}

bool RawPeer::isQuiet() {
    char byte = 0;
    return recv(mSocket, &byte, 1, MSG_PEEK | MSG_DONTWAIT) < 0 && errno == EAGAIN;
}

void RawPeer::shutDown(int how) { shutdown(mSocket, how); }

std::string RawPeer::receive(size_t count) {
    std::string bytes;
    while (bytes.size() < count && becomesReadable(mSocket)) {
        std::array<char, 256> piece{};
        const ssize_t got = recv(mSocket, piece.data(), std::min(piece.size(), count - bytes.size()), 0);
        if (got <= 0) break;
        bytes.append(piece.data(), static_cast<size_t>(got));
    }
    return bytes;
}

bool RawPeer::isHungUpOn() {
    char byte = 0;
    return becomesReadable(mSocket) && recv(mSocket, &byte, 1, 0) <= 0;
}

DeafService::DeafService(int door) : mName(uniqueServiceName()), mListener(enterService(mName, door)) {}

DeafService::~DeafService() { close(mListener); }

RawService::RawService(const std::string& answer)
    : RawService([answer](int calls) { ::send(calls, answer.data(), answer.size(), MSG_NOSIGNAL); }) {}

RawService::RawService(std::function<void(int calls)> behave)
    : mName(uniqueServiceName()),
      mBehave(std::move(behave)),
      mListener(enterService(mName)),
      mThread([this] { serve(); }) {}

RawService::~RawService() {
    shutdown(mListener, SHUT_RDWR);
    shutdown(mCalls, SHUT_RDWR);
    mThread.join();
    close(mCalls);
    close(mListener);
}

void RawService::serve() {
    const int link = accept4(mListener, nullptr, nullptr, SOCK_CLOEXEC);
    mCalls = accept4(mListener, nullptr, nullptr, SOCK_CLOEXEC);
    std::array<char, 256> ignored{};
    recv(mCalls, ignored.data(), sizeof(RawHello), MSG_WAITALL);
    recv(mCalls, ignored.data(), sizeof(RawHeader), MSG_WAITALL);
    mBehave(mCalls);
    while (recv(mCalls, ignored.data(), ignored.size(), 0) > 0) {
    }
    close(link);
}

}  // namespace accessory::test
