// How the two now-playing records treat strings, each in its own way.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/AppleiAP2/records/NowPlayingSamples.h"
#include "tests/AppleiAP2/records/RecordMask.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using android::Parcel;
using android::sp;
using testing::IsEmpty;

TEST(ItemAttribute, CarriesTheLengthWithTheNulBeforeAString) {
    sp<IiAP2ItemAttribute> record = new IiAP2ItemAttribute;
    record->setTitle("abc");
    EXPECT_EQ(Words().i32(0x2).i32(4).i32(0x00636261), written(record));
}

TEST(ItemAttribute, CarriesALengthOfOneForAnEmptyString) {
    sp<IiAP2ItemAttribute> record = new IiAP2ItemAttribute;
    record->setTitle("");
    EXPECT_EQ(Words().i32(0x2).i32(1).i32(0), written(record));
}

TEST(ItemAttribute, CarriesALengthOfZeroAloneForANullString) {
    const LogCatcher log;
    sp<IiAP2ItemAttribute> record = new IiAP2ItemAttribute;
    record->setTitle(nullptr);
    EXPECT_EQ(Words().i32(0x2).i32(0), written(record));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(ItemAttribute, ReadsOnAfterANullString) {
    Parcel parcel;
    Words().i32(0x52).i32(0).i32(215000).i32(13).cstr("Kind of Blue").putInto(parcel);
    const auto record = IiAP2ItemAttribute::FromParcel(parcel);
    EXPECT_EQ(nullptr, record->getTitle());
    EXPECT_EQ(215000, record->getDurationInMillSec());
    EXPECT_STREQ("Kind of Blue", record->getAlbumTitle());
}

TEST(ItemAttribute, TakesTheLengthForNothingButPresence) {
    Parcel parcel;
    Words().i32(0x42).i32(0x7fffffff).cstr("Blue").i32(1).cstr("Kind of Blue").putInto(parcel);
    const auto record = IiAP2ItemAttribute::FromParcel(parcel);
    EXPECT_STREQ("Blue", record->getTitle());
    EXPECT_STREQ("Kind of Blue", record->getAlbumTitle());
}

TEST(ItemAttribute, ReadsANegativeLengthAsANullString) {
    Parcel parcel;
    Words().i32(0x42).i32(-1).i32(2).cstr("A").putInto(parcel);
    const auto record = IiAP2ItemAttribute::FromParcel(parcel);
    EXPECT_EQ(nullptr, record->getTitle());
    EXPECT_STREQ("A", record->getAlbumTitle());
}

TEST(MediaPlayback, LeavesANullStringOutWithoutAWord) {
    const LogCatcher log;
    for (const int bit : {7, 8, 10, 16}) {
        sp<IiAP2MediaPlayback> record = new IiAP2MediaPlayback;
        record->mMask->mask = 1u << bit;
        EXPECT_EQ(Words().i32(1 << bit), written(record)) << bit;
    }
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(MediaPlayback, TakesWhatFollowsForAStringThatWasLeftOut) {
    const LogCatcher log;
    sp<IiAP2MediaPlayback> sent = new IiAP2MediaPlayback;
    sent->setAppName(nullptr).setLibraryUniqueldID("A1B2");
    Parcel parcel;
    IiAP2MediaPlayback::writeToParcel(&parcel, sent);
    EXPECT_EQ(Words().i32(0x180).cstr("A1B2"), wordsOf(parcel));
    parcel.setDataPosition(0);
    const auto received = IiAP2MediaPlayback::FromParcel(parcel);
    EXPECT_STREQ("A1B2", received->getAppName());
    EXPECT_EQ(nullptr, received->getLibraryUniqueldID());
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(MediaPlayback, CarriesAPlaylistIdentifierAsOneInt64) {
    sp<IiAP2MediaPlayback> record = new IiAP2MediaPlayback;
    record->setRadioMediaPlayListID(0x1122334455667788);
    EXPECT_EQ(Words().i32(0x800).i32(0x55667788).i32(0x11223344), written(record));
}

}  // namespace
}  // namespace accessory::test
