// The lives of proxies, stubs, registry and recipients: traces, references, names, and the programming errors
// that end the process.
#include <sys/wait.h>

#include <csignal>
#include <cstdlib>

#include "tests/AppleUSBAudio/AudioFixture.h"

namespace accessory::test {
namespace {

using android::IInterface;
using android::sp;
using android::String16;
using testing::KilledBySignal;

TEST(AudioManagerLife, TracesTheProxysBeginAndEnd) {
    const sp<FakeRemote> remote = new FakeRemote;
    LogCatcher log;
    sp<BpAppleUSBAudioManager> proxy = new BpAppleUSBAudioManager(remote);
    EXPECT_THAT(log.lines(), are(traced(kAudioTag, kAudioUnit, "BpAppleUSBAudioManager")));
    log.clear();
    proxy.clear();
    EXPECT_THAT(log.lines(), are(traced(kAudioTag, kAudioUnit, "BpAppleUSBAudioManager")));
}

TEST(AudioManagerLife, TracesTheStubsBegin) {
    LogCatcher log;
    keptStub(new AudioService);
    EXPECT_THAT(log.lines(), are(traced(kAudioTag, kAudioUnit, "BnAppleUSBAudioManager")));
}

TEST(AudioManagerLife, WarnsOfAServiceThatRefusesTheBroadcasterAndGoesOn) {
    for (const int status : {-1, 1}) {
        LogCatcher log;
        const sp<AudioService> service = new AudioService;
        service->addStatus = status;
        const sp<BnAppleUSBAudioManager> stub = keptStub(service);
        const Lines trace = traced(kAudioTag, kAudioUnit, "BnAppleUSBAudioManager");
        EXPECT_THAT(log.lines(), are({trace[0], warning("addNotifier error."), trace[1]}));
        const RemoteAudioClient client{};
        EXPECT_EQ(stub->setNotifier(client.notifier), 0);
        EXPECT_EQ(service->broadcasters.at(0)->attach(7), 0);
        EXPECT_EQ(client.remote->requests.size(), 1u);
    }
}

TEST(AudioManagerLife, HandsTheServiceTheRegistryOnce) {
    const sp<AudioService> service = new AudioService;
    keptStub(service);
    ASSERT_EQ(service->broadcasters.size(), 1u);
    EXPECT_NE(dynamic_cast<AppleUSBAudioManagerNotifier*>(service->broadcasters[0].get()), nullptr);
}

TEST(AudioManagerLife, LetsStubAndRegistryHoldEachOtherAndTheService) {
    const sp<AudioService> service = new AudioService;
    const sp<BnAppleUSBAudioManager> stub = keptStub(service);
    EXPECT_EQ(service->getStrongCount(), 2);
    EXPECT_EQ(stub->getStrongCount(), 3) << "this test's, keptStub()'s and the registry's";
    EXPECT_EQ(service->broadcasters.at(0)->getStrongCount(), 2) << "the service's and the stub's";
}

TEST(AudioManagerLife, TurnsABinderIntoTheInterface) {
    const sp<BnAppleUSBAudioManager> stub = keptStub(new AudioService);
    const sp<FakeRemote> remote = new FakeRemote;
    EXPECT_EQ(IAppleUSBAudioManager::asInterface(nullptr), nullptr);
    EXPECT_EQ(IAppleUSBAudioManager::asInterface(stub).get(), stub.get());
    const sp<IAppleUSBAudioManager> proxy = IAppleUSBAudioManager::asInterface(remote);
    EXPECT_NE(dynamic_cast<BpAppleUSBAudioManager*>(proxy.get()), nullptr);
    EXPECT_EQ(IInterface::asBinder(sp<IInterface>(proxy)), remote);
}

TEST(AudioManagerLife, AnswersToItsWholeNameOnly) {
    const sp<BnAppleUSBAudioManager> stub = keptStub(new AudioService);
    const String16 name("accessory.AppleUSBAudioManager");
    EXPECT_EQ(stub->queryLocalInterface(name).get(), static_cast<IInterface*>(stub.get()));
    EXPECT_EQ(stub->queryLocalInterface(String16("accessory.AppleUSBAudioManage")), nullptr);
    EXPECT_EQ(stub->queryLocalInterface(String16("accessory.AppleUSBAudioManagerNotifier")), nullptr);
    EXPECT_EQ(IAppleUSBAudioManager::descriptor, name);
    EXPECT_EQ(&stub->getInterfaceDescriptor(), &IAppleUSBAudioManager::descriptor);
}

TEST(AudioNotifierLife, TracesTheProxysBeginAndEnd) {
    const sp<FakeRemote> remote = new FakeRemote;
    LogCatcher log;
    sp<BpAppleUSBAudioManagerNotifier> proxy = new BpAppleUSBAudioManagerNotifier(remote);
    const Lines trace = traced(kAudioNotifierTag, kAudioNotifierUnit, "BpAppleUSBAudioManagerNotifier");
    EXPECT_THAT(log.lines(), are(trace));
    log.clear();
    proxy.clear();
    EXPECT_THAT(log.lines(), are(trace));
}

TEST(AudioNotifierLife, TracesTheStubsBeginAndEnd) {
    const sp<AudioListener> listener = new AudioListener;
    LogCatcher log;
    sp<BnAppleUSBAudioManagerNotifier> stub = new BnAppleUSBAudioManagerNotifier(listener);
    const Lines trace = traced(kAudioNotifierTag, kAudioNotifierUnit, "BnAppleUSBAudioManagerNotifier");
    EXPECT_THAT(log.lines(), are(trace));
    log.clear();
    stub.clear();
    EXPECT_THAT(log.lines(), are(trace));
    EXPECT_EQ(listener->getStrongCount(), 1);
}

TEST(AudioNotifierLife, TurnsABinderIntoTheInterface) {
    const LocalAudioClient client{};
    const sp<FakeRemote> remote = new FakeRemote;
    EXPECT_EQ(IAppleUSBAudioManagerNotifier::asInterface(nullptr), nullptr);
    EXPECT_EQ(IAppleUSBAudioManagerNotifier::asInterface(IInterface::asBinder(client.notifier)),
              client.notifier);
    const sp<IAppleUSBAudioManagerNotifier> proxy = IAppleUSBAudioManagerNotifier::asInterface(remote);
    EXPECT_NE(dynamic_cast<BpAppleUSBAudioManagerNotifier*>(proxy.get()), nullptr);
    EXPECT_EQ(IAppleUSBAudioManagerNotifier::descriptor, String16("accessory.AppleUSBAudioManagerNotifier"));
}

TEST(AudioRegistryLife, HoldsTheManagerAsLongAsItLives) {
    const sp<BnAppleUSBAudioManager> stub = keptStub(new AudioService);
    const int32_t before = stub->getStrongCount();
    {
        LogCatcher log;
        const sp<AppleUSBAudioManagerNotifier> registry = new AppleUSBAudioManagerNotifier(stub);
        EXPECT_EQ(stub->getStrongCount(), before + 1);
        EXPECT_THAT(log.lines(), testing::IsEmpty());
    }
    EXPECT_EQ(stub->getStrongCount(), before);
}

TEST(AudioLifeDeathTest, EndsTheProcessWithoutAService) {
    EXPECT_EXIT(
        new BnAppleUSBAudioManager(nullptr), KilledBySignal(SIGABRT),
        "AppleUSBAudio/IAppleUSBAudioManager\\.cpp:[0-9]+: "
        ".*accessory::BnAppleUSBAudioManager::BnAppleUSBAudioManager\\(.*AppleUSBAudioManagerImplItf.*\\): "
        "Assertion `impl\\.get\\(\\)' failed\\.");
}

TEST(AudioLifeDeathTest, EndsTheProcessWithoutAClient) {
    EXPECT_EXIT(new BnAppleUSBAudioManagerNotifier(nullptr), KilledBySignal(SIGABRT),
                "AppleUSBAudio/IAppleUSBAudioManagerNotifier\\.cpp:[0-9]+: "
                ".*accessory::BnAppleUSBAudioManagerNotifier::BnAppleUSBAudioManagerNotifier\\(.*"
                "AppleUSBAudioManagerNotifierImplItf.*\\): Assertion `impl\\.get\\(\\)' failed\\.");
}

TEST(AudioLifeDeathTest, EndsTheProcessWithoutAManager) {
    EXPECT_EXIT(new AppleUSBAudioManagerNotifier(nullptr), KilledBySignal(SIGABRT),
                "AppleUSBAudio/IAppleUSBAudioManager\\.cpp:[0-9]+: "
                ".*accessory::AppleUSBAudioManagerNotifier::AppleUSBAudioManagerNotifier\\(.*"
                "BnAppleUSBAudioManager.*\\): Assertion `manager\\.get\\(\\)' failed\\.");
}

}  // namespace
}  // namespace accessory::test
