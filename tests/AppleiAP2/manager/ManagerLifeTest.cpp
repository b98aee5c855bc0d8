// The lives of the manager's proxy and stub: traces, references, and the programming error that ends the
// process.
#include <unistd.h>

#include <csignal>
#include <cstdio>

#include "tests/AppleiAP2/manager/ManagerFixtures.h"

namespace accessory::test {
namespace {

using android::sp;
using android::wp;

ExpectedLines traceOf(const std::string& function) {
    const std::string begin = "[AppleiAP2/IAppleiAP2Manager.cpp][" + function + "] ";
    return {{ANDROID_LOG_DEBUG, begin + "[--IN--]"}, {ANDROID_LOG_DEBUG, begin + "[--OUT--]"}};
}

TEST(ManagerLife, TracesTheProxysBeginAndEnd) {
    const sp<FakeRemote> remote = new FakeRemote;
    LogCatcher log;
    sp<BpAppleiAP2Manager> proxy = new BpAppleiAP2Manager(remote);
    EXPECT_THAT(log.lines(), areLines(traceOf("BpAppleiAP2Manager")));
    log.clear();
    proxy.clear();
    EXPECT_THAT(log.lines(), areLines(traceOf("~BpAppleiAP2Manager")));
}

TEST(ManagerLife, TracesTheStubsBegin) {
    const sp<ManagerRecorder> recorder = new ManagerRecorder;
    const LogCatcher log;
    kept(new BnAppleiAP2Manager(recorder));
    EXPECT_THAT(log.lines(), areLines(traceOf("BnAppleiAP2Manager")));
}

/// Destroys a stub in spite of the references to it, shows the lines of that and ends the process.
[[noreturn]] void destroyAStub() {
    const sp<ManagerRecorder> recorder = new ManagerRecorder;
    BnAppleiAP2Manager* stub = kept(new BnAppleiAP2Manager(recorder)).get();
    const LogCatcher log;
    stub->~BnAppleiAP2Manager();
    for (const LogLine& line : log.linesWith(kTag))
        std::fprintf(stderr, "%d %s\n", line.priority, line.text.c_str());
    _exit(0);
}

/// Destroys a stub likewise, and ends the process with the references to its implementation that are left.
[[noreturn]] void destroyAStubAndCountReferences() {
    const sp<ManagerRecorder> recorder = new ManagerRecorder;
    BnAppleiAP2Manager* stub = kept(new BnAppleiAP2Manager(recorder)).get();
    const int32_t before = recorder->getStrongCount();
    stub->~BnAppleiAP2Manager();
    _exit(before == 2 ? recorder->getStrongCount() : 100);
}

TEST(ManagerLifeDeathTest, TheStubsEndReleasesTheImplementation) {
    EXPECT_EXIT(destroyAStubAndCountReferences(), testing::ExitedWithCode(1), "");
}

TEST(ManagerLifeDeathTest, TracesTheStubsEnd) {
    EXPECT_EXIT(destroyAStub(), testing::ExitedWithCode(0),
                "3 \\[AppleiAP2/IAppleiAP2Manager\\.cpp\\]\\[~BnAppleiAP2Manager\\] \\[--IN--\\]\n"
                "3 \\[AppleiAP2/IAppleiAP2Manager\\.cpp\\]\\[~BnAppleiAP2Manager\\] \\[--OUT--\\]");
}

TEST(ManagerLifeDeathTest, EndsTheProcessForAStubWithoutAnImplementation) {
    EXPECT_EXIT(new BnAppleiAP2Manager(nullptr), testing::KilledBySignal(SIGABRT),
                "AppleiAP2/IAppleiAP2Manager\\.cpp:[0-9]+: "
                ".*BnAppleiAP2Manager::BnAppleiAP2Manager\\(.*\\): Assertion `impl\\.get\\(\\)' failed\\.");
}

TEST(ManagerLife, LetsTheProxyHoldItsRemote) {
    const sp<FakeRemote> remote = new FakeRemote;
    {
        const sp<BpAppleiAP2Manager> proxy = new BpAppleiAP2Manager(remote);
        EXPECT_EQ(remote->getStrongCount(), 2);
        EXPECT_EQ(android::IInterface::asBinder(sp<android::IInterface>(proxy)), remote);
    }
    EXPECT_EQ(remote->getStrongCount(), 1);
}

TEST(ManagerLife, KeepsAStubOnceItIsMade) {
    const sp<ManagerRecorder> recorder = new ManagerRecorder;
    sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(recorder));
    EXPECT_GE(stub->getStrongCount(), 3) << "the test's two and the register's";
    EXPECT_GE(recorder->getStrongCount(), 2) << "the test's and the stub's";
    EXPECT_NE(recorder->broadcaster, nullptr);
}

TEST(ManagerLife, TurnsABinderIntoTheInterface) {
    const sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(new ManagerRecorder));
    const sp<FakeRemote> remote = new FakeRemote;
    EXPECT_EQ(IAppleiAP2Manager::asInterface(nullptr), nullptr);
    EXPECT_EQ(IAppleiAP2Manager::asInterface(stub).get(), stub.get());
    const sp<IAppleiAP2Manager> proxy = IAppleiAP2Manager::asInterface(remote);
    EXPECT_NE(dynamic_cast<BpAppleiAP2Manager*>(proxy.get()), nullptr);
    EXPECT_NE(IAppleiAP2Manager::asInterface(remote), proxy);
}

TEST(ManagerLife, AnswersToItsWholeNameOnly) {
    const sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(new ManagerRecorder));
    const android::String16 name("accessory.AppleiAP2Manager");
    EXPECT_EQ(stub->queryLocalInterface(name).get(), static_cast<android::IInterface*>(stub.get()));
    EXPECT_EQ(stub->queryLocalInterface(android::String16("accessory.AppleiAP2Manage")), nullptr);
    EXPECT_EQ(stub->queryLocalInterface(android::String16("accessory.AppleiAP2ManagerNotifier")), nullptr);
    EXPECT_EQ(stub->queryLocalInterface(android::String16()), nullptr);
    EXPECT_EQ(IAppleiAP2Manager::descriptor, name);
    EXPECT_EQ(&stub->getInterfaceDescriptor(), &IAppleiAP2Manager::descriptor);
}

/// Looks at what holds the records that arrive.
class ReferenceCounter : public ManagerRecorder {
  public:
    int startMediaLibUpdates(unsigned int, sp<MediaLibUpdateInfo>& info) override {
        record = info;
        count = info->getStrongCount();
        return 0;
    }
    int startNowPlayingUpdate(unsigned int, sp<iAP2ItemAttributeMask>& attributes,
                              sp<iAP2MediaPlaybackMask>& playback) override {
        masks = {attributes, playback};
        return 0;
    }

    wp<android::RefBase> record;
    std::vector<wp<android::RefBase>> masks;
    int32_t count = 0;
};

TEST(ManagerLife, ReleasesTheRecordsOfARequestWithIt) {
    const sp<ReferenceCounter> counter = new ReferenceCounter;
    const sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(counter));
    EXPECT_EQ(ask(*stub, 21, managerRequest(i32(7))), answered(0));
    EXPECT_GE(counter->count, 1);
    EXPECT_EQ(counter->record.promote(), nullptr);
    EXPECT_EQ(ask(*stub, 27, managerRequest(i32(7))), answered(0));
    for (const wp<android::RefBase>& mask : counter->masks)
        EXPECT_EQ(mask.promote(), nullptr);
}

}  // namespace
}  // namespace accessory::test
