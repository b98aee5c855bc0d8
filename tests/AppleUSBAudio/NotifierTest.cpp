// The notifier: the bytes of both events, the stub's calls and lines, and refusals.
#include <binder/IPCThreadState.h>
#include <sys/wait.h>

#include "tests/AppleUSBAudio/AudioFixture.h"

namespace accessory::test {
namespace {

using android::sp;

Line notifierLine(const std::string& text) { return Logged(ANDROID_LOG_DEBUG, kAudioNotifierTag, text); }

Line calling(uint32_t code) {
    return notifierLine("Calling MSG: PID=" + std::to_string(getpid()) + ", UID=" + std::to_string(getuid()) +
                        " code=" + std::to_string(static_cast<int32_t>(code)));
}

class AudioNotifierProxy : public testing::Test {
  protected:
    AudioNotifierProxy() { log.clear(); }

    const sp<FakeRemote> remote{new FakeRemote};
    const sp<IAppleUSBAudioManagerNotifier> notifier{new BpAppleUSBAudioManagerNotifier(remote)};
    LogCatcher log;
};

TEST_F(AudioNotifierProxy, SendsTheIdentifier) {
    for (const unsigned int id : {0u, 7u, 0x7fffffffu, 0x80000000u, 0xffffffffu}) {
        remote->requests.clear();
        notifier->attach(id);
        notifier->detach(id);
        ASSERT_EQ(remote->requests.size(), 2u);
        EXPECT_EQ(remote->requests[0].code, 1u);
        EXPECT_EQ(remote->requests[1].code, 2u);
        for (const FakeRemote::Request& request : remote->requests) {
            EXPECT_EQ(request.bytes, audioEvent(i32(id)));
            EXPECT_EQ(request.flags, 0u);
            EXPECT_TRUE(request.wantsReply);
        }
    }
}

TEST_F(AudioNotifierProxy, ReturnsTheReplysOnlyWord) {
    for (const int32_t status : {0, 5, -1, INT32_MIN, INT32_MAX}) {
        remote->answer = i32(status);
        EXPECT_EQ(notifier->attach(7), status);
        EXPECT_EQ(notifier->detach(7), status);
    }
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

TEST_F(AudioNotifierProxy, NeitherLooksAtTheTransactionsStatusNorLogs) {
    remote->status = android::DEAD_OBJECT;
    EXPECT_EQ(notifier->attach(7), 0);
    EXPECT_EQ(notifier->detach(7), 0);
    remote->answer = i32(9);
    EXPECT_EQ(notifier->attach(7), 9);
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

class AudioNotifierStub : public testing::Test {
  protected:
    AudioNotifierStub() { log.clear(); }

    std::vector<LogLine> logged() {
        std::vector<LogLine> lines = log.linesWith(kAudioNotifierTag);
        log.clear();
        return lines;
    }

    const sp<AudioListener> listener{new AudioListener};
    const sp<BnAppleUSBAudioManagerNotifier> stub{new BnAppleUSBAudioManagerNotifier(listener)};
    LogCatcher log;
};

TEST_F(AudioNotifierStub, CallsTheClientAndAnswersItsStatusAlone) {
    for (const int32_t status : {0, 5, -1, INT32_MIN, INT32_MAX}) {
        listener->answer = status;
        EXPECT_EQ(ask(*stub, 1, audioEvent(i32(0xfffffffe))), (Answer{0, i32(status)}));
        EXPECT_EQ(listener->told(), "attach(4294967294)|");
        EXPECT_EQ(ask(*stub, 2, audioEvent(i32(7))), (Answer{0, i32(status)}));
        EXPECT_EQ(listener->told(), "detach(7)|");
    }
}

TEST_F(AudioNotifierStub, LogsTheCallerAndOfTheTwoEventsOnlyTheAttach) {
    ask(*stub, 1, audioEvent(i32(0xfffffffe)));
    EXPECT_THAT(logged(), are({calling(1), notifierLine("attach Bn--> in, accessoryId: -2")}));
    ask(*stub, 2, audioEvent(i32(7)));
    EXPECT_THAT(logged(), are({calling(2)}));
}

TEST_F(AudioNotifierStub, LogsTheCallerOfUnknownCodesAndWrongTokensToo) {
    for (const uint32_t code : {0u, 3u, 0xffffffffu}) {
        ask(*stub, code, audioEvent(i32(7)));
        EXPECT_THAT(logged(), are({calling(code)}));
    }
    ask(*stub, 1, {});
    EXPECT_THAT(logged(), are({calling(1)}));
}

TEST_F(AudioNotifierStub, HandsUnknownCodesOnWithNothingWritten) {
    for (const uint32_t code : {0u, 3u, 0x00ffffffu})
        EXPECT_EQ(ask(*stub, code, audioEvent(i32(7))), (Answer{android::UNKNOWN_TRANSACTION, {}}));
    EXPECT_EQ(ask(*stub, android::IBinder::INTERFACE_TRANSACTION, {}),
              (Answer{0, string16(kAudioNotifierName)}));
    EXPECT_EQ(listener->told(), "");
}

TEST_F(AudioNotifierStub, RefusesAnotherTokenWithNothingWritten) {
    for (const uint32_t code : {1u, 2u}) {
        EXPECT_EQ(ask(*stub, code, {}), (Answer{-1, {}}));
        EXPECT_EQ(ask(*stub, code, parcel({token(kAudioName), i32(7)})), (Answer{-1, {}}));
        EXPECT_EQ(ask(*stub, code, parcel({token(u"accessory.AppleiAP2ManagerNotifier"), i32(7)})),
                  (Answer{-1, {}}));
    }
    EXPECT_EQ(listener->told(), "");
}

TEST_F(AudioNotifierStub, ReadsZeroForAnIdentifierThatIsCut) {
    for (size_t length = 0; length < 4; ++length) {
        EXPECT_EQ(ask(*stub, 1, audioEvent(cut(i32(0x01020304), length))), (Answer{0, i32(0)}));
        EXPECT_EQ(listener->told(), "attach(0)|");
    }
}

/// A client that answers in the stub itself.
class OwnAttach : public BnAppleUSBAudioManagerNotifier {
  public:
    using BnAppleUSBAudioManagerNotifier::BnAppleUSBAudioManagerNotifier;
    int attach(unsigned int accessoryId) override { return static_cast<int>(accessoryId) + 1; }
};

TEST_F(AudioNotifierStub, CallsItsOwnOperationsFirst) {
    const sp<OwnAttach> own = new OwnAttach(listener);
    EXPECT_EQ(ask(*own, 1, audioEvent(i32(7))), (Answer{0, i32(8)}));
    EXPECT_EQ(listener->told(), "");
}

TEST_F(AudioNotifierStub, ForwardsDirectCalls) {
    listener->answer = 4;
    EXPECT_EQ(stub->attach(1), 4);
    EXPECT_EQ(stub->detach(2), 4);
    EXPECT_EQ(listener->told(), "attach(1)|detach(2)|");
    EXPECT_THAT(logged(), are({notifierLine("attach Bn--> in, accessoryId: 1")}));
}

/// Ends the process with 0 when an event is handled, without the caller's line, on a thread without a state.
[[noreturn]] void attachWithoutAThreadState() {
    const sp<AudioListener> listener = new AudioListener;
    const sp<BnAppleUSBAudioManagerNotifier> stub = new BnAppleUSBAudioManagerNotifier(listener);
    listener->answer = 5;
    android::IPCThreadState::shutdown();
    android::Parcel data;
    android::Parcel reply;
    fill(&data, audioEvent(i32(7)));
    LogCatcher log;
    if (stub->onTransact(1, data, &reply, 0) != 0) _exit(1);
    if (bytesOf(reply) != i32(5)) _exit(2);
    if (listener->told() != "attach(7)|") _exit(3);
    if (log.lines().size() != 1) _exit(4);
    if (log.lines()[0].text != "attach Bn--> in, accessoryId: 7") _exit(5);
    _exit(0);
}

TEST(AudioNotifierStubDeathTest, SkipsOnlyTheCallersLineOnAThreadWithoutAState) {
    EXPECT_EXIT(attachWithoutAThreadState(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace accessory::test
