// The manager between two real processes: every request, refusals, and a service that dies.
#include <binder/Binder.h>
#include <binder/Parcel.h>

#include <thread>

#include "tests/AppleiAP2/manager/ManagerFixtures.h"
#include "tests/AppleiAP2/manager/ManagerService.h"

namespace accessory::test {
namespace {

using android::sp;
using testing::IsEmpty;

class ManagerAcrossProcesses : public testing::Test {
  protected:
    ManagerAcrossProcesses() { log.clear(); }

    Answer askService(uint32_t code, const Bytes& bytes, uint32_t flags = 0) {
        android::Parcel data;
        android::Parcel reply;
        fill(&data, bytes);
        const android::status_t status = service.binder()->transact(code, data, &reply, flags);
        return {status, bytesOf(reply)};
    }

    void expectStillServing() {
        service.told();
        EXPECT_EQ(manager->start(9), RunningManager::kAnswer);
        EXPECT_EQ(service.told(), "start(9)|");
    }

    RunningManager service;
    const sp<IAppleiAP2Manager> manager = service.manager();
    LogCatcher log;
};

TEST_F(ManagerAcrossProcesses, TellsTheServiceEveryRequestAndBringsBackItsAnswer) {
    for (const Example& example : allExamples()) {
        log.clear();
        EXPECT_EQ(example.call(*manager), example.hasStatus ? RunningManager::kAnswer : 0)
            << testing::PrintToString(example);
        EXPECT_EQ(service.told(), example.told + "|");
        for (const LogLine& line : log.linesWith(kTag))
            EXPECT_EQ(line.priority, ANDROID_LOG_DEBUG) << testing::PrintToString(example);
    }
}

TEST_F(ManagerAcrossProcesses, BringsBackIdentifiersSessionsAndStrings) {
    unsigned int ids[10] = {};
    unsigned int count = 0;
    EXPECT_EQ(manager->getAccessoryIds(ids, &count), RunningManager::kAnswer);
    EXPECT_EQ(count, 3u);
    EXPECT_THAT(ids, testing::ElementsAre(11, 0xfffffffe, 13, 0, 0, 0, 0, 0, 0, 0));
    const char* apps[10] = {};
    EXPECT_EQ(manager->getAPPIds(7, apps, &count), RunningManager::kAnswer);
    EXPECT_EQ(count, 3u);
    EXPECT_THAT(apps, testing::Each(nullptr));
    int first = 0;
    int second = 0;
    EXPECT_EQ(manager->getEASessionId(7, 1, &first, &second), RunningManager::kAnswer);
    EXPECT_EQ(first, -5);
    EXPECT_EQ(second, 0x01020304);
    EXPECT_STREQ(manager->getSupportFeature(7, "f"), "yes, it does");
    EXPECT_STREQ(manager->getVersion(), "1.2.3");
}

TEST_F(ManagerAcrossProcesses, AnswersInBytes) {
    EXPECT_EQ(askService(83, managerRequest(i32(7))), answered(RunningManager::kAnswer));
    EXPECT_EQ(askService(75, managerRequest({})), (Answer{0, parcel({i32(0), cstr("1.2.3")})}));
    EXPECT_EQ(askService(62, managerRequest(i32(7))), stopped(0));
}

TEST_F(ManagerAcrossProcesses, RefusesUnknownCodesWrongTokensAndImpossibleLengths) {
    for (const uint32_t code : {0u, 16u, 43u, 46u, 92u})
        EXPECT_EQ(askService(code, managerRequest({})).status, android::UNKNOWN_TRANSACTION) << code;
    EXPECT_EQ(askService(3, parcel({token(u"accessory.AccessoryManager"), cstr("x")})).status, -1);
    EXPECT_EQ(askService(18, managerRequest(parcel({i32(7), i32(-1)}))).status, -22);
    EXPECT_EQ(service.told(), "");
    expectStillServing();
}

TEST_F(ManagerAcrossProcesses, AnswersAnErrorForAMissingPropertyOrKeyAndServesOn) {
    EXPECT_EQ(askService(77, managerRequest(i32(1))).status, android::UNKNOWN_ERROR);
    EXPECT_EQ(askService(77, managerRequest(parcel({i32(1), cstr("key")}))).status, android::UNKNOWN_ERROR);
    EXPECT_EQ(askService(91, managerRequest(parcel({i32(7), i32(2), cstr("k")}))).status,
              android::UNKNOWN_ERROR);
    EXPECT_EQ(service.told(), "");
    expectStillServing();
}

TEST_F(ManagerAcrossProcesses, GivesNullForAFeatureThatTheServiceDoesNotKnow) {
    const unsigned int id = RunningManager::kWithoutFeatures;
    EXPECT_EQ(askService(11, managerRequest(parcel({i32(id), cstr("f")}))).status, -22);
    log.clear();
    EXPECT_EQ(manager->getSupportFeature(id, "f"), nullptr);
    EXPECT_THAT(log.linesWith(kTag), testing::Contains(LoggedStatusCheck(kTag, "getSupportFeature")));
    EXPECT_STREQ(manager->getSupportFeature(7, "f"), "yes, it does");
}

TEST_F(ManagerAcrossProcesses, GivesNullForTheVersionOfAServiceThatHasNone) {
    EXPECT_EQ(manager->stop(RunningManager::kTakesTheVersion), RunningManager::kAnswer);
    log.clear();
    EXPECT_EQ(manager->getVersion(), nullptr);
    EXPECT_THAT(log.linesWith(kTag), IsEmpty());
    EXPECT_EQ(askService(75, managerRequest({})), stopped(0));
}

TEST_F(ManagerAcrossProcesses, RegistersAndDeregisters) {
    const sp<android::IBinder> client = new android::BBinder;
    const sp<IAppleiAP2ManagerNotifier> notifier = IAppleiAP2ManagerNotifier::asInterface(client);
    EXPECT_EQ(manager->clearNotifier(), -1);
    EXPECT_EQ(manager->setNotifier(nullptr), -22);
    EXPECT_EQ(manager->setNotifier(notifier), 0);
    EXPECT_EQ(manager->setNotifier(notifier), 0);
    EXPECT_EQ(manager->clearNotifier(), 0);
    EXPECT_EQ(manager->clearNotifier(), -1);
    EXPECT_EQ(service.told(), "");
}

TEST_F(ManagerAcrossProcesses, SurvivesARequestThatWaitsForNoReply) {
    EXPECT_EQ(askService(84, managerRequest(i32(7)), android::IBinder::FLAG_ONEWAY), (Answer{0, {}}));
    EXPECT_TRUE(eventually([this] { return service.told() == "stop(7)|"; }));
    expectStillServing();
}

TEST_F(ManagerAcrossProcesses, CarriesALongReportAndRefusesOneThatIsTooLong) {
    Bytes report(2 << 20, 0x01);
    EXPECT_EQ(manager->accHIDReport(7, report.data(), 900'000), RunningManager::kAnswer);
    EXPECT_EQ(service.told(), "accHIDReport(7, [900000 bytes, sum 900000], 900000)|");
    log.clear();
    EXPECT_EQ(manager->accHIDReport(7, report.data(), 2 << 20), 0);
    EXPECT_THAT(log.linesWith(kTag), areLines({failedStep("accHIDReport"), failedStep("accHIDReport")}));
    expectStillServing();
}

TEST_F(ManagerAcrossProcesses, GivesZeroOrNullFromEveryOperationWhenTheServiceIsGone) {
    service.kill();
    for (const Example& example : allExamples()) {
        log.clear();
        EXPECT_EQ(example.call(*manager), 0) << testing::PrintToString(example);
        EXPECT_THAT(log.linesWith(kTag),
                    areLines({failedStep(example.operation), failedStep(example.operation)}))
            << testing::PrintToString(example);
    }
    EXPECT_EQ(manager->getSupportFeature(7, "f"), nullptr);
    EXPECT_EQ(manager->getVersion(), nullptr);
    EXPECT_EQ(manager->clearNotifier(), 0);
}

TEST_F(ManagerAcrossProcesses, GivesZeroWhenTheServiceDiesInTheMiddleOfACall) {
    EXPECT_EQ(manager->start(7), RunningManager::kAnswer);
    log.clear();
    std::thread killer([this] {
        EXPECT_EQ(service.process.expectLine(), "waiting");
        service.process.kill(SIGKILL);
    });
    EXPECT_EQ(manager->stop(RunningManager::kWaitForever), 0);
    killer.join();
    EXPECT_THAT(log.linesWith(kTag), areLines({failedStep("stop"), failedStep("stop")}));
}

}  // namespace
}  // namespace accessory::test
