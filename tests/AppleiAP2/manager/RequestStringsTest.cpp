// Requests whose values are cut, replaced or missing, and answers that the stub changes or leaves out.
#include <stdexcept>

#include "tests/AppleiAP2/manager/ManagerFixtures.h"

namespace accessory::test {
namespace {

using android::sp;
using testing::IsEmpty;

using RequestValues = ManagerStubFixture;

const Bytes kFive = parcel({i32(1), i32(2), i32(3), i32(4), i32(5)});

TEST_F(RequestValues, AreCutToSixteenBits) {
    EXPECT_EQ(toldOf(60, parcel({i32(7), i32(-1), i32(0x10002), i32(-1), i32(-1), i32(0x7fff8003)})),
              "StartAppDiscoveryUpdates(7, 4294967295, 2, 65535, 4294967295, 32771)");
    EXPECT_EQ(toldOf(78, parcel({i32(7), i32(0xabcd1234), i32(0), i32(0)})),
              "BluetoothPairingAccessoryInformation(7, 4660, null, null)");
    EXPECT_EQ(toldOf(79, parcel({i32(7), i32(0xabcd1234), i32(-1), i32(0)})),
              "BluetoothPairingStatus(7, 4660, 4294967295, null)");
}

TEST_F(RequestValues, AreCutToEightBits) {
    EXPECT_EQ(toldOf(36, parcel({i32(7), cstr("s"), cstr("p"), i32(1), i32(0x1234)})),
              "accessoryWiFiConfigInforamtion(7, \"s\", \"p\", 1, 52)");
    EXPECT_EQ(toldOf(89, parcel({i32(7), i32(0x10001), i32(-1), i32(0xffff0003), i32(0x1ff), i32(0)})),
              "startHID(7, {1 65535 3 [] 0 255})");
    EXPECT_EQ(toldOf(76, parcel({i32(7), i32(0), i32(1), cstr("1"), cstr("2"), i32(0x1ff), cstr("3"), i32(4),
                                 i32(5), cstr("a"), cstr("b"), cstr("c")})),
              "CarPlayStartSession(7, null, {\"1\" \"2\" 255 \"3\" 4}, 5, \"a\", \"b\", \"c\")");
}

TEST_F(RequestValues, AreTrueWhenTheyAreNotZero) {
    for (const int64_t flag : {int64_t{1}, int64_t{2}, int64_t{0x100}, int64_t{-1}, int64_t{INT32_MIN}}) {
        EXPECT_EQ(toldOf(32, parcel({i32(7), i32(1), i32(flag)})), "powerSourceUpdate(7, 1, true)");
        EXPECT_EQ(toldOf(72, parcel({i32(7), i32(flag), i32(0)})), "HoldStatusUpdate(7, true, null)");
        EXPECT_EQ(toldOf(73, parcel({i32(7), i32(flag)})), "MuteStatusUpdate(7, true)");
    }
}

TEST_F(RequestValues, AreThereWhenTheWordBeforeThemIsNotZero) {
    const Bytes block = raw(Bytes(32, 0x5a));
    std::string bytes = "[5a";
    for (int i = 1; i < 32; ++i)
        bytes += " 5a";
    bytes += "]";
    const std::string both = bytes + ", " + bytes;
    for (const int64_t word : {int64_t{1}, int64_t{2}, int64_t{0x100}, int64_t{-1}, int64_t{INT32_MIN}}) {
        const Bytes text = parcel({i32(word), cstr("u")});
        EXPECT_EQ(toldOf(67, parcel({i32(7), i32(3), text})), "AcceptCall(7, 3, \"u\")");
        EXPECT_EQ(toldOf(68, parcel({i32(7), i32(3), text})), "EndCall(7, 3, \"u\")");
        EXPECT_EQ(toldOf(69, parcel({i32(7), i32(3), text, i32(4), text})),
                  "InitiateCall(7, {3 \"u\" 4 \"u\"})");
        EXPECT_EQ(toldOf(72, parcel({i32(7), i32(0), text})), "HoldStatusUpdate(7, false, \"u\")");
        EXPECT_EQ(toldOf(74, parcel({i32(7), i32(3), text})), "SendDTMF(7, 3, \"u\")");
        EXPECT_EQ(toldOf(78, parcel({i32(7), i32(2), i32(word), block, i32(word), block})),
                  "BluetoothPairingAccessoryInformation(7, 2, " + both + ")");
        EXPECT_EQ(toldOf(79, parcel({i32(7), i32(2), i32(3), text})),
                  "BluetoothPairingStatus(7, 2, 3, \"u\")");
    }
}

TEST_F(RequestValues, StartACarPlaySessionWithARecordForEveryFlagThatIsNotZero) {
    for (const int64_t flag : {2, -1, 0x100}) {
        EXPECT_EQ(toldOf(76, parcel({i32(7), i32(flag), cstr("w"), i32(flag), cstr("1"), cstr("2"), i32(3),
                                     cstr("4"), i32(5), i32(6), cstr("a"), cstr("b"), cstr("c")})),
                  "CarPlayStartSession(7, {\"w\"}, {\"1\" \"2\" 3 \"4\" 5}, 6, \"a\", \"b\", \"c\")");
    }
}

TEST_F(RequestValues, LoseTheTextMinusOneInALibraryUpdateOnly) {
    EXPECT_EQ(toldOf(21, parcel({i32(7), cstr("-1"), cstr("x"), kFive})),
              "startMediaLibUpdates(7, {null \"x\" 1 2 3 4 5})");
    EXPECT_EQ(toldOf(21, parcel({i32(7), cstr("x"), cstr("-1"), kFive})),
              "startMediaLibUpdates(7, {\"x\" null 1 2 3 4 5})");
    EXPECT_EQ(toldOf(21, parcel({i32(7), cstr("-"), cstr("-12"), kFive})),
              "startMediaLibUpdates(7, {\"-\" \"-12\" 1 2 3 4 5})");
    EXPECT_EQ(toldOf(22, parcel({i32(7), cstr("-1")})), "stopMediaLibUpdates(7, \"-1\")");
}

TEST_F(RequestValues, KeepAMissingStringNullInALibraryUpdate) {
    EXPECT_EQ(toldOf(21, i32(7)), "startMediaLibUpdates(7, {null null 0 0 0 0 0})");
    EXPECT_EQ(toldOf(21, parcel({i32(7), cstr("-1")})), "startMediaLibUpdates(7, {null null 0 0 0 0 0})");
    EXPECT_EQ(toldOf(21, parcel({i32(7), cstr("x")})), "startMediaLibUpdates(7, {\"x\" null 0 0 0 0 0})");
    EXPECT_EQ(last, answered(0));
}

/// Keeps how much had been logged when it was called.
class LogReader : public ManagerRecorder {
  public:
    explicit LogReader(const LogCatcher& log) : mLog(log) {}

    int playMediaLibCurrentSelection(unsigned int, const char*) override { return seeTheLog(); }
    int playMediaLibSpecial(unsigned int, const char*, int) override { return seeTheLog(); }

    std::vector<LogLine> seen;

  private:
    int seeTheLog() {
        seen = mLog.lines();
        return 0;
    }

    const LogCatcher& mLog;
};

TEST_F(RequestValues, LogTheLibraryBeforeItPlays) {
    const sp<LogReader> player = new LogReader(log);
    const sp<BnAppleiAP2Manager> players = kept(new BnAppleiAP2Manager(player));
    for (const uint32_t code : {23u, 26u}) {
        log.clear();
        ask(*players, code, managerRequest(parcel({i32(7), cstr("lib 9"), i32(1)})));
        EXPECT_THAT(player->seen, areLines({{ANDROID_LOG_DEBUG, "onTransact --> Id[lib 9]"}})) << code;
        EXPECT_EQ(log.lines().size(), 1u) << code;
    }
}

TEST_F(RequestValues, LogALibraryThatIsMissingAsNull) {
    for (const uint32_t code : {23u, 26u}) {
        log.clear();
        EXPECT_NE(toldOf(code, i32(7)), "") << code;
        EXPECT_THAT(log.lines(), areLines({{ANDROID_LOG_DEBUG, "onTransact --> Id[(null)]"}})) << code;
    }
}

TEST_F(RequestValues, DropARequestForTheIconsOfNoApplicationWithSuccess) {
    EXPECT_EQ(toldOf(62, i32(7)), "");
    EXPECT_EQ(last, stopped(0));
    EXPECT_THAT(log.lines(),
                areLines({{ANDROID_LOG_ERROR, "CPAppBundleId is NULL\n"}, failedStep("onTransact")}));
}

TEST_F(RequestValues, WarnOfAListWithoutCarKeysAndHandItOn) {
    for (const int64_t count : {int64_t{0}, int64_t{-1}, int64_t{INT32_MIN}}) {
        log.clear();
        recorder->answer = 6;
        EXPECT_EQ(toldOf(91, parcel({i32(7), i32(count), cstr("k")})),
                  "CarPlayAvailableDigitalCarKeys(7, {})");
        EXPECT_EQ(last, answered(6));
        EXPECT_THAT(log.lines(), areLines({{ANDROID_LOG_WARN, "there is no keyidentifier to send!"}}));
    }
}

/// What the logic error says that @p call raises.
template <typename Call>
std::string raised(Call&& call) {
    try {
        call();
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "nothing";
}

TEST_F(RequestValues, RaiseALogicErrorOutOfTheStubWhenAKeyOrPropertyIsMissing) {
    const std::string text = "basic_string: construction from null is not valid";
    for (const Bytes& arguments : {Bytes{}, i32(1), parcel({i32(1), cstr("key")})})
        EXPECT_EQ(raised([&] { toldOf(77, arguments); }), text);
    for (const int64_t count : {2, 10, INT32_MAX})
        EXPECT_EQ(raised([&] { toldOf(91, parcel({i32(7), i32(count), cstr("k")})); }), text) << count;
    EXPECT_THAT(recorder->takeTold(), IsEmpty());
    EXPECT_EQ(toldOf(83, i32(7)), "start(7)");
}

using Answers = ManagerStubFixture;

TEST_F(Answers, HoldNoAccessoryOrTenOfThem) {
    recorder->answer = 4;
    recorder->ids = {};
    recorder->idCount = 0;
    EXPECT_EQ(toldOf(10, {}), "getAccessoryIds(clear)");
    EXPECT_EQ(last, answered(4, i32(0)));
    recorder->ids = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    recorder->idCount = 10;
    toldOf(10, {});
    const Bytes ten =
        parcel({i32(10), i32(1), i32(2), i32(3), i32(4), i32(5), i32(6), i32(7), i32(8), i32(9), i32(10)});
    EXPECT_EQ(last, answered(4, ten));
    for (const unsigned int tooMany : {11u, 12u, 0x7fffffffu, 0xffffffffu}) {
        recorder->idCount = tooMany;
        toldOf(10, {});
        EXPECT_EQ(last, answered(4, ten)) << tooMany;
    }
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Answers, HoldNoApplicationOrTenOfThem) {
    recorder->answer = 4;
    recorder->appIds = {};
    recorder->appIdCount = 0;
    EXPECT_EQ(toldOf(12, i32(7)), "getAPPIds(7, clear)");
    EXPECT_EQ(last, answered(4, i32(0)));
    recorder->appIds = {"a", "b", "c", "d", "e", "f", "g", "h", "i", "jjjj"};
    recorder->appIdCount = 10;
    toldOf(12, i32(7));
    const Bytes ten = parcel({i32(10), cstr("a"), cstr("b"), cstr("c"), cstr("d"), cstr("e"), cstr("f"),
                              cstr("g"), cstr("h"), cstr("i"), cstr("jjjj")});
    EXPECT_EQ(last, answered(4, ten));
    for (const unsigned int tooMany : {11u, 12u, 0x7fffffffu, 0xffffffffu}) {
        recorder->appIdCount = tooMany;
        toldOf(12, i32(7));
        EXPECT_EQ(last, answered(4, ten)) << tooMany;
    }
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Answers, AreMinusTwentyTwoWhenTheServiceKnowsNothingOfAFeature) {
    recorder->feature = nullptr;
    EXPECT_EQ(toldOf(11, parcel({i32(7), cstr("f")})), "getSupportFeature(7, \"f\")");
    EXPECT_EQ(last, stopped(-22));
    ASSERT_EQ(log.lines().size(), 2u);
    EXPECT_THAT(log.lines()[0], Logged(ANDROID_LOG_INFO, kTag, "getSupportFeature --> (null) :"));
    EXPECT_THAT(log.lines()[1], LoggedCheck(kTag, "onTransact", "feature"));
}

TEST_F(Answers, HoldAnEmptyFeature) {
    recorder->feature = "";
    toldOf(11, parcel({i32(7), cstr("f")}));
    EXPECT_EQ(last, (Answer{0, parcel({i32(0), cstr("")})}));
    EXPECT_THAT(log.lines(), areLines({{ANDROID_LOG_INFO, "getSupportFeature -->  :"}}));
}

TEST_F(Answers, HoldNothingMoreWithoutAVersion) {
    recorder->version = nullptr;
    EXPECT_EQ(toldOf(75, {}), "getVersion()");
    EXPECT_EQ(last, stopped(0));
    EXPECT_THAT(log.lines(), areLines({{ANDROID_LOG_WARN, "getVersion return NULL\n"}}));
}

TEST_F(Answers, ToARegistrationWithoutANotifierAreMinusTwentyTwo) {
    for (const Bytes& arguments : {Bytes{}, parcel({i64(0), i64(0), i64(0)})}) {
        log.clear();
        EXPECT_EQ(toldOf(1, arguments), "");
        EXPECT_EQ(last, answered(-22));
        EXPECT_THAT(log.lines(), testing::Contains(LoggedCheck(kTag, "setNotifier", "notifier.get()")));
    }
}

TEST_F(Answers, ToADeregistrationOfNobodyAreMinusOne) {
    EXPECT_EQ(toldOf(2, {}), "");
    EXPECT_EQ(last, answered(-1));
    EXPECT_THAT(log.lines(),
                testing::Contains(Logged(ANDROID_LOG_ERROR, kTag, "current pid notifier is NULL")));
}

}  // namespace
}  // namespace accessory::test
