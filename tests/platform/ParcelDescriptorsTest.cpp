// Descriptors in a parcel: who owns them, and that each is closed exactly once.
#include <binder/Binder.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>

#include "platform/binder/src/ParcelAccess.h"
#include "tests/platform/ParcelBytes.h"

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using accessory::test::hexOf;
using runtime::ParcelAccess;

namespace {

/// A high number that nothing else opens meanwhile, so that the bytes can be spelled out.
constexpr int kFd = 300;

bool isOpen(int fd) { return ::fcntl(fd, F_GETFD) >= 0; }

class ParcelDescriptors : public testing::Test {
  protected:
    void SetUp() override {
        const int fd = ::open("/dev/null", O_RDWR | O_CLOEXEC);
        ASSERT_EQ(kFd, ::dup2(fd, kFd));
        ::close(fd);
    }
    void TearDown() override { ::close(kFd); }
};

TEST_F(ParcelDescriptors, WritesADescriptorWithItsNumberAndOwnership) {
    Parcel borrowing;
    EXPECT_EQ(NO_ERROR, borrowing.writeFileDescriptor(kFd));
    EXPECT_EQ("85 2a 64 66 7f 01 00 00 2c 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00", hexOf(borrowing));
    EXPECT_TRUE(borrowing.hasFileDescriptors());
    Parcel owning;
    EXPECT_EQ(NO_ERROR, owning.writeFileDescriptor(kFd, true));
    EXPECT_EQ("85 2a 64 66 7f 01 00 00 2c 01 00 00 00 00 00 00 01 00 00 00 00 00 00 00", hexOf(owning));
}

TEST_F(ParcelDescriptors, ClosesWhatItOwnsAndNothingElse) {
    Parcel().writeFileDescriptor(kFd, false);
    EXPECT_TRUE(isOpen(kFd));
    Parcel().writeFileDescriptor(kFd, true);
    EXPECT_FALSE(isOpen(kFd));
}

TEST_F(ParcelDescriptors, ClosesWhatItOwnsOnlyOnce) {
    Parcel parcel;
    parcel.writeFileDescriptor(kFd, true);
    parcel.writeStrongBinder(new BBinder);
    parcel.setDataPosition(0);
    parcel.writeInt32(0);
    ASSERT_FALSE(isOpen(kFd));
    SetUp();
    parcel.freeData();
    EXPECT_TRUE(isOpen(kFd));
}

TEST_F(ParcelDescriptors, ClosesAnOwnedDescriptorThatCannotBeWritten) {
    Parcel parcel;
    parcel.setError(NO_MEMORY);
    EXPECT_EQ(NO_MEMORY, parcel.writeFileDescriptor(kFd, false));
    EXPECT_TRUE(isOpen(kFd));
    EXPECT_EQ(NO_MEMORY, parcel.writeFileDescriptor(kFd, true));
    EXPECT_FALSE(isOpen(kFd));
}

TEST_F(ParcelDescriptors, LendsTheDescriptorToItsReader) {
    Parcel parcel;
    parcel.writeFileDescriptor(kFd, true);
    parcel.writeInt32(42);
    parcel.setDataPosition(0);
    EXPECT_EQ(kFd, parcel.readFileDescriptor());
    EXPECT_EQ(42, parcel.readInt32());
    EXPECT_TRUE(isOpen(kFd));
}

TEST_F(ParcelDescriptors, TellsDescriptorsFromBinders) {
    Parcel parcel;
    parcel.writeFileDescriptor(kFd);
    parcel.writeStrongBinder(new BBinder);
    parcel.writeStrongBinder(nullptr);
    parcel.setDataPosition(0);
    sp<IBinder> found;
    EXPECT_EQ(BAD_TYPE, parcel.readNullableStrongBinder(&found));
    EXPECT_EQ(0u, parcel.dataPosition());
    for (const size_t pos : {24, 48, 72, 100}) {
        parcel.setDataPosition(pos);
        EXPECT_EQ(BAD_TYPE, parcel.readFileDescriptor()) << pos;
        EXPECT_EQ(pos, parcel.dataPosition());
    }
}

TEST_F(ParcelDescriptors, DuplicatesWithCloseOnExec) {
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.writeDupFileDescriptor(kFd));
    parcel.setDataPosition(0);
    const int duplicate = parcel.readFileDescriptor();
    EXPECT_NE(kFd, duplicate);
    EXPECT_EQ(FD_CLOEXEC, ::fcntl(duplicate, F_GETFD));
    parcel.freeData();
    EXPECT_FALSE(isOpen(duplicate));
    EXPECT_TRUE(isOpen(kFd));
}

TEST_F(ParcelDescriptors, RefusesWhatIsNoDescriptor) {
    Parcel parcel;
    EXPECT_EQ(BAD_VALUE, parcel.writeFileDescriptor(-1, true));
    EXPECT_EQ(-EBADF, parcel.writeDupFileDescriptor(-1));
    EXPECT_EQ(0u, parcel.dataSize());
    EXPECT_EQ(NO_ERROR, parcel.errorCheck());
}

TEST_F(ParcelDescriptors, OwnsWhatTheTransportReceived) {
    Parcel parcel;
    parcel.setDataSize(24);
    ParcelAccess::addDescriptor(parcel, 0, kFd);
    EXPECT_EQ("85 2a 64 66 7f 01 00 00 2c 01 00 00 00 00 00 00 01 00 00 00 00 00 00 00", hexOf(parcel));
    EXPECT_EQ(kFd, parcel.readFileDescriptor());
    parcel.freeData();
    EXPECT_FALSE(isOpen(kFd));
}

TEST_F(ParcelDescriptors, PassesOverADescriptorThatWasLostOnTheWay) {
    Parcel parcel;
    parcel.setDataSize(28);
    ParcelAccess::addDescriptor(parcel, 0, -1);
    EXPECT_EQ(nullptr, parcel.readStrongBinder());
    EXPECT_EQ(BAD_TYPE, parcel.readFileDescriptor());
    EXPECT_EQ(24u, parcel.dataPosition());
}

}  // namespace
