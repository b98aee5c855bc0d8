// The lives of proxy, stub and what they are given: traces, references, and the programming errors that end
// the process.
#include <sys/wait.h>

#include <csignal>

#include "tests/AccessoryManager/FakeRemote.h"
#include "tests/AppleiAP2/notifier/StubFixture.h"

namespace accessory::test {
namespace {

using android::sp;
using testing::KilledBySignal;

ExpectedLines traceOf(const std::string& function) {
    const std::string begin = "[AppleiAP2/IAppleiAP2ManagerNotifier.cpp][" + function + "] ";
    return {debug(begin + "[--IN--]"), debug(begin + "[--OUT--]")};
}

TEST(NotifierLife, TracesTheProxysBeginAndEnd) {
    const sp<FakeRemote> remote = new FakeRemote;
    LogCatcher log;
    sp<BpAppleiAP2ManagerNotifier> proxy = new BpAppleiAP2ManagerNotifier(remote);
    EXPECT_THAT(log.lines(), areLines(traceOf("BpAppleiAP2ManagerNotifier")));
    log.clear();
    proxy.clear();
    EXPECT_THAT(log.lines(), areLines(traceOf("~BpAppleiAP2ManagerNotifier")));
}

TEST(NotifierLife, TracesTheStubsBeginAndEnd) {
    const sp<Recorder> recorder = new Recorder;
    LogCatcher log;
    sp<BnAppleiAP2ManagerNotifier> stub = new BnAppleiAP2ManagerNotifier(recorder);
    EXPECT_THAT(log.lines(), areLines(traceOf("BnAppleiAP2ManagerNotifier")));
    log.clear();
    stub.clear();
    EXPECT_THAT(log.lines(), areLines(traceOf("~BnAppleiAP2ManagerNotifier")));
}

TEST(NotifierLife, LetsTheStubHoldItsImplementationAndTheProxyItsRemote) {
    const sp<Recorder> recorder = new Recorder;
    const sp<FakeRemote> remote = new FakeRemote;
    {
        const sp<BnAppleiAP2ManagerNotifier> stub = new BnAppleiAP2ManagerNotifier(recorder);
        const sp<BpAppleiAP2ManagerNotifier> proxy = new BpAppleiAP2ManagerNotifier(remote);
        EXPECT_EQ(recorder->getStrongCount(), 2);
        EXPECT_EQ(remote->getStrongCount(), 2);
        EXPECT_EQ(android::IInterface::asBinder(sp<android::IInterface>(proxy)), remote);
    }
    EXPECT_EQ(recorder->getStrongCount(), 1);
    EXPECT_EQ(remote->getStrongCount(), 1);
}

TEST(NotifierLife, TurnsABinderIntoTheInterface) {
    const sp<BnAppleiAP2ManagerNotifier> stub = new BnAppleiAP2ManagerNotifier(new Recorder);
    const sp<FakeRemote> remote = new FakeRemote;
    EXPECT_EQ(IAppleiAP2ManagerNotifier::asInterface(nullptr), nullptr);
    EXPECT_EQ(IAppleiAP2ManagerNotifier::asInterface(stub).get(), stub.get());
    const sp<IAppleiAP2ManagerNotifier> proxy = IAppleiAP2ManagerNotifier::asInterface(remote);
    EXPECT_NE(dynamic_cast<BpAppleiAP2ManagerNotifier*>(proxy.get()), nullptr);
    EXPECT_NE(IAppleiAP2ManagerNotifier::asInterface(remote), proxy);
}

TEST(NotifierLife, AnswersToItsWholeNameOnly) {
    const sp<BnAppleiAP2ManagerNotifier> stub = new BnAppleiAP2ManagerNotifier(new Recorder);
    const android::String16 name("accessory.AppleiAP2ManagerNotifier");
    EXPECT_EQ(stub->queryLocalInterface(name).get(), static_cast<android::IInterface*>(stub.get()));
    EXPECT_EQ(stub->queryLocalInterface(android::String16("accessory.AppleiAP2Manager")), nullptr);
    EXPECT_EQ(stub->queryLocalInterface(android::String16()), nullptr);
    EXPECT_EQ(IAppleiAP2ManagerNotifier::descriptor, name);
    EXPECT_EQ(&stub->getInterfaceDescriptor(), &IAppleiAP2ManagerNotifier::descriptor);
}

/// Looks at the references themselves.
class ReferenceKeeper : public Recorder {
  public:
    int mediaLibUpdateDataReady(unsigned int, sp<iAP2MediaLibData> data) override {
        count = data->getStrongCount();
        data.clear();
        return 0;
    }
    int powerUpdate(unsigned int, const sp<iAP2PowerUpdate>& power) override {
        reference = &power;
        count = power->getStrongCount();
        return 0;
    }
    int CallStateUpdate(unsigned int, CallStateUpdateParam& param) override {
        reference = &param;
        return 0;
    }
    int CarPlayMatchedDigitalCarKeys(unsigned int, std::vector<std::string>& keys) override {
        reference = &keys;
        keys.clear();
        return 0;
    }

    int32_t count = 0;
    const void* reference = nullptr;
};

TEST(NotifierReferences, AreFreshForALibraryUpdate) {
    const sp<ReferenceKeeper> keeper = new ReferenceKeeper;
    const sp<BnAppleiAP2ManagerNotifier> stub = new BnAppleiAP2ManagerNotifier(keeper);
    const sp<iAP2MediaLibData> data = new IiAP2MediaLibData;
    stub->mediaLibUpdateDataReady(7, data);
    EXPECT_EQ(keeper->count, 3) << "the caller's, the stub's and the implementation's";
    EXPECT_EQ(data->getStrongCount(), 1);
}

TEST(NotifierReferences, AreHeldByTheStubWhileItHandsOnALibraryUpdateThatArrived) {
    const sp<ReferenceKeeper> keeper = new ReferenceKeeper;
    const sp<BnAppleiAP2ManagerNotifier> stub = new BnAppleiAP2ManagerNotifier(keeper);
    EXPECT_EQ(ask(*stub, 14, request(parcel({i32(7), i32(0), i32(0)}))), answered(0));
    EXPECT_GE(keeper->count, 3) << "the dispatcher's, the operation's and the implementation's";
}

TEST(NotifierReferences, AreTheGivenOnesForEverythingElse) {
    const sp<ReferenceKeeper> keeper = new ReferenceKeeper;
    const sp<BnAppleiAP2ManagerNotifier> stub = new BnAppleiAP2ManagerNotifier(keeper);
    const sp<iAP2PowerUpdate> power = new IiAP2PowerUpdate;
    stub->powerUpdate(7, power);
    EXPECT_EQ(keeper->reference, &power);
    EXPECT_EQ(keeper->count, 1);
    CallStateUpdateParam param;
    stub->CallStateUpdate(7, param);
    EXPECT_EQ(keeper->reference, &param);
    std::vector<std::string> keys = {"key"};
    stub->CarPlayMatchedDigitalCarKeys(7, keys);
    EXPECT_EQ(keeper->reference, &keys);
    EXPECT_THAT(keys, testing::IsEmpty());
}

constexpr char kNoImplementation[] =
    "AppleiAP2/IAppleiAP2ManagerNotifier\\.cpp:[0-9]+: "
    ".*BnAppleiAP2ManagerNotifier::BnAppleiAP2ManagerNotifier\\(.*\\): Assertion `impl\\.get\\(\\)' "
    "failed\\.";
constexpr char kNoMemory[] =
    "AppleiAP2/IAppleiAP2ManagerNotifier\\.cpp:[0-9]+: .*: Assertion `.*"
    "malloc a buff for OOBBTP link info in binder transact failed!!!.*' failed\\.";
constexpr char kInOnTransact[] =
    "AppleiAP2/IAppleiAP2ManagerNotifier\\.cpp:[0-9]+: .*accessory::BnAppleiAP2ManagerNotifier::onTransact"
    "\\(uint32_t, const android::Parcel ?&, android::Parcel ?\\*, uint32_t\\): Assertion";

void pair(const Bytes& behindTheAccessory) {
    const sp<BnAppleiAP2ManagerNotifier> stub = new BnAppleiAP2ManagerNotifier(new Recorder);
    ask(*stub, 30, request(parcel({i32(7), behindTheAccessory})));
}

TEST(NotifierDeathTest, EndsTheProcessForAStubWithoutAnImplementation) {
    EXPECT_EXIT(new BnAppleiAP2ManagerNotifier(nullptr), KilledBySignal(SIGABRT), kNoImplementation);
}

TEST(NotifierDeathTest, EndsTheProcessForALinkKeyThatNoRequestCanHold) {
    EXPECT_EXIT(pair(i32(0x7fffffff)), KilledBySignal(SIGABRT), kNoMemory);
    EXPECT_EXIT(pair(i32(-1)), KilledBySignal(SIGABRT), kNoMemory);
}

TEST(NotifierDeathTest, EndsTheProcessForAnAddressThatNoRequestCanHold) {
    EXPECT_EXIT(pair(parcel({i32(2), raw({1, 2}), i32(0x7fffffff)})), KilledBySignal(SIGABRT), kNoMemory);
    EXPECT_EXIT(pair(parcel({i32(0), i32(-1)})), KilledBySignal(SIGABRT), kNoMemory);
}

TEST(NotifierDeathTest, ReportsTheDispatchAsThePlaceOfAFailedAllocation) {
    EXPECT_EXIT(pair(i32(-1)), KilledBySignal(SIGABRT), kInOnTransact);
    EXPECT_EXIT(pair(parcel({i32(0), i32(-1)})), KilledBySignal(SIGABRT), kInOnTransact);
}

}  // namespace
}  // namespace accessory::test
