// The floor of anything on sockets: the bytes and what a frame adds to them to and fro on a bare Unix stream
// socket, each message read into memory that is always the same, with as few system calls as the kernel's
// buffers allow.
#include "bench/support/UnixSocket.h"

#include <sys/socket.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "bench/support/Contender.h"

namespace accessory::bench {
namespace {

// Around the payload, as the bundled runtime has it in AcceptCall: a frame's header, a request's header with
// the interface's name, three words and the string's end. An answer is a frame's header and a status.
constexpr size_t kFrameHeader = 40;
constexpr size_t kRequestHeader = 68;
constexpr size_t kRequestExtra = kFrameHeader + kRequestHeader + size_t{3} * 4 + 4;
constexpr size_t kReplyBytes = kFrameHeader + 4;
constexpr size_t kLargest = size_t{1024} * 1024;

std::string pathIn(const std::string& folder) { return folder + "/bare"; }

/// The length comes with the bytes, so a small request takes one system call.
size_t receiveRequest(int fd, std::vector<char>* bytes) {
    size_t done = 0;
    size_t expected = kRequestExtra + kSmallestPayload;
    while (done < expected) {
        const ssize_t got = recv(fd, bytes->data() + done, bytes->size() - done, 0);
        if (got <= 0) return 0;
        done += static_cast<size_t>(got);
        if (done >= expected) expected = kRequestExtra + claimedSize(bytes->data() + kRequestExtra);
    }
    return done;
}

void serve(const std::string& folder, const Ready& ready) {
    const int listening = listenAt(pathIn(folder));
    ready();
    const int fd = acceptOne(listening);
    std::vector<char> request(kLargest);
    std::vector<char> reply(kReplyBytes);
    while (const size_t size = receiveRequest(fd, &request)) {
        const uint32_t answer = answerTo(request.data() + kRequestExtra, size - kRequestExtra);
        std::copy_n(reinterpret_cast<const char*>(&answer), sizeof(answer), reply.begin());
        if (!sendAll(fd, reply.data(), reply.size())) return;
    }
}

class Ping : public Caller {
  public:
    explicit Ping(int fd) : mFd(fd) {}

    uint32_t call(const Payload& payload) override {
        send(payload);
        char reply[kReplyBytes];
        if (!receiveAll(mFd, reply, sizeof(reply))) throw std::runtime_error("the service is gone");
        uint32_t answer = 0;
        std::copy_n(reply, sizeof(answer), reinterpret_cast<char*>(&answer));
        return answer;
    }

  private:
    void send(const Payload& payload) {
        iovec parts[2] = {{mHeader.data(), mHeader.size()},
                          {const_cast<char*>(payload.data()), payload.size()}};
        msghdr message{};
        message.msg_iov = parts;
        message.msg_iovlen = 2;
        const ssize_t sent = sendmsg(mFd, &message, MSG_NOSIGNAL);
        if (sent != static_cast<ssize_t>(mHeader.size() + payload.size()))
            throw std::runtime_error("the service does not take the request");
    }

    const int mFd;
    std::vector<char> mHeader = std::vector<char>(kRequestExtra);
};

std::unique_ptr<Caller> connect(const std::string& folder) {
    return std::make_unique<Ping>(connectTo(pathIn(folder)));
}

const ContenderRegistration kUnixSocket({"Unix socket", 10, connect, serve});

}  // namespace
}  // namespace accessory::bench
