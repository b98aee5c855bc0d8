// Binders in a parcel: what is written, and what is believed.
#include <binder/Binder.h>
#include <binder/BpBinder.h>
#include <gtest/gtest.h>

#include <cstring>

#include "platform/binder/src/ParcelAccess.h"
#include "platform/binder/src/Transport.h"
#include "tests/platform/ParcelBytes.h"

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using accessory::test::fill;
using accessory::test::hexOf;
using runtime::ParcelAccess;

namespace {

constexpr char kNullPicture[] = "85 2a 62 73 13 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00";

class FarObject : public runtime::RemoteObject {
  public:
    int32_t handle() const override { return 0x1234; }
    status_t transact(uint32_t, const Parcel&, Parcel*, uint32_t) override { return DEAD_OBJECT; }
};

/// The eight bytes at @p offset.
const void* addressAt(const Parcel& parcel, size_t offset) {
    const void* address = nullptr;
    static_assert(sizeof address <= sizeof(uint64_t));
    std::memcpy(&address, parcel.data() + offset, sizeof address);
    return address;
}

TEST(ParcelObjects, WritesALocalBinderAsItsTwoAddresses) {
    const sp<IBinder> binder = new BBinder;
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.writeStrongBinder(binder));
    EXPECT_EQ(24u, parcel.dataSize());
    EXPECT_EQ("85 2a 62 73 13 01 00 00", hexOf(parcel).substr(0, 23));
    EXPECT_EQ(binder->getWeakRefs(), addressAt(parcel, 8));
    EXPECT_EQ(binder->localBinder(), addressAt(parcel, 16));
    EXPECT_EQ(1u, parcel.objectsCount());
    EXPECT_FALSE(parcel.hasFileDescriptors());
}

TEST(ParcelObjects, WritesAProxyAsItsNumber) {
    const sp<IBinder> proxy = new BpBinder(std::make_unique<FarObject>());
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.writeStrongBinder(proxy));
    EXPECT_EQ("85 2a 68 73 13 01 00 00 34 12 00 00 00 00 00 00 00 00 00 00 00 00 00 00", hexOf(parcel));
    parcel.setDataPosition(0);
    EXPECT_EQ(proxy, parcel.readStrongBinder());
}

TEST(ParcelObjects, WritesANullBinderThatIsNoObject) {
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.writeStrongBinder(nullptr));
    EXPECT_EQ(kNullPicture, hexOf(parcel));
    EXPECT_EQ(0u, parcel.objectsCount());
}

TEST(ParcelObjects, ReadsBackTheObjectItself) {
    const sp<IBinder> binder = new BBinder;
    Parcel parcel;
    parcel.writeInt32(1);
    parcel.writeStrongBinder(binder);
    parcel.writeInt32(2);
    parcel.setDataPosition(0);
    sp<IBinder> found;
    EXPECT_EQ(1, parcel.readInt32());
    EXPECT_EQ(NO_ERROR, parcel.readStrongBinder(&found));
    EXPECT_EQ(binder, found);
    EXPECT_EQ(2, parcel.readInt32());
}

TEST(ParcelObjects, ReadsANullBinderAndMovesOn) {
    Parcel parcel;
    fill(parcel, std::string(kNullPicture) + " 2a 00 00 00");
    EXPECT_EQ(nullptr, parcel.readStrongBinder());
    EXPECT_EQ(42, parcel.readInt32());
    sp<IBinder> found = new BBinder;
    parcel.setDataPosition(0);
    EXPECT_EQ(NO_ERROR, parcel.readNullableStrongBinder(&found));
    EXPECT_EQ(nullptr, found);
    parcel.setDataPosition(0);
    EXPECT_EQ(UNEXPECTED_NULL, parcel.readStrongBinder(&found));
    EXPECT_EQ(24u, parcel.dataPosition());
}

TEST(ParcelObjects, NeverBelievesAPicture) {
    const sp<IBinder> binder = new BBinder;
    Parcel genuine;
    genuine.writeStrongBinder(binder);
    const std::string pictures[] = {
        hexOf(genuine),
        "85 2a 62 73 13 01 00 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00",
        "85 2a 62 73 13 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 80",
        "85 2a 68 73 13 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00",
        "85 2a 64 66 7f 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00",
        "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00",
        std::string(kNullPicture).substr(0, 23 * 3 - 1),
        "",
    };
    for (const std::string& picture : pictures) {
        Parcel forged;
        fill(forged, picture);
        sp<IBinder> found = binder;
        EXPECT_EQ(BAD_TYPE, forged.readStrongBinder(&found)) << picture;
        EXPECT_EQ(nullptr, found);
        EXPECT_EQ(nullptr, forged.readStrongBinder());
        EXPECT_EQ(BAD_TYPE, forged.readFileDescriptor());
        EXPECT_EQ(0u, forged.dataPosition());
    }
}

TEST(ParcelObjects, ReadsAnObjectOnlyAtItsVeryBeginning) {
    Parcel parcel;
    parcel.writeInt32(0);
    parcel.writeStrongBinder(new BBinder);
    parcel.writeStrongBinder(nullptr);
    for (size_t pos = 0; pos <= parcel.dataSize(); ++pos) {
        parcel.setDataPosition(pos);
        EXPECT_EQ(pos == 4, parcel.readStrongBinder() != nullptr) << pos;
    }
}

TEST(ParcelObjects, FindsObjectsInAnyOrder) {
    sp<IBinder> binders[20];
    Parcel parcel;
    for (sp<IBinder>& binder : binders) {
        binder = new BBinder;
        parcel.writeInt32(1);
        parcel.writeStrongBinder(binder);
    }
    for (size_t step = 1; step < 20; ++step) {
        const size_t index = step * 7 % 20;
        parcel.setDataPosition(index * 28);
        EXPECT_EQ(1, parcel.readInt32());
        EXPECT_EQ(binders[index], parcel.readStrongBinder());
    }
}

TEST(ParcelObjects, ShowsNoPictureToRawReads) {
    Parcel parcel;
    parcel.writeInt32(1);
    parcel.writeStrongBinder(new BBinder);
    parcel.writeInt32(2);
    for (size_t pos = 1; pos < 28; ++pos) {
        parcel.setDataPosition(pos);
        int32_t value = 9;
        EXPECT_EQ(PERMISSION_DENIED, parcel.read(&value, 1)) << pos;
        EXPECT_EQ(PERMISSION_DENIED, parcel.readInt32(&value)) << pos;
        EXPECT_EQ(nullptr, parcel.readInplace(4)) << pos;
        EXPECT_EQ(0, parcel.readInt32()) << pos;
        EXPECT_EQ(9, value);
        EXPECT_EQ(pos, parcel.dataPosition());
    }
    parcel.setDataPosition(0);
    EXPECT_EQ(0, parcel.readInt64());
    EXPECT_EQ(1, parcel.readInt32());
    parcel.setDataPosition(28);
    EXPECT_EQ(2, parcel.readInt32());
}

TEST(ParcelObjects, ShowsNoPictureToStrings) {
    Parcel parcel;
    fill(parcel, "41 41 41 41");
    parcel.setDataPosition(4);
    parcel.writeStrongBinder(new BBinder);
    parcel.setDataPosition(0);
    EXPECT_EQ(nullptr, parcel.readCString());
    EXPECT_EQ(0u, parcel.dataPosition());
    parcel.setDataPosition(4);
    size_t len = 9;
    EXPECT_EQ(PERMISSION_DENIED, [&] {
        String8 str;
        return parcel.readString8(&str);
    }());
    EXPECT_EQ(nullptr, parcel.readString16Inplace(&len));
    EXPECT_EQ(4u, parcel.dataPosition());
}

TEST(ParcelObjects, ReceivesBindersFromTheTransport) {
    Parcel source;
    const sp<IBinder> binder = new BBinder;
    source.writeStrongBinder(binder);
    Parcel received;
    received.setDataSize(72);
    ParcelAccess::addBinder(received, 8, binder);
    ParcelAccess::addBinder(received, 40, nullptr);
    EXPECT_EQ("00 00 00 00 00 00 00 00 " + hexOf(source) + " 00 00 00 00 00 00 00 00 " + kNullPicture +
                  " 00 00 00 00 00 00 00 00",
              hexOf(received));
    received.setDataPosition(8);
    EXPECT_EQ(binder, received.readStrongBinder());
    received.setDataPosition(40);
    sp<IBinder> found;
    EXPECT_EQ(NO_ERROR, received.readNullableStrongBinder(&found));
    ASSERT_EQ(1u, ParcelAccess::objects(received).size());
    EXPECT_EQ(8u, ParcelAccess::objects(received)[0].offset);
}

}  // namespace
