// What a parcel asks of the heap. A program of its own: see CountingHeap.
#include <binder/Binder.h>
#include <gtest/gtest.h>

#include "tests/platform/CountingHeap.h"
#include "tests/platform/ParcelBytes.h"

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using accessory::test::allocations;
using accessory::test::Exhaustion;
using accessory::test::hexOf;

namespace {

void writeAndReadAFew() {
    Parcel parcel;
    parcel.writeInterfaceToken(String16("a.B"));
    for (int32_t i = 0; i < 200; ++i)
        parcel.writeInt32(i);
    parcel.writeCString("text");
    parcel.writeStrongBinder(nullptr);
    parcel.setDataPosition(0);
    parcel.enforceInterface(String16("a.B"));
    while (parcel.dataAvail() > 0)
        parcel.readInt32();
}

TEST(ParcelAllocation, DoesWithoutTheHeapOnceTheThreadIsWarm) {
    writeAndReadAFew();
    const size_t before = allocations();
    writeAndReadAFew();
    EXPECT_EQ(before, allocations());
}

TEST(ParcelAllocation, ServesSeveralParcelsAtOnceOnceTheThreadIsWarm) {
    const auto request = [] {
        Parcel data;
        Parcel reply;
        data.writeInt32(1);
        reply.writeInt32(1);
    };
    request();
    const size_t before = allocations();
    request();
    EXPECT_EQ(before, allocations());
}

TEST(ParcelAllocation, AnswersWithNoMemoryAndKeepsItsContent) {
    Parcel parcel;
    parcel.setDataSize(100'000);
    const size_t capacity = parcel.dataCapacity();
    {
        const Exhaustion exhaustion;
        EXPECT_EQ(NO_MEMORY, parcel.setDataCapacity(capacity + 1));
    }
    EXPECT_EQ(NO_MEMORY, parcel.errorCheck());
    EXPECT_EQ(NO_MEMORY, parcel.writeInt32(1));
    EXPECT_EQ(NO_MEMORY, parcel.writeCString("a"));
    EXPECT_EQ(NO_MEMORY, parcel.writeString16(String16("a")));
    EXPECT_EQ(nullptr, parcel.writeInplace(4));
    EXPECT_EQ(100'000u, parcel.dataSize());
}

TEST(ParcelAllocation, AnswersWithNoMemoryWhenAWriteCannotGrow) {
    Parcel parcel;
    const Exhaustion exhaustion;
    EXPECT_EQ(nullptr, parcel.writeInplace(100'000));
    EXPECT_EQ(NO_MEMORY, parcel.writeInt32(1));
    EXPECT_EQ(0u, parcel.dataSize());
}

TEST(ParcelAllocation, KeepsTheOldContentWhenNewBytesFindNoMemory) {
    Parcel parcel;
    parcel.writeInt32(1);
    const std::vector<uint8_t> bytes(2'000'000);  // more than any block that is kept
    const Exhaustion exhaustion;
    EXPECT_EQ(NO_MEMORY, parcel.setData(bytes.data(), bytes.size()));
    EXPECT_EQ(4u, parcel.dataSize());
}

TEST(ParcelAllocation, RefusesABinderThatCannotBeListed) {
    const sp<IBinder> binder = new BBinder;
    Parcel parcel;
    parcel.writeInt32(1);
    status_t status = NO_ERROR;
    {
        const Exhaustion exhaustion;
        status = parcel.writeStrongBinder(binder);
    }
    EXPECT_EQ(NO_MEMORY, status);
    EXPECT_EQ("01 00 00 00", hexOf(parcel));
    EXPECT_EQ(1, binder->getStrongCount());
}

TEST(ParcelAllocation, RefusesToAppendObjectsThatCannotBeListed) {
    Parcel source;
    Parcel target;
    source.writeStrongBinder(new BBinder);
    target.writeInt32(1);
    status_t status = NO_ERROR;
    {
        const Exhaustion exhaustion;
        status = target.appendFrom(&source, 0, 24);
    }
    EXPECT_EQ(NO_MEMORY, status);
    EXPECT_EQ("01 00 00 00", hexOf(target));
    EXPECT_EQ(0u, target.objectsCount());
}

}  // namespace
