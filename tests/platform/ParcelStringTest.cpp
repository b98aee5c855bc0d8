// The three kinds of strings: their bytes, and what becomes of broken ones.
#include <gtest/gtest.h>

#include <string>

#include "tests/platform/ParcelBytes.h"

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using accessory::test::bytesFrom;
using accessory::test::fill;
using accessory::test::hexOf;

namespace {

/// -1, INT32_MIN, INT32_MAX, and lengths whose size in bytes overflows 32 bits when it is computed naively.
const char* const kHostileTextLengths[] = {"ff ff ff ff", "00 00 00 80", "ff ff ff 7f", "fe ff ff 7f",
                                           "ff ff ff 3f", "00 00 00 40", "fd ff ff 7f"};

std::string lengthAndText(const char* length) { return std::string(length) + " 61 00 62 00 00 00 00 00"; }

std::string textOf(const String16& str) { return String8(str).string(); }

TEST(ParcelString, WritesACStringWithItsNulAndPadding) {
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.writeCString(""));
    EXPECT_EQ(NO_ERROR, parcel.writeCString("abc"));
    EXPECT_EQ(NO_ERROR, parcel.writeCString("abcd"));
    EXPECT_EQ("00 00 00 00 61 62 63 00 61 62 63 64 00 00 00 00", hexOf(parcel));
}

TEST(ParcelString, RefusesANullCStringAndWritesNothing) {
    Parcel parcel;
    EXPECT_EQ(BAD_VALUE, parcel.writeCString(nullptr));
    EXPECT_EQ(0u, parcel.dataSize());
    EXPECT_EQ(NO_ERROR, parcel.writeInt32(1));
}

TEST(ParcelString, ReadsCStringsOneAfterTheOther) {
    Parcel parcel;
    fill(parcel, "00 00 00 00 61 62 63 00 61 62 63 64 00 00 00 00 2a 00 00 00");
    EXPECT_STREQ("", parcel.readCString());
    EXPECT_STREQ("abc", parcel.readCString());
    EXPECT_STREQ("abcd", parcel.readCString());
    EXPECT_EQ(42, parcel.readInt32());
    EXPECT_EQ(nullptr, parcel.readCString());
}

TEST(ParcelString, ReadsACStringUpToItsFirstNul) {
    Parcel parcel;
    fill(parcel, "61 00 62 00 63 00 00 00");
    EXPECT_STREQ("a", parcel.readCString());
    EXPECT_STREQ("c", parcel.readCString());
}

TEST(ParcelString, ReadsNoCStringWithoutANul) {
    const std::vector<uint8_t> bytes = bytesFrom("61 62 63 64 65 00 00 00");
    for (size_t size = 0; size <= 5; ++size) {
        Parcel parcel;
        parcel.setData(bytes.data(), size);
        EXPECT_EQ(nullptr, parcel.readCString()) << size;
        EXPECT_EQ(0u, parcel.dataPosition()) << size;
    }
}

TEST(ParcelString, ReadsACStringThatLacksOnlyItsPaddingAndStopsAtTheEnd) {
    const std::vector<uint8_t> bytes = bytesFrom("61 62 63 64 65 00 00 00");
    for (size_t size = 6; size <= 8; ++size) {
        Parcel parcel;
        parcel.setData(bytes.data(), size);
        EXPECT_STREQ("abcde", parcel.readCString()) << size;
        EXPECT_EQ(size, parcel.dataPosition());
        EXPECT_EQ(size, parcel.dataSize());
    }
}

TEST(ParcelString, WritesAString8WithItsLength) {
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.writeString8(String8("abcd")));
    EXPECT_EQ(NO_ERROR, parcel.writeString8(String8("")));
    EXPECT_EQ("04 00 00 00 61 62 63 64 00 00 00 00 00 00 00 00", hexOf(parcel));
}

TEST(ParcelString, ReadsAString8) {
    Parcel parcel;
    fill(parcel, "04 00 00 00 61 62 63 64 00 00 00 00 00 00 00 00 02 00 00 00 7a 79 00 00");
    EXPECT_STREQ("abcd", parcel.readString8().string());
    String8 str("old");
    EXPECT_EQ(NO_ERROR, parcel.readString8(&str));
    EXPECT_STREQ("", str.string());
    EXPECT_EQ(NO_ERROR, parcel.readString8(&str));
    EXPECT_STREQ("zy", str.string());
    EXPECT_EQ(0u, parcel.dataAvail());
}

TEST(ParcelString, RefusesAString8WithAHostileLength) {
    for (const char* length : kHostileTextLengths) {
        Parcel parcel;
        fill(parcel, lengthAndText(length));
        String8 str("old");
        EXPECT_EQ(BAD_VALUE, parcel.readString8(&str)) << length;
        EXPECT_STREQ("", str.string());
        EXPECT_EQ(4u, parcel.dataPosition());
        parcel.setDataPosition(0);
        EXPECT_STREQ("", parcel.readString8().string());
    }
}

TEST(ParcelString, RefusesAString8ThatIsCutAnywhere) {
    const std::vector<uint8_t> bytes = bytesFrom("05 00 00 00 61 62 63 64 65 00 00 00");
    for (size_t size = 0; size < bytes.size(); ++size) {
        Parcel parcel;
        parcel.setData(bytes.data(), size);
        String8 str("old");
        EXPECT_EQ(size < 4 ? NOT_ENOUGH_DATA : BAD_VALUE, parcel.readString8(&str)) << size;
        EXPECT_STREQ("", str.string());
    }
}

TEST(ParcelString, RefusesStringsWithoutTheirNul) {
    Parcel parcel;
    String8 narrow("old");
    String16 wide("old");
    fill(parcel, "03 00 00 00 61 62 63 64");
    EXPECT_EQ(BAD_VALUE, parcel.readString8(&narrow));
    fill(parcel, "01 00 00 00 61 00 62 00");
    EXPECT_EQ(UNEXPECTED_NULL, parcel.readString16(&wide));
    fill(parcel, "01 00 00 00 61 00 00 01");
    EXPECT_EQ(UNEXPECTED_NULL, parcel.readString16(&wide));
    EXPECT_EQ(0u, narrow.size() + wide.size());
}

TEST(ParcelString, WritesAString16WithItsLengthInUnits) {
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.writeString16(String16("ab")));
    EXPECT_EQ(NO_ERROR, parcel.writeString16(u"\xe9xy", 1));
    EXPECT_EQ(NO_ERROR, parcel.writeString16(String16("")));
    EXPECT_EQ(NO_ERROR, parcel.writeString16(nullptr, 5));
    EXPECT_EQ(
        "02 00 00 00 61 00 62 00 00 00 00 00 "
        "01 00 00 00 e9 00 00 00 "
        "00 00 00 00 00 00 00 00 "
        "ff ff ff ff",
        hexOf(parcel));
}

TEST(ParcelString, RefusesAString16ThatNoParcelCanHold) {
    Parcel parcel;
    for (const size_t len :
         {size_t{INT32_MAX} / 2, size_t{INT32_MAX}, SIZE_MAX / 2, SIZE_MAX - 1, SIZE_MAX}) {
        EXPECT_EQ(BAD_VALUE, parcel.writeString16(u"", len)) << len;
    }
    EXPECT_EQ(0u, parcel.dataSize());
}

TEST(ParcelString, ReadsAString16) {
    Parcel parcel;
    fill(parcel, "02 00 00 00 61 00 62 00 00 00 00 00 01 00 00 00 7a 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ("ab", textOf(parcel.readString16()));
    String16 str("old");
    EXPECT_EQ(NO_ERROR, parcel.readString16(&str));
    EXPECT_EQ("z", textOf(str));
    EXPECT_EQ(NO_ERROR, parcel.readString16(&str));
    EXPECT_EQ("", textOf(str));
    EXPECT_EQ(0u, parcel.dataAvail());
}

TEST(ParcelString, ReadsAString16WhereItLies) {
    Parcel parcel;
    fill(parcel, "02 00 00 00 61 00 62 00 00 00 00 00");
    size_t len = 9;
    const char16_t* const str = parcel.readString16Inplace(&len);
    EXPECT_EQ(static_cast<const void*>(parcel.data() + 4), static_cast<const void*>(str));
    EXPECT_EQ(2u, len);
}

TEST(ParcelString, ReadsAString16AtAPositionThatIsNotAligned) {
    Parcel parcel;
    fill(parcel, "ff 01 00 00 00 61 00 00 00");
    parcel.setDataPosition(1);
    EXPECT_EQ("a", textOf(parcel.readString16()));
}

TEST(ParcelString, TellsANullString16FromAnEmptyOne) {
    Parcel parcel;
    fill(parcel, "ff ff ff ff 00 00 00 00 00 00 00 00");
    size_t len = 9;
    String16 str("old");
    EXPECT_EQ(nullptr, parcel.readString16Inplace(&len));
    EXPECT_EQ(0u, len);
    EXPECT_NE(nullptr, parcel.readString16Inplace(&len));
    EXPECT_EQ(0u, len);
    parcel.setDataPosition(0);
    EXPECT_EQ(UNEXPECTED_NULL, parcel.readString16(&str));
    EXPECT_EQ(0u, str.size());
}

TEST(ParcelString, RefusesAString16WithAHostileLength) {
    for (const char* length : kHostileTextLengths) {
        Parcel parcel;
        fill(parcel, lengthAndText(length));
        size_t len = 9;
        EXPECT_EQ(nullptr, parcel.readString16Inplace(&len)) << length;
        EXPECT_EQ(0u, len);
        EXPECT_EQ(4u, parcel.dataPosition());
    }
}

TEST(ParcelString, RefusesAString16ThatIsCutAnywhere) {
    const std::vector<uint8_t> bytes = bytesFrom("02 00 00 00 61 00 62 00 00 00 00 00");
    for (size_t size = 0; size < bytes.size(); ++size) {
        Parcel parcel;
        parcel.setData(bytes.data(), size);
        String16 str("old");
        EXPECT_EQ(UNEXPECTED_NULL, parcel.readString16(&str)) << size;
        EXPECT_EQ(0u, str.size());
    }
}

}  // namespace
