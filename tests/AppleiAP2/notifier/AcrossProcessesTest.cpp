// The notifier between two real processes: every event, refusals, and clients that die.
#include <binder/Parcel.h>
#include <gmock/gmock.h>

#include <thread>

#include "tests/AppleiAP2/notifier/StubFixture.h"
#include "tests/AppleiAP2/notifier/TestClient.h"

namespace accessory::test {
namespace {

using android::sp;

class NotifierAcrossProcesses : public testing::Test {
  protected:
    RunningClient client;
    const sp<IAppleiAP2ManagerNotifier> notifier = client.notifier();
    LogCatcher log;

    Answer askClient(uint32_t code, const Bytes& bytes, uint32_t flags = 0) {
        android::Parcel data;
        android::Parcel reply;
        fill(&data, bytes);
        const android::status_t status = client.binder()->transact(code, data, &reply, flags);
        return {status, bytesOf(reply)};
    }
};

TEST_F(NotifierAcrossProcesses, TellsTheClientEveryEventAndBringsBackItsAnswer) {
    for (const Event& event : allEvents()) {
        EXPECT_EQ(event.call(*notifier), RunningClient::kAnswer) << testing::PrintToString(event);
        EXPECT_EQ(client.told(), event.told + "|");
    }
}

TEST_F(NotifierAcrossProcesses, LogsOnBothSides) {
    for (const Event& event : allEvents()) {
        log.clear();
        event.call(*notifier);
        EXPECT_THAT(log.linesWith(kTag), areLines(event.proxyLines)) << testing::PrintToString(event);
        std::string lines;
        for (const ExpectedLine& line : event.stubLines)
            lines += std::to_string(line.priority) + ' ' + line.pattern + '|';
        EXPECT_EQ(client.log(), lines) << testing::PrintToString(event);
    }
}

TEST_F(NotifierAcrossProcesses, CarriesTheResultAlone) {
    EXPECT_EQ(askClient(2, request(i32(7))), answered(RunningClient::kAnswer));
}

TEST_F(NotifierAcrossProcesses, RefusesUnknownCodesWrongTokensAndBrokenRecords) {
    EXPECT_EQ(askClient(28, request(i32(7))), refused(android::UNKNOWN_TRANSACTION));
    EXPECT_EQ(askClient(47, request(i32(7))), refused(android::UNKNOWN_TRANSACTION));
    EXPECT_EQ(askClient(1, parcel({token(u"accessory.AppleiAP2Manager"), i32(7)})), refused(-1));
    EXPECT_EQ(askClient(35, request(parcel({i32(7), i32(4), i32(0x7fffffff)}))), refused(-22));
    EXPECT_EQ(client.told(), "");
}

TEST_F(NotifierAcrossProcesses, GivesZeroWithoutAComplaintWhenTheClientHadNoMemory) {
    EXPECT_EQ(askClient(37, request(parcel({i32(7), cstr("a"), i32(0), i32(0), i32(0x7fffffff)}))),
              refused(0));
    EXPECT_EQ(client.told(), "");
    EXPECT_EQ(client.log(), "6 malloc failed for appIconId!|");
}

TEST_F(NotifierAcrossProcesses, SurvivesARequestThatWaitsForNoReply) {
    EXPECT_EQ(askClient(3, request(i32(7)), android::IBinder::FLAG_ONEWAY), (Answer{0, {}}));
    EXPECT_TRUE(eventually([this] { return client.told() == "detach(7)|"; }));
    EXPECT_EQ(notifier->attach(8), RunningClient::kAnswer);
}

TEST_F(NotifierAcrossProcesses, CarriesAReportOfALongFile) {
    Bytes file(900'000, 0x01);
    FileTransferSetup setup;
    setup.buffer = file.data();
    setup.bufferLength = static_cast<uint32_t>(file.size());
    EXPECT_EQ(notifier->fileTransferSetup(7, &setup), RunningClient::kAnswer);
    EXPECT_EQ(client.told(), "fileTransferSetup(7, {0 0 0 0 0 [900000 bytes, sum 900000] 900000 0})|");
}

TEST_F(NotifierAcrossProcesses, GivesZeroForAnEventThatIsTooLongToSend) {
    char icon[1] = {};
    Bytes file(2 << 20, 0x01);
    EXPECT_EQ(notifier->AppDiscoveryAppIcon(7, "a", false, 0, reinterpret_cast<char*>(file.data()), 2 << 20),
              0);
    EXPECT_THAT(log.linesWith(kTag),
                areLines({failedStep("AppDiscoveryAppIcon"), debug("AppDiscoveryAppIcon out")}));
    EXPECT_EQ(notifier->AppDiscoveryAppIcon(7, "a", false, 0, icon, 1), RunningClient::kAnswer);
}

TEST_F(NotifierAcrossProcesses, GivesZeroFromEveryOperationWhenTheClientIsGone) {
    client.kill();
    for (const Event& event : allEvents()) {
        log.clear();
        EXPECT_EQ(event.call(*notifier), 0) << testing::PrintToString(event);
        std::vector<LogLine> errors;
        for (const LogLine& line : log.linesWith(kTag))
            if (line.priority != ANDROID_LOG_DEBUG) errors.push_back(line);
        EXPECT_THAT(errors, areLines({failedStep(event.operation)})) << testing::PrintToString(event);
    }
}

TEST_F(NotifierAcrossProcesses, GivesZeroWhenTheClientDiesInTheMiddleOfACall) {
    EXPECT_EQ(notifier->attach(7), RunningClient::kAnswer);
    log.clear();
    std::thread killer([this] {
        EXPECT_EQ(client.process.expectLine(), "waiting");
        client.process.kill(SIGKILL);
    });
    EXPECT_EQ(notifier->notify(7, RunningClient::kWaitForever), 0);
    killer.join();
    EXPECT_THAT(log.linesWith(kTag),
                areLines({debug("BpAppleiAP2ManagerNotifier notify enter"),
                          debug("BpAppleiAP2ManagerNotifier notify #"), failedStep("notify"),
                          debug("BpAppleiAP2ManagerNotifier notify #")}));
}

TEST_F(NotifierAcrossProcesses, LeavesAnotherClientAloneWhenOneDies) {
    RunningClient other;
    client.kill();
    EXPECT_EQ(notifier->attach(7), 0);
    EXPECT_EQ(other.notifier()->attach(7), RunningClient::kAnswer);
    EXPECT_EQ(other.told(), "attach(7)|");
}

}  // namespace
}  // namespace accessory::test
