// The buffers that the stub allocates for a request: their size and content when the request holds less than
// it announces, and what happens when it announces more than any request can hold.
#include <algorithm>
#include <cstring>

#include "tests/AppleiAP2/notifier/StubFixture.h"

namespace accessory::test {
namespace {

using android::sp;

using StubBuffers = StubFixture;

constexpr uint32_t kAbsurd[] = {0x100001, 0x7fffffff, 0x80000000, 0xfffffffc, 0xffffffff};

/// Also reads the whole 1024 bytes that a report's buffer has, whatever its length.
class ReportReader : public Recorder {
  public:
    int deviceHIDReport(unsigned int accId, int component, void* report, int length) override {
        told = length;
        const auto* bytes = static_cast<const uint8_t*>(report);
        buffer.assign(bytes, bytes + 1024);
        return Recorder::deviceHIDReport(accId, component, report, length);
    }

    int told = 0;
    Bytes buffer;
};

class HidReport : public StubBuffers {
  protected:
    void SetUp() override { log.clear(); }

    Answer report(const Bytes& behindTheAccessory) {
        return ask(*readers, 10, request(parcel({i32(7), behindTheAccessory})));
    }

    const sp<ReportReader> reader{new ReportReader};
    const sp<BnAppleiAP2ManagerNotifier> readers{new BnAppleiAP2ManagerNotifier(reader)};
};

TEST_F(HidReport, ArrivesWithItsLengthAsComponentAndItsFirstBytesAsLength) {
    // What a proxy sends for eight bytes: 05 00 00 00 AA BB CC DD.
    EXPECT_EQ(report(parcel({i32(8), raw({5, 0, 0, 0, 0xaa, 0xbb, 0xcc, 0xdd})})), answered(0));
    EXPECT_THAT(reader->takeTold(), testing::ElementsAre("deviceHIDReport(7, 8, [00 00 00 00 00], 5)"));
    EXPECT_EQ(reader->buffer, Bytes(1024, 0));
    EXPECT_THAT(log.lines(), areLines({failedStep("onTransact"), debug("deviceHIDReport enter")}));
}

TEST_F(HidReport, ArrivesWholeInABufferOf1024ZeroedBytes) {
    report(parcel({i32(3), i32(5), raw({1, 2, 3, 4, 5})}));
    Bytes expected(1024, 0);
    std::copy_n(Bytes{1, 2, 3, 4, 5}.begin(), 5, expected.begin());
    EXPECT_EQ(reader->buffer, expected);
    EXPECT_THAT(reader->takeTold(), testing::ElementsAre("deviceHIDReport(7, 3, [01 02 03 04 05], 5)"));
}

TEST_F(HidReport, MayBeAsLongAsTheBuffer) {
    const Bytes full(1024, 0x5a);
    report(parcel({i32(3), i32(1024), full}));
    EXPECT_EQ(reader->buffer, full);
    EXPECT_EQ(reader->told, 1024);
    EXPECT_THAT(log.lines(), areLines({debug("deviceHIDReport enter")}));
}

TEST_F(HidReport, CountsAsUnreadWhenItIsLongerThanTheBuffer) {
    for (const uint32_t length : {1025u, 1028u, 2048u, 0x7fffffffu}) {
        log.clear();
        EXPECT_EQ(report(parcel({i32(3), i32(length), Bytes(2048, 0x5a)})), answered(0));
        EXPECT_EQ(reader->told, 1024) << length;
        EXPECT_EQ(reader->buffer, Bytes(1024, 0)) << length;
        EXPECT_THAT(log.lines(), areLines({failedStep("onTransact"), debug("deviceHIDReport enter")}));
    }
}

TEST_F(HidReport, NeverOverrunsTheBufferWhenItsLengthIsNegative) {
    for (const int32_t length : {-1, -4, -1024, INT32_MIN}) {
        log.clear();
        EXPECT_EQ(report(parcel({i32(3), i32(length), Bytes(2048, 0x5a)})), answered(0));
        EXPECT_EQ(reader->told, 0) << length;
        EXPECT_EQ(reader->buffer, Bytes(1024, 0)) << length;
        EXPECT_THAT(log.lines(), areLines({failedStep("onTransact"), debug("deviceHIDReport enter")}));
    }
}

TEST_F(StubBuffers, AreZeroWhenTheRequestEndsBeforeTheKeyOrTheAddress) {
    // The key of eight bytes is not there; the word that is there is the length of the address.
    EXPECT_EQ(toldOf(30, parcel({i32(7), i32(8), i32(2)})),
              "OOBBTPLinkKeyInfo(7, [00 00 00 00 00 00 00 00], 8, [00 00], 2)");
    EXPECT_EQ(last, answered(0));
    EXPECT_THAT(log.lines(), areLines({failedStep("onTransact"), failedStep("onTransact"),
                                       debug("OOBBTPLinkKeyInfo enter")}));
}

TEST_F(StubBuffers, AreZeroWhenTheRequestEndsBeforeTheIcon) {
    EXPECT_EQ(toldOf(37, parcel({i32(7), cstr("a"), i32(1), i32(2), i32(6), raw({1, 2, 3, 4})})),
              "AppDiscoveryAppIcon(7, \"a\", true, 2, [00 00 00 00 00 00], 6)");
    EXPECT_THAT(log.lines(), areLines({failedStep("onTransact"), debug("AppDiscoveryAppIcon enter")}));
}

TEST_F(StubBuffers, AreZeroWhenTheRequestEndsBeforeTheElementsBytes) {
    EXPECT_EQ(toldOf(36, parcel({i32(7), i32(1), i32(1), i32(1), i32(2), cstr("a"), cstr("b"), i32(3), i32(8),
                                 i32(0), i32(0)})),
              "AppDiscoveryUpdate(7, 1, [{2 \"a\" \"b\" 3 [00 00 00 00 00 00 00 00] 8}], 1, 0, null, 0)");
    EXPECT_EQ(toldOf(36, parcel({i32(7), i32(1), i32(1), i32(1), i32(2), cstr("a"), cstr("b"), i32(3),
                                 i32(12), i32(0), i32(9)})),
              "AppDiscoveryUpdate(7, 1, [{2 \"a\" \"b\" 3 [00 00 00 00 00 00 00 00 00 00 00 00] 12}], 1, 0, "
              "null, 9)");
    EXPECT_THAT(log.lines(), areLines({debug("AppDiscoveryUpdate enter"), failedStep("onTransact"),
                                       debug("AppDiscoveryUpdate enter")}));
}

TEST_F(StubBuffers, AreZeroElementsWhenTheRequestEndsBeforeThem) {
    EXPECT_EQ(
        toldOf(36, parcel({i32(7), i32(1), i32(3), i32(1)})),
        "AppDiscoveryUpdate(7, 1, [{0 null null 0 null 0} {0 null null 0 null 0} {0 null null 0 null 0}], "
        "3, 0, null, 0)");
}

TEST_F(StubBuffers, AreZeroWhenTheRequestEndsBeforeTheFilesBytes) {
    const Bytes setup = parcel({repeated(5, i32(1)), i32(0), i32(6), i32(8)});
    EXPECT_EQ(toldOf(23, parcel({i32(7), setup, i32(6), raw({1, 2, 3, 4})})),
              "fileTransferSetup(7, {1 1 1 1 1 [00 00 00 00 00 00] 6 8})");
}

TEST_F(StubBuffers, HoldAsManyPointsAsAreCounted) {
    const Bytes points(24, 0x11);
    EXPECT_EQ(toldOf(43, parcel({i32(7), i32(0x10), i32(3), points})),
              "DestinationInformation(7, {16 null null [00 00 00 00 00 00 00 00] null 3 "
              "[11 11 11 11 11 11 11 11 11 11 11 11 11 11 11 11 11 11 11 11 11 11 11 11] 0 null null})");
    log.clear();
    EXPECT_EQ(toldOf(43, parcel({i32(7), i32(0x10), i32(3), Bytes(16, 0x11)})),
              "DestinationInformation(7, {16 null null [00 00 00 00 00 00 00 00] null 3 "
              "[00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00] 0 null null})");
}

TEST_F(StubBuffers, AreLoggedWhereTheRequestEndsBeforeThem) {
    const std::string zeros = "[00 00 00 00 00 00 00 00]";
    const struct {
        uint32_t code;
        Bytes arguments;
        std::string told;
        ExpectedLines lines;
    } cases[] = {
        {23,
         i32(7),
         "fileTransferSetup(7, {0 0 0 0 0 null 0 0})",
         {failedStep("onTransact"), debug("fileTransferSetup enter")}},
        {23,
         parcel({i32(7), repeated(7, i32(0))}),
         "fileTransferSetup(7, {0 0 0 0 0 null 0 0})",
         {failedStep("onTransact"), debug("fileTransferSetup enter")}},
        {41,
         parcel({i32(7), i32(2), i32(1), i32(9)}),
         "StartBluetoothPairing(7, 2, [00 00 00 00 00 00])",
         {failedStep("onTransact"), debug("StartBluetoothPairing enter")}},
        {43,
         parcel({i32(7), i32(0x4), i32(-1)}),
         "DestinationInformation(7, {4 null null " + zeros + " null 0 null 0 null null})",
         {debug("DestinationInfo onTransact mask 0x4"), failedStep("onTransact"),
          debug("DestinationInformation enter")}},
        {43,
         parcel({i32(7), i32(0x10), i32(1), i32(-1)}),
         "DestinationInformation(7, {16 null null " + zeros + " null 1 " + zeros + " 0 null null})",
         {debug("DestinationInfo onTransact mask 0x10"), failedStep("onTransact"),
          debug("DestinationInformation enter")}},
    };
    for (const auto& each : cases) {
        log.clear();
        EXPECT_EQ(toldOf(each.code, each.arguments), each.told);
        EXPECT_EQ(last, answered(0)) << each.told;
        EXPECT_THAT(log.lines(), areLines(each.lines)) << each.told;
    }
}

TEST_F(StubBuffers, AreNotThereForAFileThatNoRequestCanHold) {
    for (const uint32_t length : kAbsurd) {
        log.clear();
        const Bytes setup = parcel({repeated(5, i32(1)), i32(0), i32(length), i32(8)});
        EXPECT_EQ(toldOf(23, parcel({i32(7), setup, i32(length)})),
                  "fileTransferSetup(7, {1 1 1 1 1 null 0 8})")
            << length;
        EXPECT_EQ(last, answered(0)) << length;
        EXPECT_THAT(log.lines(), areLines({failedStep("onTransact"), debug("fileTransferSetup enter")}))
            << length;
    }
}

TEST_F(StubBuffers, LeaveTheImplementationUncalledForAnIconThatNoRequestCanHold) {
    for (const uint32_t length : kAbsurd) {
        log.clear();
        EXPECT_EQ(toldOf(37, parcel({i32(7), cstr("a"), i32(1), i32(2), i32(length)})), "") << length;
        EXPECT_EQ(last, refused(0)) << length;
        EXPECT_THAT(log.lines(), areLines({{ANDROID_LOG_ERROR, "malloc failed for appIconId!"}}));
    }
}

TEST_F(StubBuffers, LeaveTheImplementationUncalledForPointsThatNoRequestCanHold) {
    for (const uint32_t count : {0x20001u, 0x1fffffffu, 0x20000000u, 0x20000001u, 0x7fffffffu, 0xffffffffu}) {
        log.clear();
        EXPECT_EQ(toldOf(43, parcel({i32(7), i32(0x10), i32(count), Bytes(64, 1)})), "") << count;
        EXPECT_EQ(last, refused(0)) << count;
        EXPECT_THAT(log.lines(), areLines({debug("DestinationInfo onTransact mask 0x10"),
                                           {ANDROID_LOG_ERROR, "onTransact:# memory allocation fail."}}));
    }
}

TEST_F(StubBuffers, NeverShowAnElementsLengthWithoutItsBytes) {
    for (const uint32_t length : kAbsurd) {
        log.clear();
        const std::string told = toldOf(36, parcel({i32(7), i32(1), i32(1), i32(1), i32(2), cstr("a"),
                                                    cstr("b"), i32(3), i32(length), i32(9), i32(0), i32(0)}));
        EXPECT_EQ(told, "AppDiscoveryUpdate(7, 1, [{2 \"a\" \"b\" 3 null 0}], 1, 9, null, 0)") << length;
        EXPECT_EQ(last, answered(0)) << length;
        EXPECT_THAT(log.lines(), areLines({failedStep("onTransact"), debug("AppDiscoveryUpdate enter")}))
            << length;
    }
}

TEST_F(StubBuffers, SurviveAsManyElementsAsACountCanName) {
    const std::string told = toldOf(36, parcel({i32(7), i32(1), i32(65535), i32(1)}));
    EXPECT_EQ(last, answered(0));
    EXPECT_THAT(told, testing::StartsWith("AppDiscoveryUpdate(7, 1, "));
    EXPECT_THAT(told, testing::EndsWith(", 0, null, 0)"));
}

TEST_F(StubBuffers, SurviveMoreKeysThanARequestCanHold) {
    for (const uint32_t count : {0x100000u, 0x7fffffffu, 0x80000000u, 0xffffffffu}) {
        const std::string told = toldOf(46, parcel({i32(7), i32(count), cstr("a")}));
        EXPECT_EQ(last, answered(0)) << count;
        EXPECT_THAT(told, testing::AnyOf("CarPlayMatchedDigitalCarKeys(7, {\"a\"})",
                                         "CarPlayMatchedDigitalCarKeys(7, {})"))
            << count;
    }
}

}  // namespace
}  // namespace accessory::test
