// The power update: its words, and the lines with which its functions announce themselves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/AppleiAP2/records/PowerSamples.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using android::Parcel;
using android::sp;
using testing::ElementsAre;

TEST(PowerUpdate, CarriesTheFirstAndTheLastFieldAfterAMaskOfBoth) {
    sp<IiAP2PowerUpdate> record = new IiAP2PowerUpdate;
    record->setCurrentFromAccessory(2400).setChargeLevel(80);
    Parcel parcel;
    IiAP2PowerUpdate::writeToParcel(&parcel, record);
    EXPECT_EQ(Words().i32(0x21).i32(2400).i32(80), wordsOf(parcel));
}

TEST(PowerUpdate, AnnouncesItsWriter) {
    Parcel parcel;
    const LogCatcher log;
    IiAP2PowerUpdate::writeToParcel(&parcel, new IiAP2PowerUpdate);
    EXPECT_THAT(log.lines(),
                ElementsAre(Logged(ANDROID_LOG_DEBUG, kRecordTag, "IiAP2PowerUpdate writeToParcel enter")));
}

TEST(PowerUpdate, AnnouncesItsReader) {
    const Parcel parcel;
    const LogCatcher log;
    EXPECT_EQ(0u, IiAP2PowerUpdate::FromParcel(parcel)->getMask());
    EXPECT_THAT(log.lines(),
                ElementsAre(Logged(ANDROID_LOG_DEBUG, kRecordTag, "IiAP2PowerUpdate FromParcel enter")));
}

}  // namespace
}  // namespace accessory::test
