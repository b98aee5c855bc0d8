// What the stub does when the heap is exhausted in the middle of a request. A program of its own: it replaces
// the heap's entrance.
#include <binder/Parcel.h>
#include <sys/wait.h>

#include <csignal>

#include "tests/AppleiAP2/notifier/ExhaustedHeap.h"
#include "tests/AppleiAP2/notifier/StubFixture.h"

namespace accessory::test {
namespace {

constexpr size_t kLarge = 80'000;

/// Every request here holds what it announces, and has been put into its parcel when the heap ends.
class StubWithoutMemory : public StubFixture {
  protected:
    std::string toldWithoutMemory(uint32_t code, const Bytes& arguments) {
        android::Parcel data;
        android::Parcel reply;
        fill(&data, request(arguments));
        {
            const ExhaustedHeap exhausted(kLarge);
            last.status = stub->onTransact(code, data, &reply, 0);
        }
        last.reply = bytesOf(reply);
        const std::vector<std::string> told = recorder->takeTold();
        return told.empty() ? "" : told.front();
    }
};

TEST_F(StubWithoutMemory, RefusesAnIconSoftly) {
    EXPECT_EQ(
        toldWithoutMemory(37, parcel({i32(7), cstr("a"), i32(1), i32(2), i32(kLarge), Bytes(kLarge, 1)})),
        "");
    EXPECT_EQ(last, refused(0));
    EXPECT_THAT(log.lines(), areLines({{ANDROID_LOG_ERROR, "malloc failed for appIconId!"}}));
}

TEST_F(StubWithoutMemory, RefusesADestinationsPointsSoftly) {
    EXPECT_EQ(toldWithoutMemory(43, parcel({i32(7), i32(0x10), i32(kLarge / 8), Bytes(kLarge, 1)})), "");
    EXPECT_EQ(last, refused(0));
    EXPECT_THAT(log.lines(), areLines({debug("DestinationInfo onTransact mask 0x10"),
                                       {ANDROID_LOG_ERROR, "onTransact:# memory allocation fail."}}));
}

TEST_F(StubWithoutMemory, TellsOfAFileWithoutItsBytes) {
    EXPECT_EQ(toldWithoutMemory(23, parcel({i32(7), repeated(6, i32(0)), i32(kLarge), i32(8), i32(kLarge),
                                            Bytes(kLarge, 1)})),
              "fileTransferSetup(7, {0 0 0 0 0 null 0 8})");
    EXPECT_EQ(last, answered(0));
}

TEST_F(StubWithoutMemory, AnswersApplicationsWhoseListCannotBeMade) {
    const Bytes element = parcel({i32(2), cstr("a"), cstr("b"), i32(3), i32(0)});
    const Bytes list = parcel({i32(7), i32(1), i32(4000), i32(1), repeated(4000, element)});
    EXPECT_NO_THROW(toldWithoutMemory(36, list));
    EXPECT_EQ(last.status, 0);
}

TEST_F(StubWithoutMemory, TellsOfAnApplicationWithoutItsBytes) {
    EXPECT_THAT(toldWithoutMemory(36, parcel({i32(7), i32(1), i32(1), i32(1), i32(2), cstr("a"), cstr("b"),
                                              i32(3), i32(kLarge), Bytes(kLarge, 1)})),
                testing::StartsWith("AppDiscoveryUpdate(7, 1, [{2 \"a\" \"b\" 3 null 0}], 1, "));
    EXPECT_EQ(last, answered(0));
}

TEST_F(StubWithoutMemory, RefusesGuidanceWhoseArrayCannotBeMade) {
    const Bytes record = parcel({i32(7), i32(1), i32(kLarge / 2), Bytes(kLarge, 1)});
    for (const uint32_t code : {33u, 34u, 35u}) {
        log.clear();
        EXPECT_EQ(toldWithoutMemory(code, record), "") << code;
        EXPECT_EQ(last, refused(-22)) << code;
        ASSERT_FALSE(log.lines().empty());
        EXPECT_THAT(log.lines().back(), LoggedCheck(kTag, "onTransact", "info.get()"));
    }
}

using StubWithoutMemoryDeathTest = StubWithoutMemory;

TEST_F(StubWithoutMemoryDeathTest, EndsTheProcessForALinkKeyOrAnAddress) {
    constexpr char kReport[] = "malloc a buff for OOBBTP link info in binder transact failed!!!";
    EXPECT_EXIT(toldWithoutMemory(30, parcel({i32(7), i32(kLarge), Bytes(kLarge, 1), i32(1), i32(1)})),
                testing::KilledBySignal(SIGABRT), kReport);
    EXPECT_EXIT(toldWithoutMemory(30, parcel({i32(7), i32(1), i32(1), i32(kLarge), Bytes(kLarge, 1)})),
                testing::KilledBySignal(SIGABRT), kReport);
}

}  // namespace
}  // namespace accessory::test
