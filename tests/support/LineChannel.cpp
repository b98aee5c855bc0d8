#include "tests/support/LineChannel.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace accessory::test {
namespace {

constexpr int kForever = -1;

timeval asTimeval(std::chrono::milliseconds span) {
    timeval value{};
    value.tv_sec = std::chrono::duration_cast<std::chrono::seconds>(span).count();
    value.tv_usec = std::chrono::microseconds(span % std::chrono::seconds(1)).count();
    return value;
}

/// Result of a system call that is repeated for as long as signals interrupt it.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

int remaining(std::chrono::steady_clock::time_point deadline) {
    const auto left = deadline - std::chrono::steady_clock::now();
    return static_cast<int>(std::max<long>(0, std::chrono::ceil<std::chrono::milliseconds>(left).count()));
}

}  // namespace

LineChannel::LineChannel(int descriptor) : mDescriptor(descriptor), mEnded(descriptor < 0) {
    const timeval limit = asTimeval(kPatience);
    setsockopt(mDescriptor, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof(limit));
}

LineChannel::~LineChannel() { close(); }

std::pair<int, int> LineChannel::connectedPair() {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        throw std::system_error(errno, std::generic_category(), "socketpair");
    }
    return {ends[0], ends[1]};
}

bool LineChannel::send(const std::string& line) {
    const std::string text = line + "\n";
    size_t sent = 0;
    while (sent < text.size()) {
        const ssize_t count = uninterrupted(
            [&] { return ::send(mDescriptor, text.data() + sent, text.size() - sent, MSG_NOSIGNAL); });
        if (count < 0) return false;
        sent += static_cast<size_t>(count);
    }
    return true;
}

std::optional<std::string> LineChannel::receive(std::chrono::milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    auto line = takeLine();
    while (!line && readMore(remaining(deadline)))
        line = takeLine();
    return line;
}

void LineChannel::drain() {
    while (readMore(kForever))
        mPending.clear();
}

void LineChannel::close() {
    if (mDescriptor >= 0) ::close(mDescriptor);
    mDescriptor = -1;
}

std::optional<std::string> LineChannel::takeLine() {
    const size_t end = mPending.find('\n');
    if (end == std::string::npos) return std::nullopt;
    std::string line = mPending.substr(0, end);
    mPending.erase(0, end + 1);
    return line;
}

bool LineChannel::readMore(int waitMilliseconds) {
    if (mEnded) return false;
    pollfd socket{mDescriptor, POLLIN, 0};
    if (uninterrupted([&] { return poll(&socket, 1, waitMilliseconds); }) <= 0) return false;
    std::array<char, 4096> bytes{};
    const ssize_t count = uninterrupted([&] { return recv(mDescriptor, bytes.data(), bytes.size(), 0); });
    mEnded = count <= 0;
    if (!mEnded) mPending.append(bytes.data(), static_cast<size_t>(count));
    return !mEnded;
}

}  // namespace accessory::test
