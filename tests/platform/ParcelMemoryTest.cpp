// Size, position and capacity of a parcel.
#include <gtest/gtest.h>

#include "platform/binder/src/ParcelAccess.h"
#include "tests/platform/ParcelBytes.h"

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using accessory::test::fill;
using accessory::test::hexOf;

namespace {

TEST(ParcelMemory, CountsAPositionPastTheEndAsSize) {
    Parcel parcel;
    parcel.writeInt32(1);
    parcel.setDataPosition(100);
    EXPECT_EQ(100u, parcel.dataSize());
    EXPECT_EQ(4u, runtime::ParcelAccess::size(parcel));
    parcel.setDataPosition(0);
    EXPECT_EQ(4u, parcel.dataSize());
    EXPECT_EQ(4u, parcel.dataAvail());
}

TEST(ParcelMemory, KeepsItsContentWhileItGrows) {
    Parcel parcel;
    for (int32_t i = 0; i < 100'000; ++i)
        ASSERT_EQ(NO_ERROR, parcel.writeInt32(i));
    EXPECT_EQ(400'000u, parcel.dataSize());
    parcel.setDataPosition(0);
    for (int32_t i = 0; i < 100'000; ++i)
        ASSERT_EQ(i, parcel.readInt32());
}

TEST(ParcelMemory, GrowsByHalfSoThatWritingStaysCheap) {
    Parcel parcel;
    parcel.setDataSize(2'000'000);
    parcel.setDataPosition(2'000'000);
    parcel.writeInt32(1);
    EXPECT_EQ(3'000'006u, parcel.dataCapacity());
}

TEST(ParcelMemory, ExtendsWithZeros) {
    Parcel parcel;
    fill(parcel, "ff ff ff ff ff ff ff ff");
    EXPECT_EQ(NO_ERROR, parcel.setDataSize(3));
    EXPECT_EQ(NO_ERROR, parcel.setDataSize(8));
    EXPECT_EQ("ff ff ff 00 00 00 00 00", hexOf(parcel));
}

TEST(ParcelMemory, MovesThePositionBackWhenItIsCutOff) {
    Parcel parcel;
    fill(parcel, "01 00 00 00 02 00 00 00");
    parcel.setDataPosition(8);
    EXPECT_EQ(NO_ERROR, parcel.setDataSize(4));
    EXPECT_EQ(4u, parcel.dataPosition());
    EXPECT_EQ(4u, parcel.dataSize());
}

TEST(ParcelMemory, OnlyEverRaisesTheCapacity) {
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.setDataCapacity(100'000));
    EXPECT_EQ(131'072u, parcel.dataCapacity());
    EXPECT_EQ(0u, parcel.dataSize());
    EXPECT_EQ(NO_ERROR, parcel.setDataCapacity(1));
    EXPECT_EQ(131'072u, parcel.dataCapacity());
}

TEST(ParcelMemory, RefusesSizesBeyondTheLimit) {
    Parcel parcel;
    for (const size_t size : {size_t{INT32_MAX} + 1, SIZE_MAX / 2 + 1, SIZE_MAX}) {
        EXPECT_EQ(BAD_VALUE, parcel.setDataSize(size));
        EXPECT_EQ(BAD_VALUE, parcel.setDataCapacity(size));
        EXPECT_EQ(BAD_VALUE, parcel.setData(parcel.data(), size));
    }
    EXPECT_EQ(0u, parcel.dataSize());
}

TEST(ParcelMemory, TakesACopyOfPlainBytes) {
    Parcel parcel;
    parcel.writeInt64(-1);
    const uint8_t bytes[] = {1, 2, 3};
    EXPECT_EQ(NO_ERROR, parcel.setData(bytes, 3));
    EXPECT_EQ("01 02 03", hexOf(parcel));
    EXPECT_EQ(0u, parcel.dataPosition());
}

TEST(ParcelMemory, CanBeSetToAPartOfItself) {
    Parcel parcel;
    fill(parcel, "01 00 00 00 02 00 00 00 03 00 00 00");
    EXPECT_EQ(NO_ERROR, parcel.setData(parcel.data() + 4, 8));
    EXPECT_EQ("02 00 00 00 03 00 00 00", hexOf(parcel));
}

TEST(ParcelMemory, CanBeSetToNothing) {
    Parcel parcel;
    parcel.writeInt32(1);
    EXPECT_EQ(NO_ERROR, parcel.setData(nullptr, 0));
    EXPECT_EQ(0u, parcel.dataSize());
    EXPECT_EQ(BAD_VALUE, parcel.setData(nullptr, 1));
}

TEST(ParcelMemory, IsEmptyAgainAfterFreeData) {
    Parcel parcel;
    parcel.writeInt32(1);
    parcel.setError(BAD_TYPE);
    EXPECT_EQ(BAD_TYPE, parcel.writeInt32(2));
    parcel.freeData();
    EXPECT_EQ(NO_ERROR, parcel.errorCheck());
    EXPECT_EQ(0u, parcel.dataSize());
    EXPECT_EQ(0u, parcel.dataCapacity());
    EXPECT_EQ(NO_ERROR, parcel.writeInt32(3));
    EXPECT_EQ("03 00 00 00", hexOf(parcel));
}

}  // namespace
