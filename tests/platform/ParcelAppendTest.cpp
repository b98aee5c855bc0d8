// Appending a part of a parcel to another one and to itself.
#include <binder/Binder.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>

#include "tests/platform/ParcelBytes.h"

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using accessory::test::fill;
using accessory::test::hexOf;

namespace {

TEST(ParcelAppend, AppendsARangeOfBytes) {
    Parcel source;
    Parcel target;
    fill(source, "01 00 00 00 02 00 00 00 03 00 00 00");
    target.writeInt32(9);
    EXPECT_EQ(NO_ERROR, target.appendFrom(&source, 4, 8));
    EXPECT_EQ("09 00 00 00 02 00 00 00 03 00 00 00", hexOf(target));
    EXPECT_EQ(12u, target.dataPosition());
}

TEST(ParcelAppend, WritesAtThePositionAndNotAtTheEnd) {
    Parcel source;
    Parcel target;
    fill(source, "01 00 00 00");
    fill(target, "02 00 00 00 03 00 00 00");
    EXPECT_EQ(NO_ERROR, target.appendFrom(&source, 0, 4));
    EXPECT_EQ("01 00 00 00 03 00 00 00", hexOf(target));
}

TEST(ParcelAppend, RefusesRangesOutsideTheSource) {
    Parcel source;
    Parcel target;
    fill(source, "01 00 00 00 02 00 00 00");
    EXPECT_EQ(BAD_VALUE, target.appendFrom(&source, 0, 9));
    EXPECT_EQ(BAD_VALUE, target.appendFrom(&source, 9, 0));
    EXPECT_EQ(BAD_VALUE, target.appendFrom(&source, 4, SIZE_MAX));
    EXPECT_EQ(BAD_VALUE, target.appendFrom(&source, SIZE_MAX, 8));
    EXPECT_EQ(BAD_VALUE, target.appendFrom(&source, SIZE_MAX - 3, 4));
    source.setDataPosition(100);
    EXPECT_EQ(BAD_VALUE, target.appendFrom(&source, 0, 100));
    EXPECT_EQ(NO_ERROR, target.appendFrom(&source, 8, 0));
    EXPECT_EQ(0u, target.dataSize());
    EXPECT_EQ(NO_ERROR, target.errorCheck());
}

TEST(ParcelAppend, TakesObjectsThatLieWhollyWithin) {
    const sp<IBinder> binders[] = {new BBinder, new BBinder, new BBinder};
    Parcel source;
    for (const sp<IBinder>& binder : binders)
        source.writeStrongBinder(binder);
    Parcel target;
    target.writeInt32(1);
    EXPECT_EQ(NO_ERROR, target.appendFrom(&source, 4, 64));
    EXPECT_EQ(1u, target.objectsCount());
    target.setDataPosition(4 + 24 - 4);
    EXPECT_EQ(binders[1], target.readStrongBinder());
    EXPECT_EQ(3u, source.objectsCount());
}

TEST(ParcelAppend, KeepsReferencesOfItsOwn) {
    const sp<IBinder> binder = new BBinder;
    Parcel target;
    {
        Parcel source;
        source.writeStrongBinder(binder);
        EXPECT_EQ(NO_ERROR, target.appendFrom(&source, 0, 24));
        EXPECT_EQ(3, binder->getStrongCount());
    }
    EXPECT_EQ(2, binder->getStrongCount());
}

TEST(ParcelAppend, DuplicatesDescriptorsWithCloseOnExec) {
    Parcel target;
    int original = -1;
    {
        Parcel source;
        source.writeFileDescriptor(::open("/dev/null", O_RDONLY), true);
        EXPECT_EQ(NO_ERROR, target.appendFrom(&source, 0, 24));
        source.setDataPosition(0);
        original = source.readFileDescriptor();
    }
    EXPECT_EQ(-1, ::fcntl(original, F_GETFD));
    target.setDataPosition(0);
    const int copy = target.readFileDescriptor();
    EXPECT_NE(original, copy);
    EXPECT_EQ(FD_CLOEXEC, ::fcntl(copy, F_GETFD));
    EXPECT_EQ(copy, target.data()[8]);
    EXPECT_EQ(1, target.data()[16]);
    target.freeData();
    EXPECT_EQ(-1, ::fcntl(copy, F_GETFD));
}

TEST(ParcelAppend, FailsWholeWhenADescriptorCannotBeDuplicated) {
    Parcel source;
    const int fd = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    source.writeFileDescriptor(fd);
    source.writeFileDescriptor(fd);
    ::close(fd);
    Parcel target;
    target.writeInt32(1);
    EXPECT_EQ(-EBADF, target.appendFrom(&source, 0, 48));
    EXPECT_EQ("01 00 00 00", hexOf(target));
    EXPECT_EQ(0u, target.objectsCount());
    EXPECT_EQ(-EBADF, target.errorCheck());
}

TEST(ParcelAppend, AppendsToItselfWhileItGrows) {
    Parcel parcel;
    parcel.setDataSize(512);
    parcel.setDataPosition(0);
    parcel.writeInt32(0x11223344);
    const sp<IBinder> binder = new BBinder;
    parcel.writeStrongBinder(binder);
    parcel.setDataPosition(512);
    EXPECT_EQ(NO_ERROR, parcel.appendFrom(&parcel, 0, 512));
    EXPECT_EQ(1024u, parcel.dataSize());
    EXPECT_EQ(2u, parcel.objectsCount());
    for (const size_t start : {0, 512}) {
        parcel.setDataPosition(start);
        EXPECT_EQ(0x11223344, parcel.readInt32());
        EXPECT_EQ(binder, parcel.readStrongBinder());
        EXPECT_EQ(0, parcel.readInt32());
    }
}

TEST(ParcelAppend, AppendsToItselfOverWhatItCopies) {
    Parcel parcel;
    const sp<IBinder> binders[] = {new BBinder, new BBinder};
    parcel.writeStrongBinder(binders[0]);
    parcel.writeStrongBinder(binders[1]);
    parcel.setDataPosition(24);
    EXPECT_EQ(NO_ERROR, parcel.appendFrom(&parcel, 0, 48));
    EXPECT_EQ(72u, parcel.dataSize());
    EXPECT_EQ(3u, parcel.objectsCount());
    parcel.setDataPosition(0);
    EXPECT_EQ(binders[0], parcel.readStrongBinder());
    EXPECT_EQ(binders[0], parcel.readStrongBinder());
    EXPECT_EQ(binders[1], parcel.readStrongBinder());
}

TEST(ParcelAppend, DropsObjectsThatItWritesOver) {
    Parcel source;
    fill(source, "01 00 00 00");
    Parcel target;
    target.writeStrongBinder(new BBinder);
    target.setDataPosition(20);
    EXPECT_EQ(NO_ERROR, target.appendFrom(&source, 0, 4));
    EXPECT_EQ(0u, target.objectsCount());
}

}  // namespace
