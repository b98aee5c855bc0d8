// The headers of requests and replies.
#include <binder/Binder.h>
#include <binder/IPCThreadState.h>
#include <gtest/gtest.h>

#include "tests/platform/ParcelBytes.h"
#include "tests/support/LogCatcher.h"

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using accessory::test::fill;
using accessory::test::hexOf;
using accessory::test::LogCatcher;
using accessory::test::Logged;

namespace {

/// Policy, work source and the name "a.B".
constexpr char kToken[] = "00 00 00 80 ff ff ff ff 03 00 00 00 61 00 2e 00 42 00 00 00";

/// Restores the thread's state, so that tests do not see each other's.
class ParcelHeader : public testing::Test {
  protected:
    void SetUp() override { reset(); }
    void TearDown() override { reset(); }

    static IPCThreadState& state() { return *IPCThreadState::self(); }

    static void reset() {
        state().setStrictModePolicy(0);
        state().setLastTransactionBinderFlags(0);
        state().clearCallingWorkSource();
        state().clearPropagateWorkSource();
    }
};

class NamedBinder : public BBinder {
  public:
    const String16& getInterfaceDescriptor() const override { return mName; }

  private:
    const String16 mName{"a.B"};
};

TEST_F(ParcelHeader, BeginsARequestWithPolicyWorkSourceAndName) {
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.writeInterfaceToken(String16("a.B")));
    EXPECT_EQ(kToken, hexOf(parcel));
}

TEST_F(ParcelHeader, CarriesThePolicyOfTheThread) {
    state().setStrictModePolicy(0x11);
    Parcel parcel;
    parcel.writeInterfaceToken(String16(""));
    EXPECT_EQ("11 00 00 80 ff ff ff ff 00 00 00 00 00 00 00 00", hexOf(parcel));
}

TEST_F(ParcelHeader, CarriesTheWorkSourceOnlyWhenItPropagates) {
    Parcel silent;
    state().setCallingWorkSourceUidWithoutPropagation(1000);
    silent.writeInterfaceToken(String16(""));
    EXPECT_EQ("00 00 00 80 ff ff ff ff 00 00 00 00 00 00 00 00", hexOf(silent));
    Parcel telling;
    state().setCallingWorkSourceUid(1000);
    telling.writeInterfaceToken(String16(""));
    EXPECT_EQ("00 00 00 80 e8 03 00 00 00 00 00 00 00 00 00 00", hexOf(telling));
}

TEST_F(ParcelHeader, AcceptsTheNameThatItExpectsAndStopsBehindIt) {
    LogCatcher log;
    Parcel parcel;
    fill(parcel, std::string(kToken) + " 2a 00 00 00");
    EXPECT_TRUE(parcel.enforceInterface(String16("a.B")));
    EXPECT_EQ(42, parcel.readInt32());
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(ParcelHeader, RefusesAnotherNameAndSaysSo) {
    LogCatcher log;
    Parcel parcel;
    fill(parcel, kToken);
    EXPECT_FALSE(parcel.enforceInterface(String16("a.C")));
    EXPECT_THAT(log.lines(), testing::ElementsAre(Logged(ANDROID_LOG_WARN, "Parcel",
                                                         "The request is for 'a.B', not for 'a.C'")));
}

TEST_F(ParcelHeader, RefusesATokenThatIsCutAnywhere) {
    const std::vector<uint8_t> bytes = accessory::test::bytesFrom(kToken);
    for (size_t size = 0; size < bytes.size(); ++size) {
        Parcel parcel;
        parcel.setData(bytes.data(), size);
        EXPECT_FALSE(parcel.enforceInterface(String16("a.B"))) << size;
    }
}

TEST_F(ParcelHeader, TakesOverThePolicyAndWorkSourceOfTheCaller) {
    Parcel parcel;
    fill(parcel, "05 00 00 80 e8 03 00 00 00 00 00 00 00 00 00 00");
    EXPECT_TRUE(parcel.enforceInterface(String16("")));
    EXPECT_EQ(static_cast<int32_t>(0x80000005), state().getStrictModePolicy());
    EXPECT_EQ(1000u, state().getCallingWorkSourceUid());
    EXPECT_FALSE(state().shouldPropagateWorkSource());
}

TEST_F(ParcelHeader, TakesNoPolicyFromAOneWayCall) {
    state().setStrictModePolicy(7);
    state().setLastTransactionBinderFlags(IBinder::FLAG_ONEWAY);
    Parcel parcel;
    fill(parcel, kToken);
    EXPECT_TRUE(parcel.enforceInterface(String16("a.B"), &state()));
    EXPECT_EQ(0, state().getStrictModePolicy());
}

TEST_F(ParcelHeader, ChecksAgainstTheInterfaceOfABinder) {
    const sp<NamedBinder> binder = new NamedBinder;
    Parcel parcel;
    fill(parcel, kToken);
    EXPECT_TRUE(parcel.checkInterface(binder.get()));
    parcel.freeData();
    parcel.writeInterfaceToken(String16("a.C"));
    parcel.setDataPosition(0);
    EXPECT_FALSE(parcel.checkInterface(binder.get()));
}

TEST_F(ParcelHeader, OnlyComparesNamesAfterShutdown) {
    const auto afterShutdown = [] {
        IPCThreadState::shutdown();
        Parcel parcel;
        parcel.writeInterfaceToken(String16("a.B"));
        parcel.setDataPosition(0);
        const bool sameBytes = hexOf(parcel) == kToken;
        _exit(sameBytes && parcel.enforceInterface(String16("a.B")) ? 0 : 1);
    };
    EXPECT_EXIT(afterShutdown(), testing::ExitedWithCode(0), "");
}

struct Reply {
    const char* hex;
    int32_t code;
    size_t position;  ///< afterwards
};

TEST_F(ParcelHeader, ReadsTheHeaderOfAReply) {
    const Reply replies[] = {
        {"", -129, 0},
        {"00 00 00", -129, 0},
        {"00 00 00 00", 0, 4},
        {"00 00 00 00 2a 00 00 00", 0, 4},
        {"80 ff ff ff 04 00 00 00", 0, 8},
        {"80 ff ff ff 08 00 00 00 01 00 00 00 2a 00 00 00", 0, 12},
        {"ff ff ff ff 01 00 00 00 61 00 00 00 00 00 00 00 2a 00 00 00", -1, 16},
        {"ff ff ff ff 01 00 00 00 61 00 00 00 04 00 00 00 99 99 99 99 2a 00 00 00", -1, 20},
        {"f8 ff ff ff ff ff ff ff 00 00 00 00 07 00 00 00 2a 00 00 00", -8, 16},
        {"f7 ff ff ff ff ff ff ff 00 00 00 00 08 00 00 00 99 99 99 99 2a 00 00 00", -9, 20},
        {"fd ff ff ff ff ff ff ff", -3, 8},
        {"f8 ff ff ff", -8, 4},
    };
    for (const Reply& reply : replies) {
        Parcel parcel;
        fill(parcel, reply.hex);
        EXPECT_EQ(reply.code, parcel.readExceptionCode()) << reply.hex;
        EXPECT_EQ(reply.position, parcel.dataPosition()) << reply.hex;
    }
}

TEST_F(ParcelHeader, CountsABrokenReplyHeaderAsAFailedTransaction) {
    const char* const sizes[] = {"",
                                 "08 00",
                                 "03 00 00 00",
                                 "00 00 00 00",
                                 "ff ff ff ff",
                                 "00 00 00 80",
                                 "ff ff ff 7f",
                                 "0d 00 00 00 00 00 00 00 00 00 00 00"};
    for (const char* size : sizes) {
        Parcel parcel;
        fill(parcel, std::string("80 ff ff ff ") + size);
        EXPECT_EQ(-129, parcel.readExceptionCode()) << size;
    }
}

}  // namespace
