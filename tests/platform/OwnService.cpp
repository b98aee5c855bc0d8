#include "tests/platform/OwnService.h"

#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <algorithm>

#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

/// Publishes the service once for all tests.
const RawAddress& published() {
    static const auto* const address = [] {
        const std::string name = uniqueServiceName();
        const sp<IBinder> echo =
            new FunctionObject([](uint32_t, const Parcel& data, Parcel* reply, uint32_t) {
                return reply->appendFrom(&data, 0, data.dataSize());
            });
        EXPECT_EQ(NO_ERROR, defaultServiceManager()->addService(String16(name.c_str()), echo));
        ProcessState::self()->startThreadPool();
        return new RawAddress(RawAddress::of(name));
    }();
    return *address;
}

}  // namespace

OwnService::OwnService() : mAddress(published()), mDescriptors(openDescriptorsWhileServing()) {}

int OwnService::openDescriptorsWhileServing() const {
    EXPECT_TRUE(serves());
    return openDescriptors();
}

OwnService::~OwnService() {
    EXPECT_TRUE(serves());
#ifndef SANITIZER_USES_DESCRIPTORS
    EXPECT_TRUE(eventually([this] { return openDescriptors() <= mDescriptors; }));
#endif
}

RawHeader OwnService::callHeader(uint32_t dataSize) const {
    RawHeader header;
    header.target = mAddress.token;
    header.dataSize = dataSize;
    return header;
}

bool OwnService::isAnswered(RawPeer& peer) {
    RawHeader reply;
    reply.kind = 3;
    reply.code = 0;
    reply.dataSize = 4;
    return peer.receive(44) == bytesOf(reply) + "abcd";
}

bool OwnService::serves() const {
    RawPeer peer(mAddress, RawHello());
    peer.send(soundCall());
    return isAnswered(peer);
}

bool OwnService::hasRefused(const std::string& why) const {
    const std::vector<LogLine> lines = log.linesWith("Binder");
    return std::any_of(lines.begin(), lines.end(), [&](const LogLine& line) {
        return line.text.find("is refused: " + why) != std::string::npos;
    });
}

}  // namespace accessory::test
