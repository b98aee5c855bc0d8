// The manager's proxy: the bytes of each request, and what it makes of a failed call.
#include <binder/Parcel.h>

#include "tests/AppleiAP2/manager/ManagerFixtures.h"
#include "tests/AppleiAP2/notifier/FailingWrites.h"

namespace accessory::test {
namespace {

using android::sp;

using ManagerProxy = ManagerProxyFixture;

TEST_F(ManagerProxy, BeginsARequestWithTheInterfacesName) {
    Bytes byHand = {0x00, 0x00, 0x00, 0x80,   // strict-mode policy: gather penalties
                    0xff, 0xff, 0xff, 0xff,   // no work source
                    0x1a, 0x00, 0x00, 0x00};  // 26 units
    for (const char c : std::string("accessory.AppleiAP2Manager")) {
        byHand.push_back(static_cast<uint8_t>(c));
        byHand.push_back(0);
    }
    byHand.insert(byHand.end(), {0, 0, 0, 0});  // its NUL, filled up
    byHand.insert(byHand.end(), {7, 0, 0, 0});
    proxy->start(7);
    ASSERT_EQ(remote->requests.size(), 1u);
    EXPECT_EQ(remote->requests[0].code, 83u);
    EXPECT_EQ(remote->requests[0].bytes, byHand);
}

TEST_F(ManagerProxy, SendsEveryRequestInItsBytesAndLogsNothing) {
    for (const Example& example : allExamples()) {
        remote->requests.clear();
        remote->answer = replied(0);
        log.clear();
        example.call(*proxy);
        ASSERT_EQ(remote->requests.size(), 1u) << testing::PrintToString(example);
        EXPECT_EQ(remote->requests[0].code, example.code) << testing::PrintToString(example);
        EXPECT_EQ(remote->requests[0].flags, 0u) << testing::PrintToString(example);
        EXPECT_TRUE(remote->requests[0].wantsReply) << testing::PrintToString(example);
        EXPECT_EQ(remote->requests[0].bytes, managerRequest(example.arguments))
            << testing::PrintToString(example);
        EXPECT_THAT(log.lines(), testing::IsEmpty()) << testing::PrintToString(example);
    }
}

TEST_F(ManagerProxy, ReturnsTheWordBehindTheHeader) {
    for (const int32_t word : {0, 1, -1, -22, INT32_MIN, INT32_MAX}) {
        for (const Example& example : allExamples()) {
            remote->answer = example.replyWith(word);
            EXPECT_EQ(example.call(*proxy), example.hasStatus ? word : 0) << testing::PrintToString(example);
        }
    }
}

TEST_F(ManagerProxy, SendsNoStringWhenAnApplicationsIdentifierIsNull) {
    remote->answer = replied(0);
    EXPECT_EQ(proxy->RequestAppDiscoveryAppIcons(7, nullptr), 0);
    ASSERT_EQ(remote->requests.size(), 1u);
    EXPECT_EQ(remote->requests[0].bytes, managerRequest(i32(7)));
}

ExpectedLines twoFailedSteps(const Example& example) {
    return {failedStep(example.operation), failedStep(example.operation)};
}

TEST_F(ManagerProxy, GivesZeroOrNullFromADeadServiceAndLogsTheCallAndTheHeader) {
    remote->status = android::DEAD_OBJECT;
    for (const Example& example : allExamples()) {
        log.clear();
        EXPECT_EQ(example.call(*proxy), 0) << testing::PrintToString(example);
        EXPECT_THAT(log.lines(), areLines(twoFailedSteps(example))) << testing::PrintToString(example);
    }
    EXPECT_EQ(proxy->getSupportFeature(7, "f"), nullptr);
    EXPECT_EQ(proxy->getVersion(), nullptr);
    EXPECT_EQ(proxy->clearNotifier(), 0);
    EXPECT_EQ(proxy->setNotifier(nullptr), 0);
}

TEST_F(ManagerProxy, GivesWhatTheReplyYieldsWhenTheTransactionFailed) {
    remote->status = android::FAILED_TRANSACTION;
    for (const Example& example : allExamples()) {
        log.clear();
        remote->answer = example.replyWith(5);
        EXPECT_EQ(example.call(*proxy), example.hasStatus ? 5 : 0) << testing::PrintToString(example);
        EXPECT_THAT(log.lines(), testing::Contains(LoggedStatusCheck(kTag, example.operation)))
            << testing::PrintToString(example);
    }
}

TEST_F(ManagerProxy, GivesZeroForABrokenReply) {
    for (const Bytes& broken : {Bytes{}, Bytes{1, 2, 3}, i32(0)}) {
        remote->answer = broken;
        for (const Example& example : allExamples())
            EXPECT_EQ(example.call(*proxy), 0) << testing::PrintToString(example);
    }
}

TEST_F(ManagerProxy, LogsAHeaderThatIsNotZeroOnce) {
    remote->answer = i32(-1);
    for (const Example& example : allExamples()) {
        log.clear();
        EXPECT_EQ(example.call(*proxy), 0) << testing::PrintToString(example);
        EXPECT_THAT(log.lines(), areLines({failedStep(example.operation)}))
            << testing::PrintToString(example);
    }
}

TEST_F(ManagerProxy, LogsEveryWriteThatFailsAndCallsNevertheless) {
    for (const Example& example : allExamples()) {
        log.clear();
        remote->requests.clear();
        remote->answer = replied(4);
        const FailingWrites outOfMemory;
        example.call(*proxy);
        ASSERT_EQ(remote->requests.size(), 1u) << testing::PrintToString(example);
        EXPECT_EQ(remote->requests[0].bytes, Bytes{}) << testing::PrintToString(example);
        EXPECT_THAT(log.lines(), areLines(ExpectedLines(outOfMemory.count(), failedStep(example.operation))))
            << testing::PrintToString(example);
        EXPECT_GE(outOfMemory.count(), 1u);
    }
}

/// A remote that looks at the object in a registration.
class Registrar : public FakeRemote {
  public:
    android::status_t transact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                               uint32_t flags) override {
        data.setDataPosition(managerRequest({}).size());
        object = data.readStrongBinder();
        left = data.dataAvail();
        return FakeRemote::transact(code, data, reply, flags);
    }

    sp<android::IBinder> object;
    size_t left = 1;
};

TEST(ManagerProxyRegistration, SendsTheNotifiersBinderAlone) {
    const sp<Registrar> registrar = new Registrar;
    const sp<IAppleiAP2Manager> manager = new BpAppleiAP2Manager(registrar);
    const sp<FakeRemote> client = new FakeRemote;
    const sp<IAppleiAP2ManagerNotifier> notifier = IAppleiAP2ManagerNotifier::asInterface(client);
    registrar->answer = replied(-17);
    EXPECT_EQ(manager->setNotifier(notifier), -17);
    ASSERT_EQ(registrar->requests.size(), 1u);
    EXPECT_EQ(registrar->requests[0].code, 1u);
    EXPECT_EQ(registrar->requests[0].flags, 0u);
    EXPECT_EQ(registrar->requests[0].bytes.size(), managerRequest({}).size() + 24);
    EXPECT_EQ(registrar->object, client);
    EXPECT_EQ(registrar->left, 0u);
}

TEST_F(ManagerProxy, SendsNothingMoreToDeregister) {
    remote->answer = replied(-18);
    EXPECT_EQ(proxy->clearNotifier(), -18);
    ASSERT_EQ(remote->requests.size(), 1u);
    EXPECT_EQ(remote->requests[0].code, 2u);
    EXPECT_EQ(remote->requests[0].bytes, managerRequest({}));
}

}  // namespace
}  // namespace accessory::test
