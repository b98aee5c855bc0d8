// How long a parcel refers to a binder, and when it drops it before its own end.
#include <binder/Binder.h>
#include <gtest/gtest.h>

#include "tests/platform/ParcelBytes.h"

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using accessory::test::fill;

namespace {

/// An object that says when it ends.
class Witness : public BBinder {
  public:
    explicit Witness(bool* ended) : mEnded(ended) {}
    ~Witness() override { *mEnded = true; }

  private:
    bool* const mEnded;
};

TEST(ParcelObjectLife, KeepsTheObjectAliveAsLongAsTheParcel) {
    bool ended = false;
    {
        Parcel parcel;
        parcel.writeStrongBinder(new Witness(&ended));
        EXPECT_FALSE(ended);
    }
    EXPECT_TRUE(ended);
}

TEST(ParcelObjectLife, LetsGoOfObjectsWhenItIsEmptied) {
    bool freed = false;
    bool replaced = false;
    Parcel parcel;
    parcel.writeStrongBinder(new Witness(&freed));
    parcel.freeData();
    EXPECT_TRUE(freed);
    parcel.writeStrongBinder(new Witness(&replaced));
    fill(parcel, "00 00 00 00");
    EXPECT_TRUE(replaced);
    EXPECT_EQ(0u, parcel.objectsCount());
}

TEST(ParcelObjectLife, DropsObjectsThatAreCutOff) {
    bool firstEnded = false;
    bool secondEnded = false;
    Parcel parcel;
    parcel.writeStrongBinder(new Witness(&firstEnded));
    parcel.writeStrongBinder(new Witness(&secondEnded));
    EXPECT_EQ(NO_ERROR, parcel.setDataSize(47));
    EXPECT_FALSE(firstEnded);
    EXPECT_TRUE(secondEnded);
    EXPECT_EQ(NO_ERROR, parcel.setDataSize(48));
    parcel.setDataPosition(24);
    EXPECT_EQ(nullptr, parcel.readStrongBinder());
    EXPECT_EQ(NO_ERROR, parcel.setDataSize(24));
    EXPECT_FALSE(firstEnded);
    EXPECT_EQ(NO_ERROR, parcel.setDataSize(0));
    EXPECT_TRUE(firstEnded);
}

TEST(ParcelObjectLife, DropsAnObjectThatIsWrittenOver) {
    for (const size_t pos : {size_t{0}, size_t{1}, size_t{4}, size_t{24}, size_t{27}}) {
        bool ended = false;
        Parcel parcel;
        parcel.writeInt32(1);
        parcel.writeStrongBinder(new Witness(&ended));
        parcel.setDataPosition(pos);
        parcel.writeInt32(2);
        EXPECT_EQ(pos > 0, ended) << pos;
        parcel.setDataPosition(4);
        EXPECT_EQ(pos > 0, parcel.readStrongBinder() == nullptr) << pos;
    }
}

TEST(ParcelObjectLife, KeepsTheNeighboursOfWhatIsWrittenOver) {
    const sp<IBinder> binders[] = {new BBinder, new BBinder, new BBinder};
    Parcel parcel;
    for (const sp<IBinder>& binder : binders)
        parcel.writeStrongBinder(binder);
    parcel.setDataPosition(24);
    parcel.writeInt64(0);
    EXPECT_EQ(2u, parcel.objectsCount());
    parcel.setDataPosition(0);
    EXPECT_EQ(binders[0], parcel.readStrongBinder());
    EXPECT_EQ(nullptr, parcel.readStrongBinder());
    parcel.setDataPosition(48);
    EXPECT_EQ(binders[2], parcel.readStrongBinder());
}

TEST(ParcelObjectLife, ReplacesObjectsByOthersAndByNull) {
    const sp<IBinder> binders[] = {new BBinder, new BBinder};
    Parcel parcel;
    parcel.writeStrongBinder(binders[0]);
    parcel.writeStrongBinder(binders[0]);
    parcel.setDataPosition(0);
    parcel.writeStrongBinder(binders[1]);
    parcel.writeStrongBinder(nullptr);
    EXPECT_EQ(1u, parcel.objectsCount());
    parcel.setDataPosition(0);
    EXPECT_EQ(binders[1], parcel.readStrongBinder());
    sp<IBinder> found;
    EXPECT_EQ(NO_ERROR, parcel.readNullableStrongBinder(&found));
    EXPECT_EQ(nullptr, found);
}

TEST(ParcelObjectLife, ReportsThatABinderCannotBeWritten) {
    bool ended = false;
    Parcel parcel;
    parcel.setError(NO_MEMORY);
    EXPECT_EQ(NO_MEMORY, parcel.writeStrongBinder(new Witness(&ended)));
    EXPECT_TRUE(ended);
    EXPECT_EQ(NO_MEMORY, parcel.writeStrongBinder(nullptr));
    EXPECT_EQ(0u, parcel.objectsCount());
}

}  // namespace
