// What a caller makes of a service that breaks the framing: the call fails, and that is all.
#include <binder/IServiceManager.h>
#include <gtest/gtest.h>

#include "tests/platform/RawPeer.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

/// The status of a first call that is answered with @p answer.
status_t callAnsweredWith(const std::string& answer) {
    const RawService service(answer);
    const sp<IBinder> object = defaultServiceManager()->checkService(String16(service.name().c_str()));
    if (object == nullptr) return NAME_NOT_FOUND;
    Call call(object, kEcho);
    const status_t status = call.run();
    EXPECT_EQ(0u, call.reply.dataSize());
    return status;
}

RawHeader replyHeader() {
    RawHeader header;
    header.kind = 3;
    header.code = 0;
    return header;
}

TEST(MalformedReply, IsNotASoundOne) {
    EXPECT_EQ(NO_ERROR, callAnsweredWith(bytesOf(replyHeader())));
    RawHeader refusal = replyHeader();
    refusal.code = static_cast<uint32_t>(BAD_VALUE);
    EXPECT_EQ(BAD_VALUE, callAnsweredWith(bytesOf(refusal)));
    refusal.dataSize = 4;
    EXPECT_EQ(BAD_VALUE, callAnsweredWith(bytesOf(refusal) + "abcd"));
}

TEST(MalformedReply, CostsTheCallAndTheConnectionOnly) {
    RawHeader protocol = replyHeader();
    protocol.protocol = 0;
    RawHeader kind = replyHeader();
    kind.kind = 2;
    RawHeader size = replyHeader();
    size.dataSize = 1040385;
    RawHeader objects = replyHeader();
    objects.objectCount = 1;
    RawHeader descriptors = replyHeader();
    descriptors.descriptorCount = 1;
    for (const RawHeader& header : {protocol, kind, size, objects, descriptors})
        EXPECT_EQ(DEAD_OBJECT, callAnsweredWith(bytesOf(header)));
    EXPECT_EQ(DEAD_OBJECT, callAnsweredWith(bytesOf(replyHeader()) + "x"));
}

}  // namespace
}  // namespace accessory::test
