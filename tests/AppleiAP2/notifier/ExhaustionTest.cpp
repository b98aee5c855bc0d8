// What the stub does when the heap is exhausted in the middle of a request. A program of its own: it replaces
// the heap's entrance.
#include <binder/Parcel.h>
#include <sys/wait.h>

#include <climits>
#include <csignal>
#include <numeric>

#include "tests/AppleiAP2/notifier/ExhaustedHeap.h"
#include "tests/AppleiAP2/notifier/StubFixture.h"

namespace accessory::test {
namespace {

using android::sp;

constexpr size_t kLarge = 80'000;

/// Every request here holds what it announces, and has been put into its parcel when the heap ends.
class StubWithoutMemory : public StubFixture {
  protected:
    std::string toldWithoutMemory(uint32_t code, const Bytes& arguments) {
        exhaust(*stub, code, arguments, INT_MAX);
        const std::vector<std::string> told = recorder->takeTold();
        return told.empty() ? "" : told.front();
    }

    /// Hands the request to @p to while the first @p times that much memory is asked for there is none.
    void exhaust(BnAppleiAP2ManagerNotifier& to, uint32_t code, const Bytes& arguments, int times) {
        android::Parcel data;
        android::Parcel reply;
        fill(&data, request(arguments));
        {
            const ExhaustedHeap exhausted(kLarge, times);
            last.status = to.onTransact(code, data, &reply, 0);
        }
        last.reply = bytesOf(reply);
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
    EXPECT_THAT(log.lines(), areLines({failedStep("onTransact"), debug("fileTransferSetup enter")}));
}

TEST_F(StubWithoutMemory, AnswersApplicationsWhoseListCannotBeMade) {
    const Bytes element = parcel({i32(2), cstr("a"), cstr("b"), i32(3), i32(0)});
    const Bytes list = parcel({i32(7), i32(1), i32(4000), i32(1), repeated(4000, element)});
    EXPECT_EQ(toldWithoutMemory(36, list), "");
    EXPECT_EQ(last, refused(0));
    ASSERT_EQ(log.lines().size(), 1u);
    EXPECT_THAT(log.lines()[0], LoggedCheck(kTag, "onTransact", "list"));
}

TEST_F(StubWithoutMemory, TellsOfAnApplicationWithoutItsBytes) {
    EXPECT_THAT(toldWithoutMemory(36, parcel({i32(7), i32(1), i32(1), i32(1), i32(2), cstr("a"), cstr("b"),
                                              i32(3), i32(kLarge), Bytes(kLarge, 0)})),
                testing::StartsWith("AppDiscoveryUpdate(7, 1, [{2 \"a\" \"b\" 3 null 0}], 1, "));
    EXPECT_EQ(last, answered(0));
    EXPECT_THAT(log.lines(), areLines({failedStep("onTransact"), debug("AppDiscoveryUpdate enter")}));
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

/// Keeps the ratings of the items of an update.
class Ratings : public Recorder {
  public:
    int mediaLibUpdateDataReady(unsigned int, sp<iAP2MediaLibData> data) override {
        for (int32_t i = 0; i < data->getGroupDataCount(); ++i) {
            const sp<iAP2MediaLibGroupData> entry = data->getGroupData(static_cast<unsigned int>(i));
            ratings.push_back(entry == nullptr ? -1 : static_cast<iAP2MediaItem&>(*entry).getRating());
        }
        progress = data->getUpdateProgress();
        return 0;
    }

    std::vector<int32_t> ratings;
    int progress = 0;
};

class UpdateWithoutMemory : public StubWithoutMemory {
  protected:
    static constexpr int kItems = 12'000;

    /// An update of items rated 0, 1, 2, ..., and its progress behind them.
    static Bytes update() {
        Bytes bytes = parcel({i32(7), i32(MediaLibDataMask::kUpdateProgress), i32(kItems)});
        for (int i = 0; i < kItems; ++i) {
            for (const Bytes& word : {i32(0), i32(MediaItemMask::kRating), i32(i)})
                bytes.insert(bytes.end(), word.begin(), word.end());
        }
        const Bytes progress = i32(250);
        bytes.insert(bytes.end(), progress.begin(), progress.end());
        return bytes;
    }

    /// Hands over the update and expects the first items of it, one after the other.
    void expectTheFirstItems(int times) {
        exhaust(*updates, 14, update(), times);
        EXPECT_EQ(last, answered(0));
        std::vector<int32_t> first(reader->ratings.size());
        std::iota(first.begin(), first.end(), 0);
        EXPECT_EQ(reader->ratings, first);
        EXPECT_EQ(reader->progress, 250) << "what follows the items is found";
    }

    const sp<Ratings> reader{new Ratings};
    const sp<BnAppleiAP2ManagerNotifier> updates{new BnAppleiAP2ManagerNotifier(reader)};
};

TEST_F(UpdateWithoutMemory, HasItsFirstItemsAndNoneInThePlaceOfAnother) {
    expectTheFirstItems(INT_MAX);
    EXPECT_GT(reader->ratings.size(), 1000u);
    EXPECT_LT(reader->ratings.size(), size_t{kItems});
}

TEST_F(UpdateWithoutMemory, EndsWhereAnItemFoundNoRoomAlsoWhenThereIsMemoryAgain) {
    expectTheFirstItems(2);  // the list at once, then the step to a longer one
    EXPECT_GT(reader->ratings.size(), 1000u);
}

TEST_F(UpdateWithoutMemory, IsWholeWhenItsListCanGrowBitByBit) {
    expectTheFirstItems(1);
    EXPECT_EQ(reader->ratings.size(), size_t{kItems});
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
