// The library update: its group list, its flags, its assertions, and lists that a peer made up.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/AppleiAP2/records/ApartRecords.h"
#include "tests/AppleiAP2/records/MediaLibrarySamples.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using android::Parcel;
using android::sp;
using testing::IsEmpty;

Words writtenUpdate(const sp<iAP2MediaLibData>& update) {
    Parcel parcel;
    IiAP2MediaLibData::writeToParcel(&parcel, update);
    return wordsOf(parcel);
}

/// An update together with the parcel that its strings live in.
struct Received {
    explicit Received(const Words& words) : Received(words, words.size()) {}
    Received(const Words& words, size_t size) {
        words.putInto(parcel, size);
        update = IiAP2MediaLibData::FromParcel(parcel);
    }

    template <typename Entry>
    const Entry& entry(unsigned int index) const {
        return static_cast<const Entry&>(*update->getGroupData(index));
    }

    Parcel parcel;
    sp<IiAP2MediaLibData> update;
};

TEST(MediaLibrary, UpdateWithNothingIsItsMaskAndACountOfZero) {
    EXPECT_EQ(Words().i32(0).i32(0), writtenUpdate(new IiAP2MediaLibData));
}

TEST(MediaLibrary, UpdateHasNothingAfterItIsMade) {
    const sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
    EXPECT_EQ(0u, update->getMask());
    EXPECT_EQ(nullptr, update->getId());
    EXPECT_EQ(nullptr, update->getRevision());
    EXPECT_EQ(0, update->getGroupDataCount());
    EXPECT_EQ(0, update->getMediaLibReset());
    EXPECT_EQ(0, update->getUpdateProgress());
    EXPECT_EQ(0, update->getIsHidingRemoteItems());
    EXPECT_EQ(0, update->getPlayAllSongCapable());
}

TEST(MediaLibrary, UpdateCarriesItsListWhateverTheFourBitsSay) {
    for (const uint32_t mask : {0x4u, 0x8u, 0x10u, 0x20u, 0x3cu, 0xfffffc3cu}) {
        sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
        update->mMask->mask = mask;
        EXPECT_EQ(Words().i32(mask).i32(0), writtenUpdate(update)) << mask;
    }
    sp<IiAP2MediaLibData> update = mixedUpdate();
    update->mMask->mask = 0;
    EXPECT_EQ(5, Received(writtenUpdate(update)).update->getGroupDataCount() + 1)
        << "the odd entry is dropped";
}

TEST(MediaLibrary, UpdateWritesEachOfItsOwnFieldsAlone) {
    sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
    update->setId("lib").setRevision("0017").setMediaLibReset(1);
    update->setUpdateProgress(250).setIsHidingRemoteItems(3).setPlayAllSongCapable(4);
    const std::vector<std::pair<uint32_t, Words>> alone = {
        {0x1, Words().i32(0x1).cstr("lib").i32(0)}, {0x2, Words().i32(0x2).cstr("0017").i32(0)},
        {0x40, Words().i32(0x40).i32(0).i32(1)},    {0x80, Words().i32(0x80).i32(0).i32(250)},
        {0x100, Words().i32(0x100).i32(0).i32(3)},  {0x200, Words().i32(0x200).i32(0).i32(4)},
    };
    for (const auto& [mask, words] : alone) {
        update->mMask->mask = mask;
        EXPECT_EQ(words, writtenUpdate(update)) << mask;
    }
}

TEST(MediaLibrary, UpdateWritesEntriesOfAllKindsInAnyMix) {
    EXPECT_EQ(mixedWords(), writtenUpdate(mixedUpdate()));
}

TEST(MediaLibrary, UpdateReadsEntriesOfAllKindsAndDropsTheUnknown) {
    const Received received(mixedWords());
    const auto& update = *received.update;
    EXPECT_EQ(0x3ffu, update.getMask());
    EXPECT_STREQ("lib", update.getId());
    EXPECT_STREQ("0017", update.getRevision());
    ASSERT_EQ(4, update.getGroupDataCount());
    EXPECT_EQ(0, update.getGroupData(0)->type);
    EXPECT_EQ(0xau, received.entry<iAP2MediaItem>(0).getMask());
    EXPECT_STREQ("Blue", received.entry<iAP2MediaItem>(0).getTitle());
    EXPECT_EQ(5, received.entry<iAP2MediaItem>(0).getRating());
    EXPECT_EQ(1, update.getGroupData(1)->type);
    EXPECT_STREQ("Jazz", received.entry<iAP2MediaPlaylist>(1).getName());
    EXPECT_EQ(2, update.getGroupData(2)->type);
    EXPECT_EQ(0x1122334455667788u, received.entry<iAP2MediaItemDelId>(2).getDelId());
    EXPECT_EQ(3, update.getGroupData(3)->type);
    EXPECT_EQ(0xffffffffffffffffu, received.entry<iAP2MediaPlaylistDelId>(3).getDelId());
    EXPECT_EQ(1, update.getMediaLibReset());
    EXPECT_EQ(250, update.getUpdateProgress());
    EXPECT_EQ(0, update.getIsHidingRemoteItems());
    EXPECT_EQ(1, update.getPlayAllSongCapable());
    EXPECT_EQ(0u, received.parcel.dataAvail());
}

TEST(MediaLibrary, UpdateReadsOnAfterAnEntryOfAnyUnknownType) {
    for (const int64_t type : {4L, 5L, 0x7fffffffL, -1L}) {
        const LogCatcher log;
        const Received received(Words().i32(0x80).i32(2).i32(type).i32(3).i64(9).i32(12));
        ASSERT_EQ(1, received.update->getGroupDataCount()) << type;
        EXPECT_EQ(9u, received.entry<iAP2MediaPlaylistDelId>(0).getDelId()) << type;
        EXPECT_EQ(12, received.update->getUpdateProgress()) << type;
        EXPECT_THAT(log.lines(), IsEmpty());
    }
}

TEST(MediaLibrary, FlagsKeepTheirLowEightBits) {
    const Received received(Words().i32(0x3c0).i32(0).i32(256).i32(0x1ff).i32(-1).i32(0x12345602));
    EXPECT_EQ(0, received.update->getMediaLibReset());
    EXPECT_EQ(255, received.update->getUpdateProgress());
    EXPECT_EQ(255, received.update->getIsHidingRemoteItems());
    EXPECT_EQ(2, received.update->getPlayAllSongCapable());
}

TEST(MediaLibrary, StringsOfAnUpdatePointIntoTheParcel) {
    const Received received(mixedWords());
    const auto* data = reinterpret_cast<const char*>(received.parcel.data());
    EXPECT_EQ(data + 4, received.update->getId());
    EXPECT_EQ(data + 8, received.update->getRevision());
    EXPECT_EQ(data + 28, received.entry<iAP2MediaItem>(0).getTitle());
}

TEST(MediaLibrary, EntriesAreSharedWithWhoeverAsksForThem) {
    const sp<IiAP2MediaItem> item = new IiAP2MediaItem;
    sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
    update->addGroupData(item);
    EXPECT_EQ(item.get(), update->getGroupData(0).get());
    EXPECT_EQ(2, item->getStrongCount());
    update = nullptr;
    EXPECT_EQ(1, item->getStrongCount());
}

TEST(MediaLibrary, AddingAnEntryMarksItsKind) {
    sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
    update->addGroupData(new IiAP2MediaItem);
    EXPECT_EQ(0x4u, update->getMask());
    update->addGroupData(new IiAP2MediaPlaylist);
    EXPECT_EQ(0xcu, update->getMask());
    update->addGroupData(new IiAP2MediaItemDelId);
    EXPECT_EQ(0x1cu, update->getMask());
    update->addGroupData(new IiAP2MediaPlaylistDelId);
    EXPECT_EQ(0x3cu, update->getMask());
    update->mMask->mask = 0;
    update->addGroupData(new OddEntry(-1)).addGroupData(new OddEntry(4)).addGroupData(nullptr);
    EXPECT_EQ(0u, update->getMask());
    EXPECT_EQ(7, update->getGroupDataCount());
}

TEST(MediaLibrary, ANullEntryIsSentAsATypeThatReceiversDrop) {
    sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
    update->addGroupData(nullptr).addGroupData(&(new IiAP2MediaItemDelId)->setDelId(9));
    const Words words = Words().i32(0x10).i32(2).i32(4).i32(2).i64(9);
    EXPECT_EQ(words, writtenUpdate(update));
    EXPECT_EQ(1, Received(words).update->getGroupDataCount());
}

TEST(MediaLibrary, UpdateAsksAnyImplementationInTheOrderOfTheVirtualTable) {
    Words words;
    words.i32(0x3ff).cstr("library").cstr("17").i32(1);
    words.i32(1).i32(0x2).cstr("Road trip");
    words.i32(1).i32(250).i32(3).i32(4);
    EXPECT_EQ(words, writtenUpdate(makeApartMediaLibData(0x3ff)));
    EXPECT_EQ(Words().i32(0).i32(1).i32(1).i32(0x2).cstr("Road trip"),
              writtenUpdate(makeApartMediaLibData(0)));
}

TEST(MediaLibrary, EntriesThatAParcelLacksReadAsEmptyItems) {
    const Received received(Words().i32(0x81).cstr("lib").i32(3).i32(3).i64(9));
    ASSERT_EQ(3, received.update->getGroupDataCount());
    EXPECT_EQ(9u, received.entry<iAP2MediaPlaylistDelId>(0).getDelId());
    for (const unsigned int i : {1u, 2u}) {
        EXPECT_EQ(0, received.update->getGroupData(i)->type);
        EXPECT_EQ(0u, received.entry<iAP2MediaItem>(i).getMask());
    }
    EXPECT_EQ(0, received.update->getUpdateProgress());
}

TEST(MediaLibrary, NoMoreEntriesAreMadeThanATransactionCouldCarry) {
    constexpr int kMost =
        (1024 * 1024 - 8 * 1024) / 8;  // a type and a mask are the least that an entry takes
    EXPECT_EQ(kMost, Received(Words().i32(0).i32(0x7fffffff)).update->getGroupDataCount());
    EXPECT_EQ(kMost, Received(Words().i32(0).i32(kMost)).update->getGroupDataCount());
    EXPECT_EQ(kMost - 1, Received(Words().i32(0).i32(kMost - 1)).update->getGroupDataCount());
}

TEST(MediaLibrary, ANegativeCountMakesNoEntry) {
    for (const int64_t count : {int64_t{-1}, -int64_t{0x80000000}}) {
        const Received received(Words().i32(0x80).i32(count).i32(12));
        EXPECT_EQ(0, received.update->getGroupDataCount());
        EXPECT_EQ(12, received.update->getUpdateProgress());
    }
}

TEST(MediaLibrary, UpdateSurvivesAParcelCutAtAnyByte) {
    const Words words = mixedWords();
    const size_t fromCount = 4 + 4 + 8 + 4;  // mask, identifier, revision, count
    for (size_t size = 0; size < words.size(); ++size) {
        const Received received(words, size);
        ASSERT_NE(nullptr, received.update) << size;
        EXPECT_EQ(size < 4 ? 0u : 0x3ffu, received.update->getMask()) << size;
        EXPECT_EQ(size < 8, received.update->getId() == nullptr) << size;
        EXPECT_GE(received.update->getGroupDataCount(), size < fromCount ? 0 : 4) << size;
        EXPECT_NE("", toString(*received.update)) << size;
    }
}

TEST(MediaLibrary, DeletedIdentifiersAreOneInt64) {
    Parcel parcel;
    Words().i64(0x1122334455667788).i64(7).putInto(parcel);
    EXPECT_EQ(0x1122334455667788u, IiAP2MediaItemDelId::FromParcel(parcel)->getDelId());
    EXPECT_EQ(7u, IiAP2MediaPlaylistDelId::FromParcel(parcel)->getDelId());
    EXPECT_EQ(0u, IiAP2MediaItemDelId::FromParcel(parcel)->getDelId());
    EXPECT_EQ(0u, IiAP2MediaPlaylistDelId::FromParcel(parcel)->getDelId());
}

TEST(MediaLibrary, EveryKindOfEntryHasItsType) {
    EXPECT_EQ(0, sp<IiAP2MediaItem>(new IiAP2MediaItem)->type);
    EXPECT_EQ(1, sp<IiAP2MediaPlaylist>(new IiAP2MediaPlaylist)->type);
    EXPECT_EQ(2, sp<IiAP2MediaItemDelId>(new IiAP2MediaItemDelId)->type);
    EXPECT_EQ(3, sp<IiAP2MediaPlaylistDelId>(new IiAP2MediaPlaylistDelId)->type);
}

TEST(MediaLibrary, UpdateLogsEveryWriteThatFailsAndGoesOn) {
    Parcel parcel;
    parcel.setError(android::NO_MEMORY);
    const LogCatcher log;
    IiAP2MediaLibData::writeToParcel(&parcel, mixedUpdate());
    const size_t own = 1 + 2 + 1 + 4;                      // the mask, two strings, the count, four flags
    const size_t entries = (2 + 2) + (2 + 1) + 2 + 2 + 1;  // type and fields of each
    EXPECT_EQ(own + entries, log.lines().size());
    EXPECT_THAT(log.lines(), testing::Each(LoggedStatusCheck("IAppleiAP2Manager", "writeToParcel")));
}

/// Writes @p entry, whose one text is null.
template <typename Entry>
Words writtenWithoutItsText(const sp<Entry>& entry) {
    const LogCatcher log;
    Parcel parcel;
    entry->writeToParcel(&parcel);
    EXPECT_THAT(log.lines(), testing::ElementsAre(LoggedStatusCheck("IAppleiAP2Manager", "writeToParcel")));
    return wordsOf(parcel);
}

TEST(MediaLibrary, ANullTextOfAnEntryIsLoggedAndTheNextFieldIsWritten) {
    const sp<IiAP2MediaItem> item = new IiAP2MediaItem;
    item->setTitle(nullptr).setMediaType(3);
    EXPECT_EQ(Words().i32(0x6).i32(3), writtenWithoutItsText(item));
    const sp<IiAP2MediaPlaylist> playlist = new IiAP2MediaPlaylist;
    playlist->setName(nullptr).setIsGeniusMix(1);
    EXPECT_EQ(Words().i32(0xa).i32(1), writtenWithoutItsText(playlist));
}

TEST(MediaLibrary, UpdateRequestStartsEmpty) {
    const sp<MediaLibUpdateInfo> info = new MediaLibUpdateInfo;
    EXPECT_EQ(nullptr, info->mFirstText);
    EXPECT_EQ(nullptr, info->mSecondText);
    EXPECT_THAT(info->mValues, testing::Each(0));
}

constexpr char kInTheUpdatesWriter[] =
    "AppleiAP2/IAppleiAP2Manager.cpp:[0-9]+: .*accessory::IiAP2MediaLibData::writeToParcel\\(.*";

TEST(MediaLibraryDeathTest, ANullIdentifierThatIsMarkedPresentEndsTheProcess) {
    sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
    update->mMask->mask = 0x1;
    EXPECT_DEATH(writtenUpdate(update), std::string(kInTheUpdatesWriter) + "Assertion `ID' failed");
}

TEST(MediaLibraryDeathTest, ANullRevisionThatIsMarkedPresentEndsTheProcess) {
    sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
    update->mMask->mask = 0x2;
    EXPECT_DEATH(writtenUpdate(update), std::string(kInTheUpdatesWriter) + "Assertion `revision' failed");
}

}  // namespace
}  // namespace accessory::test
