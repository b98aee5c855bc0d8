// The stub: from the bytes of every request to the call of the implementation, the reply and the log.
#include <binder/Parcel.h>

#include <condition_variable>
#include <mutex>
#include <thread>

#include "tests/AppleiAP2/notifier/StubFixture.h"

namespace accessory::test {
namespace {

using android::sp;
using testing::ElementsAre;

using NotifierStub = StubFixture;

TEST_F(NotifierStub, TellsTheImplementationEveryArgument) {
    for (const Event& event : allEvents())
        EXPECT_EQ(toldOf(event.code, event.arguments), event.told);
}

TEST_F(NotifierStub, AnswersWhatTheImplementationAnswersAndNothingElse) {
    for (const int32_t result : {0, 1, -1, -22, INT32_MIN, INT32_MAX}) {
        recorder->answer = result;
        for (const Event& event : allEvents())
            EXPECT_EQ(ask(*stub, event.code, request(event.arguments)), answered(result))
                << testing::PrintToString(event);
    }
}

TEST_F(NotifierStub, LogsEveryEventAsItsOperationDoes) {
    for (const Event& event : allEvents()) {
        log.clear();
        toldOf(event.code, event.arguments);
        EXPECT_THAT(log.lines(), areLines(event.stubLines)) << testing::PrintToString(event);
    }
}

TEST_F(NotifierStub, LogsThatItEntersAnOperationBeforeItCallsTheImplementation) {
    recorder->meanwhile = [this] { EXPECT_THAT(log.lines(), areLines({debug("stopLocation enter")})); };
    EXPECT_EQ(toldOf(12, i32(7)), "stopLocation(7)");
}

TEST_F(NotifierStub, HandsOnWhatItsOwnOperationsAreGiven) {
    for (const Event& event : allEvents()) {
        recorder->answer = -77;
        EXPECT_EQ(event.call(*stub), -77) << testing::PrintToString(event);
        EXPECT_THAT(recorder->takeTold(), ElementsAre(event.given));
    }
}

TEST_F(NotifierStub, LogsNothingButTheOperationsNameInItsOwnOperations) {
    for (const Event& event : allEvents()) {
        log.clear();
        event.call(*stub);
        const bool isSilent = event.operation == "mediaLibUpdateDataReady";
        EXPECT_THAT(log.lines(),
                    areLines(isSilent ? ExpectedLines{} : ExpectedLines{debug(event.operation + " enter")}))
            << testing::PrintToString(event);
    }
}

TEST_F(NotifierStub, IgnoresWhatFollowsTheArguments) {
    for (const Event& event : allEvents())
        EXPECT_EQ(toldOf(event.code, parcel({event.arguments, i32(0x55), i32(0x66)})), event.told);
}

TEST_F(NotifierStub, AnswersThroughTransactAsTheRuntimeCallsIt) {
    recorder->answer = 9;
    android::Parcel data;
    android::Parcel reply;
    fill(&data, request(i32(7)));
    EXPECT_EQ(stub->transact(31, data, &reply), 0);
    EXPECT_EQ(bytesOf(reply), i32(9));
    EXPECT_THAT(recorder->takeTold(), ElementsAre("stopOOBBTP(7)"));
}

TEST_F(NotifierStub, LogsAResultThatCannotBeWrittenAndReturnsZero) {
    for (const Event& event : allEvents()) {
        log.clear();
        android::Parcel data;
        android::Parcel reply;
        fill(&data, request(event.arguments));
        reply.setError(android::NO_MEMORY);
        EXPECT_EQ(stub->onTransact(event.code, data, &reply, 0), 0) << testing::PrintToString(event);
        ExpectedLines lines = event.stubLines;
        lines.push_back(failedStep("onTransact"));
        EXPECT_THAT(log.lines(), areLines(lines)) << testing::PrintToString(event);
        EXPECT_THAT(recorder->takeTold(), ElementsAre(event.told));
    }
}

TEST_F(NotifierStub, CallsItsOwnOperationsSoThatAClientMayOverrideThem) {
    class Own : public BnAppleiAP2ManagerNotifier {
      public:
        using BnAppleiAP2ManagerNotifier::BnAppleiAP2ManagerNotifier;
        int notify(unsigned int accId, unsigned int event) override {
            return static_cast<int>(accId + event);
        }
        int CarPlayMatchedDigitalCarKeys(unsigned int, std::vector<std::string>& keys) override {
            return static_cast<int>(keys.size());
        }
        int mediaLibUpdateDataReady(unsigned int, sp<iAP2MediaLibData> data) override {
            return data->getGroupDataCount();
        }
    };
    const sp<Own> own = new Own(recorder);
    EXPECT_EQ(ask(*own, 1, request(parcel({i32(7), i32(4)}))), answered(11));
    EXPECT_EQ(ask(*own, 46, request(parcel({i32(7), i32(2), cstr("a"), cstr("b")}))), answered(2));
    EXPECT_EQ(ask(*own, 14, request(parcel({i32(7), i32(0), i32(1), i32(2), i64(9)}))), answered(1));
    EXPECT_THAT(recorder->takeTold(), testing::IsEmpty());
}

/// Lets the callers through once two of them are there.
class Meeting {
  public:
    bool arrive() {
        std::unique_lock lock(mLock);
        ++mPresent;
        mComplete.notify_all();
        return mComplete.wait_for(lock, kPatience, [this] { return mPresent >= 2; });
    }

  private:
    std::mutex mLock;
    std::condition_variable mComplete;
    int mPresent = 0;
};

TEST_F(NotifierStub, ServesSeveralRequestsAtOnce) {
    Meeting meeting;
    recorder->meanwhile = [&] { EXPECT_TRUE(meeting.arrive()); };
    std::thread other([this] { EXPECT_EQ(ask(*stub, 2, request(i32(1))), answered(0)); });
    EXPECT_EQ(ask(*stub, 3, request(i32(2))), answered(0));
    other.join();
    EXPECT_THAT(recorder->takeTold(), testing::UnorderedElementsAre("attach(1)", "detach(2)"));
}

}  // namespace
}  // namespace accessory::test
