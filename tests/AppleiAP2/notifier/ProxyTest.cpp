// The proxy: the bytes of each request, what it logs, and what it makes of each kind of reply.
#include <gmock/gmock.h>

#include "tests/AccessoryManager/FakeRemote.h"
#include "tests/AppleiAP2/notifier/StubFixture.h"

namespace accessory::test {
namespace {

using android::sp;

class NotifierProxy : public testing::Test {
  protected:
    NotifierProxy() { log.clear(); }

    const sp<FakeRemote> remote{new FakeRemote};
    const sp<IAppleiAP2ManagerNotifier> proxy{new BpAppleiAP2ManagerNotifier(remote)};
    LogCatcher log;
};

TEST_F(NotifierProxy, BeginsARequestWithTheInterfacesName) {
    Bytes byHand = {0x00, 0x00, 0x00, 0x80,   // strict-mode policy: gather penalties
                    0xff, 0xff, 0xff, 0xff,   // no work source
                    0x22, 0x00, 0x00, 0x00};  // 34 units
    for (const char c : std::string("accessory.AppleiAP2ManagerNotifier")) {
        byHand.push_back(static_cast<uint8_t>(c));
        byHand.push_back(0);
    }
    byHand.insert(byHand.end(), {0, 0, 0, 0});  // its NUL, filled up
    byHand.insert(byHand.end(), {7, 0, 0, 0});
    proxy->startOOBBTP(7);
    ASSERT_EQ(remote->requests.size(), 1u);
    EXPECT_EQ(remote->requests[0].bytes, byHand);
}

TEST_F(NotifierProxy, SendsEveryEventInItsBytes) {
    for (const Event& event : allEvents()) {
        remote->requests.clear();
        event.call(*proxy);
        ASSERT_EQ(remote->requests.size(), 1u) << testing::PrintToString(event);
        EXPECT_EQ(remote->requests[0].code, event.code) << testing::PrintToString(event);
        EXPECT_EQ(remote->requests[0].flags, 0u) << testing::PrintToString(event);
        EXPECT_TRUE(remote->requests[0].wantsReply) << testing::PrintToString(event);
        EXPECT_EQ(remote->requests[0].bytes, request(event.arguments)) << testing::PrintToString(event);
    }
}

TEST_F(NotifierProxy, LogsEveryEventAsItsOperationDoes) {
    for (const Event& event : allEvents()) {
        log.clear();
        remote->answer = i32(0);
        event.call(*proxy);
        EXPECT_THAT(log.lines(), areLines(event.proxyLines)) << testing::PrintToString(event);
    }
}

TEST_F(NotifierProxy, ReturnsTheWordOfTheReply) {
    for (const int32_t word : {0, 1, -1, -22, INT32_MIN, INT32_MAX}) {
        remote->answer = i32(word);
        for (const Event& event : allEvents())
            EXPECT_EQ(event.call(*proxy), word) << testing::PrintToString(event);
    }
}

TEST_F(NotifierProxy, TakesTheFirstWordForTheResultBecauseThereIsNoHeader) {
    remote->answer = parcel({i32(-129), i32(5)});
    for (const Event& event : allEvents())
        EXPECT_EQ(event.call(*proxy), -129) << testing::PrintToString(event);
}

TEST_F(NotifierProxy, GivesZeroForAnEmptyOrBrokenReply) {
    for (const Bytes& broken : {Bytes{}, Bytes{1, 2, 3}}) {
        remote->answer = broken;
        for (const Event& event : allEvents())
            EXPECT_EQ(event.call(*proxy), 0) << testing::PrintToString(event);
    }
}

TEST_F(NotifierProxy, LogsAFailedTransactionBeforeItReadsTheReply) {
    remote->status = android::DEAD_OBJECT;
    for (const Event& event : allEvents()) {
        log.clear();
        EXPECT_EQ(event.call(*proxy), 0) << testing::PrintToString(event);
        std::vector<LogLine> errors;
        for (const LogLine& line : log.lines())
            if (line.priority != ANDROID_LOG_DEBUG) errors.push_back(line);
        EXPECT_THAT(errors, areLines({failedStep(event.operation)})) << testing::PrintToString(event);
    }
}

TEST_F(NotifierProxy, GivesWhatTheReplyYieldsWhenTheTransactionFailed) {
    remote->status = android::FAILED_TRANSACTION;
    remote->answer = i32(5);
    for (const Event& event : allEvents())
        EXPECT_EQ(event.call(*proxy), 5) << testing::PrintToString(event);
}

TEST_F(NotifierProxy, LogsTheFailureOfItsTransactionBetweenItsOwnLines) {
    remote->status = android::DEAD_OBJECT;
    proxy->notify(7, 1);
    EXPECT_THAT(log.lines(), areLines({debug("BpAppleiAP2ManagerNotifier notify enter"),
                                       debug("BpAppleiAP2ManagerNotifier notify #"), failedStep("notify"),
                                       debug("BpAppleiAP2ManagerNotifier notify #")}));
}

/// Keeps what was logged when the request arrived.
class LogKeeper : public FakeRemote {
  public:
    explicit LogKeeper(const LogCatcher& log) : mLog(log) {}

    android::status_t transact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                               uint32_t flags) override {
        before = mLog.lines();
        return FakeRemote::transact(code, data, reply, flags);
    }

    std::vector<LogLine> before;

  private:
    const LogCatcher& mLog;
};

TEST_F(NotifierProxy, LogsNotifyJustBeforeAndJustAfterTheTransaction) {
    const sp<LogKeeper> keeper = new LogKeeper(log);
    const sp<IAppleiAP2ManagerNotifier> other = new BpAppleiAP2ManagerNotifier(keeper);
    log.clear();
    other->notify(7, 1);
    EXPECT_THAT(keeper->before, areLines({debug("BpAppleiAP2ManagerNotifier notify enter"),
                                          debug("BpAppleiAP2ManagerNotifier notify #")}));
    EXPECT_EQ(log.lines().size(), 3u);
}

TEST_F(NotifierProxy, LogsTheWayOutAfterTheTransactionAndTheTraceAroundIt) {
    const sp<LogKeeper> keeper = new LogKeeper(log);
    const sp<IAppleiAP2ManagerNotifier> other = new BpAppleiAP2ManagerNotifier(keeper);
    log.clear();
    other->AppDiscoveryUpdate(7, 0, nullptr, 0, 0, nullptr, 0);
    EXPECT_THAT(keeper->before, testing::IsEmpty());
    std::vector<std::string> keys;
    log.clear();
    other->CarPlayMatchedDigitalCarKeys(7, keys);
    EXPECT_THAT(keeper->before,
                areLines({debug("[AppleiAP2/IAppleiAP2ManagerNotifier.cpp][CarPlayMatchedDigitalCarKeys] "
                                "[--IN--]")}));
}

TEST_F(NotifierProxy, RefusesADestinationThatIsNotThere) {
    remote->answer = i32(5);
    EXPECT_EQ(proxy->DestinationInformation(7, nullptr), -1);
    EXPECT_THAT(remote->requests, testing::IsEmpty());
    EXPECT_THAT(log.lines(), testing::ElementsAre(LoggedCheck(kTag, "DestinationInformation", "info")));
}

}  // namespace
}  // namespace accessory::test
