// What plain values look like in a parcel, and what a write refuses.
#include <gtest/gtest.h>

#include <cstring>

#include "tests/platform/ParcelBytes.h"

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using accessory::test::fill;
using accessory::test::hexOf;
using accessory::test::kHostileSizes;

namespace {

TEST(ParcelWrite, BeginsEmpty) {
    Parcel parcel;
    EXPECT_EQ(0u, parcel.dataSize());
    EXPECT_EQ(0u, parcel.dataPosition());
    EXPECT_EQ(0u, parcel.dataCapacity());
    EXPECT_EQ(NO_ERROR, parcel.errorCheck());
}

TEST(ParcelWrite, WritesInt32InFourBytes) {
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.writeInt32(0x12345678));
    EXPECT_EQ(NO_ERROR, parcel.writeInt32(-2));
    EXPECT_EQ(NO_ERROR, parcel.writeUint32(0xfffffffe));
    EXPECT_EQ("78 56 34 12 fe ff ff ff fe ff ff ff", hexOf(parcel));
}

TEST(ParcelWrite, WritesInt64InEightBytesWithoutAligningThem) {
    Parcel parcel;
    parcel.writeInt32(1);
    EXPECT_EQ(NO_ERROR, parcel.writeInt64(0x0123456789abcdef));
    EXPECT_EQ(NO_ERROR, parcel.writeUint64(0xfedcba9876543210));
    EXPECT_EQ("01 00 00 00 ef cd ab 89 67 45 23 01 10 32 54 76 98 ba dc fe", hexOf(parcel));
}

TEST(ParcelWrite, WritesFloatsAsTheirBits) {
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.writeFloat(1.5f));
    EXPECT_EQ(NO_ERROR, parcel.writeDouble(-2.0));
    EXPECT_EQ("00 00 c0 3f 00 00 00 00 00 00 00 c0", hexOf(parcel));
}

TEST(ParcelWrite, WritesSmallValuesAsInt32) {
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.writeBool(true));
    EXPECT_EQ(NO_ERROR, parcel.writeBool(false));
    EXPECT_EQ(NO_ERROR, parcel.writeByte(-1));
    EXPECT_EQ(NO_ERROR, parcel.writeChar(u'\xffee'));
    EXPECT_EQ("01 00 00 00 00 00 00 00 ff ff ff ff ee ff 00 00", hexOf(parcel));
}

TEST(ParcelWrite, FillsUpRawBytesWithZeros) {
    Parcel parcel;
    fill(parcel, "ff ff ff ff ff ff ff ff");
    EXPECT_EQ(NO_ERROR, parcel.write("abcde", 5));
    EXPECT_EQ("61 62 63 64 65 00 00 00", hexOf(parcel));
}

TEST(ParcelWrite, WritesNothingForNoBytes) {
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.write(nullptr, 0));
    EXPECT_EQ(NO_ERROR, parcel.write("x", 0));
    EXPECT_EQ(0u, parcel.dataSize());
}

TEST(ParcelWrite, RefusesLengthsThatNoParcelCanHold) {
    Parcel parcel;
    const char byte = 0;
    for (const size_t len : kHostileSizes) {
        EXPECT_EQ(BAD_VALUE, parcel.write(&byte, len)) << len;
        EXPECT_EQ(nullptr, parcel.writeInplace(len)) << len;
        EXPECT_EQ(BAD_VALUE, parcel.writeByteArray(len, reinterpret_cast<const uint8_t*>(&byte))) << len;
    }
    EXPECT_EQ(BAD_VALUE, parcel.write(nullptr, 4));
    EXPECT_EQ(0u, parcel.dataSize());
    EXPECT_EQ(NO_ERROR, parcel.errorCheck());
}

TEST(ParcelWrite, RemembersThatItWouldHaveGrownBeyondTheLimit) {
    Parcel parcel;
    parcel.writeInt32(7);
    EXPECT_EQ(nullptr, parcel.writeInplace(INT32_MAX));
    EXPECT_EQ(NO_MEMORY, parcel.errorCheck());
    EXPECT_EQ(NO_MEMORY, parcel.writeInt32(8));
    EXPECT_EQ(NO_MEMORY, parcel.write(nullptr, 0));
    EXPECT_EQ("07 00 00 00", hexOf(parcel));
    parcel.freeData();
    EXPECT_EQ(NO_ERROR, parcel.writeInt32(9));
}

TEST(ParcelWrite, CannotWriteAtAnAbsurdPosition) {
    for (const size_t pos : {size_t{INT32_MAX}, size_t{INT32_MAX} - 3, SIZE_MAX - 3, SIZE_MAX}) {
        Parcel parcel;
        parcel.writeInt32(1);
        parcel.setDataPosition(pos);
        EXPECT_EQ(NO_MEMORY, parcel.writeInt32(1)) << pos;
        parcel.setDataPosition(0);
        EXPECT_EQ("01 00 00 00", hexOf(parcel));
    }
}

TEST(ParcelWrite, HandsOutRoomToBeFilledInPlace) {
    Parcel parcel;
    void* const room = parcel.writeInplace(6);
    ASSERT_NE(nullptr, room);
    std::memcpy(room, "abcdef", 6);
    parcel.writeInt32(1);
    EXPECT_EQ("61 62 63 64 65 66 00 00 01 00 00 00", hexOf(parcel));
    EXPECT_NE(nullptr, Parcel().writeInplace(0));
}

TEST(ParcelWrite, WritesOverWhatIsThereAndKeepsTheRest) {
    Parcel parcel;
    fill(parcel, "01 00 00 00 02 00 00 00 03 00 00 00");
    parcel.setDataPosition(4);
    parcel.writeInt32(9);
    EXPECT_EQ(8u, parcel.dataPosition());
    EXPECT_EQ("01 00 00 00 09 00 00 00 03 00 00 00", hexOf(parcel));
}

TEST(ParcelWrite, FillsTheGapBeforeAPositionPastTheEndWithZeros) {
    Parcel parcel;
    fill(parcel, "ff ff ff ff ff ff ff ff ff ff ff ff ff ff ff ff");
    parcel.setDataSize(2);
    parcel.setDataPosition(8);
    parcel.writeInt32(1);
    EXPECT_EQ("ff ff 00 00 00 00 00 00 01 00 00 00", hexOf(parcel));
}

TEST(ParcelWrite, WritesAtAPositionThatIsNotAligned) {
    Parcel parcel;
    fill(parcel, "aa aa aa aa aa aa aa aa aa");
    parcel.setDataPosition(1);
    EXPECT_EQ(NO_ERROR, parcel.writeInt64(1));
    EXPECT_EQ("aa 01 00 00 00 00 00 00 00", hexOf(parcel));
}

TEST(ParcelWrite, WritesArraysWithTheirLength) {
    Parcel parcel;
    const uint8_t bytes[] = {1, 2, 3, 4, 5};
    const int32_t words[] = {-1, 2};
    EXPECT_EQ(NO_ERROR, parcel.writeByteArray(5, bytes));
    EXPECT_EQ(NO_ERROR, parcel.writeInt32Array(2, words));
    EXPECT_EQ("05 00 00 00 01 02 03 04 05 00 00 00 02 00 00 00 ff ff ff ff 02 00 00 00", hexOf(parcel));
}

TEST(ParcelWrite, WritesMinusOneForANullArrayAndZeroForAnEmptyOne) {
    Parcel parcel;
    const uint8_t byte = 0;
    const int32_t word = 0;
    EXPECT_EQ(NO_ERROR, parcel.writeByteArray(3, nullptr));
    EXPECT_EQ(NO_ERROR, parcel.writeInt32Array(3, nullptr));
    EXPECT_EQ(NO_ERROR, parcel.writeByteArray(0, &byte));
    EXPECT_EQ(NO_ERROR, parcel.writeInt32Array(0, &word));
    EXPECT_EQ("ff ff ff ff ff ff ff ff 00 00 00 00 00 00 00 00", hexOf(parcel));
}

TEST(ParcelWrite, RefusesAnArrayWhoseBytesCannotBeCounted) {
    Parcel parcel;
    const int32_t word = 0;
    EXPECT_EQ(BAD_VALUE, parcel.writeInt32Array(INT32_MAX / 4 + 1, &word));
    EXPECT_EQ(BAD_VALUE, parcel.writeInt32Array(SIZE_MAX / 4 + 1, &word));
    EXPECT_EQ(0u, parcel.dataSize());
}

TEST(ParcelWrite, WritesZeroForNoException) {
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.writeNoException());
    EXPECT_EQ("00 00 00 00", hexOf(parcel));
}

}  // namespace
