// The manager's stub: from the bytes of every request to the call of the implementation, the reply and the
// log.
#include <binder/Parcel.h>

#include <set>

#include "tests/AppleiAP2/manager/ManagerFixtures.h"

namespace accessory::test {
namespace {

using android::sp;
using testing::ElementsAre;

using ManagerStub = ManagerStubFixture;

TEST(ManagerExamples, CoverEveryOperationButRegistration) {
    std::set<uint32_t> codes;
    for (const Example& example : allExamples())
        codes.insert(example.code);
    EXPECT_EQ(codes.size(), 84u) << "the 87 operations are two of registration and two that share code 21";
    EXPECT_EQ(codes.count(1) + codes.count(2), 0u);
}

TEST_F(ManagerStub, TellsTheImplementationEveryArgument) {
    for (const Example& example : allExamples())
        EXPECT_EQ(toldOf(example.code, example.arguments), example.told);
}

TEST_F(ManagerStub, AnswersTheHeaderThenWhatTheImplementationAnswers) {
    for (const int32_t result : {0, 1, -1, -22, INT32_MIN, INT32_MAX}) {
        recorder->answer = result;
        for (const Example& example : allExamples())
            EXPECT_EQ(ask(*stub, example.code, managerRequest(example.arguments)),
                      (Answer{0, example.replyWith(result)}))
                << testing::PrintToString(example);
    }
}

TEST_F(ManagerStub, LogsNeitherTheCallNorATraceOfIt) {
    for (const Example& example : allExamples()) {
        log.clear();
        toldOf(example.code, example.arguments);
        EXPECT_THAT(log.lines(), areLines(stubLinesOf(example))) << testing::PrintToString(example);
    }
}

TEST_F(ManagerStub, HandsOnWhatItsOwnOperationsAreGiven) {
    recorder->answer = -77;
    for (const Example& example : allExamples()) {
        log.clear();
        EXPECT_EQ(example.call(*stub), example.hasStatus ? -77 : 0) << testing::PrintToString(example);
        EXPECT_THAT(recorder->takeTold(), ElementsAre(example.given));
        const bool isLogged = example.operation == "getSupportFeature";
        EXPECT_THAT(log.lines(), areLines(isLogged ? stubLinesOf(example) : ExpectedLines{}));
    }
}

TEST_F(ManagerStub, HandsBackTheImplementationsOwnStrings) {
    EXPECT_EQ(static_cast<const void*>(stub->getSupportFeature(7, "f")), recorder->feature);
    EXPECT_EQ(static_cast<const void*>(stub->getVersion()), recorder->version);
    recorder->feature = nullptr;
    recorder->version = nullptr;
    EXPECT_EQ(stub->getSupportFeature(7, "f"), nullptr);
    EXPECT_EQ(stub->getVersion(), nullptr);
}

TEST_F(ManagerStub, HandsOnTheVeryPointersAndReferencesThatItsOperationsAreGiven) {
    class Keeper : public ManagerRecorder {
      public:
        int getAccessoryIds(unsigned int* room, unsigned int* count) override {
            seen = {room, count};
            return 1;
        }
        int startPowerUpdate(unsigned int, sp<iAP2PowerUpdateMask>& mask) override {
            seen = {&mask};
            return 2;
        }
        int CarPlayAvailableDigitalCarKeys(unsigned int, std::vector<std::string>& keys) override {
            seen = {&keys};
            return 3;
        }
        std::vector<const void*> seen;
    };
    const sp<Keeper> keeper = new Keeper;
    const sp<BnAppleiAP2Manager> own = kept(new BnAppleiAP2Manager(keeper));
    unsigned int count = 0;
    unsigned int ids[10] = {};
    EXPECT_EQ(own->getAccessoryIds(ids, &count), 1);
    EXPECT_THAT(keeper->seen, ElementsAre(ids, &count));
    sp<iAP2PowerUpdateMask> mask = maskOf<iAP2PowerUpdateMask>(1);
    EXPECT_EQ(own->startPowerUpdate(7, mask), 2);
    EXPECT_THAT(keeper->seen, ElementsAre(&mask));
    std::vector<std::string> keys;
    EXPECT_EQ(own->CarPlayAvailableDigitalCarKeys(7, keys), 3);
    EXPECT_THAT(keeper->seen, ElementsAre(&keys));
}

TEST_F(ManagerStub, IgnoresWhatFollowsTheArguments) {
    for (const Example& example : allExamples()) {
        if (example.code == 21) continue;  // the mask form is read beyond its end
        EXPECT_EQ(toldOf(example.code, parcel({example.arguments, i32(0x55), i32(0x66)})), example.told);
    }
    EXPECT_EQ(toldOf(21, parcel({i32(7), cstr("a"), cstr("b"), i64(1), i64(2), i32(3), i32(0x55)})),
              "startMediaLibUpdates(7, {\"a\" \"b\" 1 0 2 0 3})");
}

TEST_F(ManagerStub, AnswersThroughTransactAsTheRuntimeCallsIt) {
    recorder->answer = 9;
    android::Parcel data;
    android::Parcel reply;
    fill(&data, managerRequest(i32(7)));
    EXPECT_EQ(stub->transact(83, data, &reply), 0);
    EXPECT_EQ(bytesOf(reply), replied(9));
    EXPECT_THAT(recorder->takeTold(), ElementsAre("start(7)"));
}

TEST_F(ManagerStub, LogsEveryWordOfAReplyThatCannotBeWrittenAndReturnsZero) {
    for (const Example& example : allExamples()) {
        log.clear();
        android::Parcel data;
        android::Parcel reply;
        fill(&data, managerRequest(example.arguments));
        reply.setError(android::NO_MEMORY);
        EXPECT_EQ(stub->onTransact(example.code, data, &reply, 0), 0) << testing::PrintToString(example);
        ExpectedLines lines = {failedStep("onTransact")};
        for (const ExpectedLine& line : stubLinesOf(example))
            lines.push_back(line);
        lines.resize(lines.size() + example.valueCount + (example.hasStatus ? 1 : 0),
                     failedStep("onTransact"));
        EXPECT_THAT(log.lines(), areLines(lines)) << testing::PrintToString(example);
        EXPECT_THAT(recorder->takeTold(), ElementsAre(example.told));
    }
}

/// Answers some operations itself.
class OwnManager : public BnAppleiAP2Manager {
  public:
    using BnAppleiAP2Manager::BnAppleiAP2Manager;
    int setName(const char* name) override { return name[0]; }
    int clearNotifier() override { return 55; }
    int startHID(unsigned int accId) override { return static_cast<int>(accId + 1); }
    int startHID(unsigned int, HIDReportAttributes* attributes) override { return attributes->productId; }
    int startMediaLibUpdates(unsigned int, sp<MediaLibUpdateInfo>& info) override { return info->mValues[4]; }
    int startMediaLibUpdates(unsigned int, const char*, sp<MediaLibDataMask>&, sp<MediaItemMask>&,
                             sp<MediaPlaylistMask>&, const char*) override {
        return -1;
    }
    const char* getVersion() override { return "own"; }
    int getAccessoryIds(unsigned int*, unsigned int* count) override {
        *count = 0;
        return 4;
    }
};

TEST_F(ManagerStub, CallsItsOwnOperationsSoThatAServiceMayOverrideThem) {
    const sp<BnAppleiAP2Manager> own = kept(new OwnManager(recorder));
    const auto asked = [&](uint32_t code, const Bytes& arguments) {
        return ask(*own, code, managerRequest(arguments));
    };
    EXPECT_EQ(asked(3, cstr("A")), answered('A'));
    EXPECT_EQ(asked(2, {}), answered(55));
    EXPECT_EQ(asked(14, i32(7)), answered(8));
    EXPECT_EQ(asked(89, parcel({i32(7), i32(1), i32(2), i32(3), i32(4), i32(0)})), answered(3));
    EXPECT_EQ(asked(21, parcel({i32(7), cstr("a"), cstr("b"), i32(1), i32(2), i32(3), i32(4), i32(5)})),
              answered(5));
    EXPECT_EQ(asked(75, {}), (Answer{0, parcel({i32(0), cstr("own")})}));
    EXPECT_EQ(asked(10, {}), answered(4, i32(0)));
    EXPECT_THAT(recorder->takeTold(), testing::IsEmpty());
}

}  // namespace
}  // namespace accessory::test
