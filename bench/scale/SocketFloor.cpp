#include "bench/scale/SocketFloor.h"

#include <cstring>
#include <stdexcept>
#include <thread>

#include "bench/support/UnixSocket.h"

namespace accessory::bench {
namespace {

/// What a call of 16 bytes takes on the socket, and its answer.
constexpr size_t kRequestBytes = 140;
constexpr size_t kReplyBytes = 44;

std::string pathIn(const std::string& folder) { return folder + "/floor"; }

void serveConnection(int fd) {
    char request[kRequestBytes];
    char reply[kReplyBytes] = {};
    while (receiveAll(fd, request, sizeof(request))) {
        const uint32_t answer = answerTo(request, kSmallestPayload);
        std::memcpy(reply, &answer, sizeof(answer));
        if (!sendAll(fd, reply, sizeof(reply))) return;
    }
}

/// Arguments: the folder.
void playService(Channel& conductor, const Arguments& arguments) {
    const int listening = listenAt(pathIn(arguments.at(0)));
    conductor.send({});
    for (;;)
        std::thread(serveConnection, acceptOne(listening)).detach();
}

const RoleRegistration kService("floor service", playService);

}  // namespace

std::unique_ptr<Child> startFloorService(const std::string& folder) {
    auto service = std::make_unique<Child>("floor service", Arguments{folder});
    service->answer();
    return service;
}

FloorConnection::FloorConnection(const std::string& folder) : mFd(connectTo(pathIn(folder))) {}

uint32_t FloorConnection::call(const Payload& payload) const {
    char request[kRequestBytes] = {};
    char reply[kReplyBytes];
    std::memcpy(request, payload.data(), payload.size());
    if (!sendAll(mFd, request, sizeof(request)) || !receiveAll(mFd, reply, sizeof(reply)))
        throw std::runtime_error("the floor's service is gone");
    uint32_t answer = 0;
    std::memcpy(&answer, reply, sizeof(answer));
    return answer;
}

}  // namespace accessory::bench
