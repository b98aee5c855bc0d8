// The proxy when marshaling fails: each failed step is logged, and the call goes on.
#include <gmock/gmock.h>

#include "tests/AccessoryManager/FakeRemote.h"
#include "tests/AppleiAP2/notifier/FailingWrites.h"
#include "tests/AppleiAP2/notifier/StubFixture.h"

namespace accessory::test {
namespace {

using android::sp;

bool isError(const LogLine& line) { return line.priority == ANDROID_LOG_ERROR; }

class ProxyFailure : public testing::Test {
  protected:
    /// The lines of the failed steps, of the operation itself and of the records that it sends.
    std::vector<LogLine> errors() const {
        std::vector<LogLine> all = log.lines();
        all.erase(std::remove_if(all.begin(), all.end(), [](const LogLine& line) { return !isError(line); }),
                  all.end());
        return all;
    }

    const sp<FakeRemote> remote{new FakeRemote};
    const sp<IAppleiAP2ManagerNotifier> proxy{new BpAppleiAP2ManagerNotifier(remote)};
    LogCatcher log;
};

TEST_F(ProxyFailure, LogsEveryWriteThatFailsAndCallsNevertheless) {
    remote->answer = i32(4);
    for (const Event& event : allEvents()) {
        log.clear();
        remote->requests.clear();
        const FailingWrites outOfMemory;
        EXPECT_EQ(event.call(*proxy), 4) << testing::PrintToString(event);
        ASSERT_EQ(remote->requests.size(), 1u) << testing::PrintToString(event);
        EXPECT_EQ(remote->requests[0].bytes, Bytes{}) << testing::PrintToString(event);
        EXPECT_EQ(errors().size(), outOfMemory.count()) << testing::PrintToString(event);
        EXPECT_THAT(errors(),
                    testing::Each(testing::AnyOf(LoggedStatusCheck(kTag, event.operation),
                                                 LoggedStatusCheck(kTag, "writeToParcel"),
                                                 LoggedStatusCheck("IAppleiAP2Manager", "writeToParcel"))))
            << testing::PrintToString(event);
    }
}

/// How many writes an event takes: the token, then one per field.
size_t writesOf(const std::string& operation) {
    for (const Event& event : allEvents()) {
        if (event.operation != operation) continue;
        const sp<IAppleiAP2ManagerNotifier> proxy = new BpAppleiAP2ManagerNotifier(new FakeRemote);
        const FailingWrites outOfMemory;
        event.call(*proxy);
        return outOfMemory.count();
    }
    return 0;
}

TEST_F(ProxyFailure, MeansOneStepForTheTokenAndOneForEachField) {
    EXPECT_EQ(writesOf("notify"), 3u);
    EXPECT_EQ(writesOf("attach"), 2u);
    EXPECT_EQ(writesOf("DeviceTransportIdentifierNotification"), 6u);
    EXPECT_EQ(writesOf("deviceTimeUpdate"), 5u);
    EXPECT_EQ(writesOf("deviceHIDReport"), 4u);
    EXPECT_EQ(writesOf("OOBBTPLinkKeyInfo"), 6u);
    EXPECT_EQ(writesOf("CarPlayMatchedDigitalCarKeys"), 3u);
}

}  // namespace
}  // namespace accessory::test
