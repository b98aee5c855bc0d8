// A process that comes and goes as fast as it can: CHILD_ROLE(knocker) speaks the runtime's sockets by hand,
// so that each visit is a new process to the service.
//
// Arguments: the service's name and the seconds. It answers with the visits that were served, and those that
// were not.
#include <binder/IBinder.h>
#include <unistd.h>

#include <chrono>
#include <cstring>

#include "tests/platform/RawPeer.h"
#include "tests/support/ChildRole.h"

namespace accessory::load {
namespace {

using namespace accessory::test;  // NOLINT(google-build-using-namespace): the tests' vocabulary

std::string ping(const RawAddress& address) {
    RawHeader header;
    header.code = android::IBinder::PING_TRANSACTION;
    header.target = address.token;
    return bytesOf(header);
}

bool isGoodReply(const std::string& frame) {
    RawHeader header;
    if (frame.size() != sizeof(header)) return false;
    std::memcpy(&header, frame.data(), sizeof(header));
    return header.kind == 3 && header.code == 0;
}

/// A whole life: a link, a reference over it, a call on a connection of its own; then both are hung up on.
bool visit(const RawAddress& address, uint64_t number) {
    RawHello hello;
    hello.sender = {static_cast<uint64_t>(getpid()), number};
    hello.kind = 1;
    RawPeer link(address, hello);
    RawLinkMessage acquire;
    acquire.count = 1;
    acquire.token = address.token;
    link.send(bytesOf(acquire));
    hello.kind = 2;
    RawPeer calls(address, hello);
    calls.send(ping(address));
    return isGoodReply(calls.receive(sizeof(RawHeader)));
}

CHILD_ROLE(knocker) {
    const RawAddress address = RawAddress::of(args.at(0));
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(std::stoi(args.at(1)));
    uint64_t served = 0;
    uint64_t refused = 0;
    while (std::chrono::steady_clock::now() < end)
        ++(visit(address, served + refused + 1) ? served : refused);
    parent.send(std::to_string(served));
    parent.send(std::to_string(refused));
    return 0;
}

}  // namespace
}  // namespace accessory::load
