#include "fuzz/frames/Stream.h"

#include <fcntl.h>
#include <sys/socket.h>

#include <cstdlib>
#include <memory>

#include "socket/Node.h"

namespace android::runtime::fuzz {

namespace {

int plainDescriptor() {
    static const int fd = open("/dev/null", O_RDONLY | O_CLOEXEC);
    return fd;
}

int blockDescriptor() {
    static const SharedBlock& block = *SharedBlock::create().release();
    return block.fd();
}

/// The process that all frames come from; nobody listens where it would be.
std::shared_ptr<Peer> sender() {
    static const auto& peer =
        *new std::shared_ptr<Peer>(Node::instance().peers.get(PeerId(Secret::random())));
    return peer;
}

}  // namespace

Stream::Stream(ConnectionKind kind) {
    int ends[2] = {-1, -1};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) std::abort();
    mSender = RuntimeFd(ends[0]);
    mConnection = std::make_unique<Connection>(RuntimeFd(ends[1]), kind, sender(), Credentials());
}

void Stream::send(const uint8_t* bytes, size_t count, const std::vector<int>& fds) {
    iovec part{const_cast<uint8_t*>(bytes), count};
    sendAll(mSender.get(), &part, 1, fds.data(), fds.size());
}

std::vector<int> descriptorsOf(const Input& input) {
    std::vector<int> fds(input.descriptors(), plainDescriptor());
    if (input.sharesBlock() && !fds.empty()) fds.back() = blockDescriptor();
    return fds;
}

}  // namespace android::runtime::fuzz
