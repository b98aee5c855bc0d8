// The manager's stub: from the bytes of a request to the call of the service, the reply and the log.
#include <binder/IPCThreadState.h>
#include <sys/wait.h>

#include "tests/AppleUSBAudio/AudioFixture.h"

namespace accessory::test {
namespace {

using android::sp;

using Ids = std::vector<unsigned int>;

/// A request, and the call that it is to become.
struct ForwardedRequest {
    uint32_t code;
    Bytes arguments;
    std::string told;
};

std::vector<ForwardedRequest> forwardedRequests() {
    return {
        {3, {}, "startup()|"},
        {4, {}, "shutdown()|"},
        {5, {}, "getIds()|"},
        {6, parcel({i32(44100), i32(0xfffffffe)}), "setSampleRate(44100, 4294967294)|"},
        {7, parcel({i32(0x80000001), i32(9)}), "setVolume(2147483649, 9)|"},
        {8, i32(0xffffffff), "start(4294967295)|"},
        {9, i32(5), "stop(5)|"},
        {10, i32(0x7fffffff), "play(2147483647)|"},
        {11, i32(0), "pause(0)|"},
    };
}

Answer done(const Bytes& behindTheHeader) { return {0, parcel({i32(0), behindTheHeader})}; }

class ManagerStub : public AudioFixture {
  protected:
    /// The line that every request leaves.
    Line calling(uint32_t code) const {
        return error("Calling MSG[" + std::to_string(static_cast<int32_t>(code)) +
                     "]: PID=" + std::to_string(own) + ", UID=" + std::to_string(user));
    }
};

TEST_F(ManagerStub, CallsTheServiceAndAnswersItsStatus) {
    for (const int32_t status : {0, 1, -1, INT32_MIN, INT32_MAX}) {
        service->answer = status;
        for (const ForwardedRequest& request : forwardedRequests()) {
            const Bytes status_ = request.code == 5 ? parcel({i32(0), i32(status)}) : i32(status);
            EXPECT_EQ(ask(*stub, request.code, audioRequest(request.arguments)), done(status_))
                << request.code;
            EXPECT_EQ(service->told(), request.told);
        }
    }
}

TEST_F(ManagerStub, LogsTheCallerOfEveryRequestAtErrorAndNothingElse) {
    for (const ForwardedRequest& request : forwardedRequests()) {
        ask(*stub, request.code, audioRequest(request.arguments));
        EXPECT_THAT(logged(), are({calling(request.code)}));
    }
}

TEST_F(ManagerStub, LogsTheCallerOfUnknownCodesAndWrongTokensToo) {
    for (const uint32_t code : {0u, 12u, 0xffffffffu}) {
        ask(*stub, code, audioRequest());
        EXPECT_THAT(logged(), are({calling(code)}));
    }
    ask(*stub, 3, {});
    EXPECT_THAT(logged(), are({calling(3)}));
}

TEST_F(ManagerStub, HandsUnknownCodesOnBehindTheHeader) {
    for (const uint32_t code : {0u, 12u, 13u, 0x00ffffffu, 0xffffffffu})
        EXPECT_EQ(ask(*stub, code, audioRequest()), (Answer{android::UNKNOWN_TRANSACTION, i32(0)})) << code;
    EXPECT_EQ(service->told(), "");
}

TEST_F(ManagerStub, AnswersTheInterfacesNameBehindTheHeader) {
    EXPECT_EQ(ask(*stub, android::IBinder::INTERFACE_TRANSACTION, {}), done(string16(kAudioName)));
}

TEST_F(ManagerStub, RefusesAnotherToken) {
    const std::vector<Bytes> wrong = {{},
                                      token(u"accessory.AppleUSBAudioManage"),
                                      token(u"accessory.AppleUSBAudioManagerNotifier"),
                                      token(u"accessory.AppleiAP2Manager"),
                                      i32(0)};
    for (uint32_t code = 1; code <= 11; ++code) {
        for (const Bytes& bytes : wrong)
            EXPECT_EQ(ask(*stub, code, parcel({bytes, i32(7), i32(8)})), (Answer{-1, i32(0)})) << code;
    }
    EXPECT_EQ(service->told(), "");
    EXPECT_EQ(listing(), "notifier size[0]\n");
}

TEST_F(ManagerStub, ReadsZeroForWhatIsMissing) {
    const std::vector<ForwardedRequest> cutRequests = {
        {6, i32(44100), "setSampleRate(44100, 0)|"},
        {6, {}, "setSampleRate(0, 0)|"},
        {7, i32(9), "setVolume(9, 0)|"},
        {7, {}, "setVolume(0, 0)|"},
        {8, {}, "start(0)|"},
        {9, {}, "stop(0)|"},
        {10, {}, "play(0)|"},
        {11, {}, "pause(0)|"},
    };
    for (const ForwardedRequest& request : cutRequests) {
        EXPECT_EQ(ask(*stub, request.code, audioRequest(request.arguments)), done(i32(0)));
        EXPECT_EQ(service->told(), request.told);
    }
}

TEST_F(ManagerStub, ReadsZeroForAWordThatIsCut) {
    for (size_t length = 0; length < 4; ++length) {
        EXPECT_EQ(ask(*stub, 8, audioRequest(cut(i32(0x01020304), length))), done(i32(0)));
        EXPECT_EQ(service->told(), "start(0)|") << length;
    }
}

TEST_F(ManagerStub, RefusesATokenThatIsCutAnywhere) {
    const Bytes whole = token(kAudioName);
    for (size_t length = 0; length < whole.size() - 4; ++length)
        EXPECT_EQ(ask(*stub, 3, cut(whole, length)), (Answer{-1, i32(0)})) << length;
    EXPECT_EQ(service->told(), "");
}

TEST_F(ManagerStub, IgnoresWhatFollowsTheArguments) {
    EXPECT_EQ(ask(*stub, 9, audioRequest(parcel({i32(5), i32(6), i32(7)}))), done(i32(0)));
    EXPECT_EQ(service->told(), "stop(5)|");
}

TEST_F(ManagerStub, GivesTheServiceTenZeroedIdentifiersAndACountOfZero) {
    ask(*stub, 5, audioRequest());
    EXPECT_EQ(service->roomGiven, Ids(11, 0));
}

TEST_F(ManagerStub, AnswersNoIdentifiers) {
    service->answer = 6;
    EXPECT_EQ(ask(*stub, 5, audioRequest()), done(parcel({i32(0), i32(6)})));
}

TEST_F(ManagerStub, AnswersTenIdentifiers) {
    service->setIds({0, 1, 0xffffffff, 3, 4, 5, 6, 7, 8, 0x80000000}, 10);
    EXPECT_EQ(ask(*stub, 5, audioRequest()),
              done(parcel({i32(10), i32(0), i32(1), i32(0xffffffff), i32(3), i32(4), i32(5), i32(6), i32(7),
                           i32(8), i32(0x80000000), i32(0)})));
}

TEST_F(ManagerStub, AnswersAsManyIdentifiersAsAreCounted) {
    service->setIds({11, 12, 13}, 2);
    EXPECT_EQ(ask(*stub, 5, audioRequest()), done(parcel({i32(2), i32(11), i32(12), i32(0)})));
    service->setIds({11, 12, 13}, 4);
    EXPECT_EQ(ask(*stub, 5, audioRequest()),
              done(parcel({i32(4), i32(11), i32(12), i32(13), i32(0), i32(0)})));
}

TEST_F(ManagerStub, CutsACountAboveTen) {
    for (const unsigned int count : {11u, 12u, 0x7fffffffu, 0x80000000u, 0xffffffffu}) {
        service->setIds({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, count);
        EXPECT_EQ(ask(*stub, 5, audioRequest()),
                  done(parcel({i32(10), i32(1), i32(2), i32(3), i32(4), i32(5), i32(6), i32(7), i32(8),
                               i32(9), i32(10), i32(0)})))
            << count;
    }
}

TEST_F(ManagerStub, RegistersTheNotifierOfARequest) {
    const RemoteAudioClient client{};
    android::Parcel data;
    android::Parcel reply;
    data.writeInterfaceToken(IAppleUSBAudioManager::descriptor);
    data.writeStrongBinder(client.remote);
    data.setDataPosition(0);
    EXPECT_EQ(stub->onTransact(1, data, &reply, 0), 0);
    EXPECT_EQ(bytesOf(reply), parcel({i32(0), i32(0)}));
    const sp<IAppleUSBAudioManagerNotifier> registered = registry->find(own);
    EXPECT_NE(dynamic_cast<BpAppleUSBAudioManagerNotifier*>(registered.get()), nullptr);
    EXPECT_EQ(android::IInterface::asBinder(registered), client.remote);
}

TEST_F(ManagerStub, RegistersANotifierOfItsOwnProcessAsItIs) {
    const LocalAudioClient client{};
    android::Parcel data;
    android::Parcel reply;
    data.writeInterfaceToken(IAppleUSBAudioManager::descriptor);
    data.writeStrongBinder(android::IInterface::asBinder(client.notifier));
    data.setDataPosition(0);
    EXPECT_EQ(stub->onTransact(1, data, &reply, 0), 0);
    EXPECT_EQ(registry->find(own), client.notifier);
}

TEST_F(ManagerStub, RegistersNothingForAWrongToken) {
    const RemoteAudioClient client{};
    android::Parcel data;
    android::Parcel reply;
    data.writeInterfaceToken(android::String16("accessory.AppleiAP2Manager"));
    data.writeStrongBinder(client.remote);
    data.setDataPosition(0);
    EXPECT_EQ(stub->onTransact(1, data, &reply, 0), -1);
    EXPECT_EQ(bytesOf(reply), i32(0));
    EXPECT_EQ(registry->find(own), nullptr);
    EXPECT_TRUE(client.remote->linked.empty());
}

TEST_F(ManagerStub, AnswersBadValueForANullOrMissingNotifier) {
    android::Parcel data;
    android::Parcel reply;
    data.writeInterfaceToken(IAppleUSBAudioManager::descriptor);
    data.writeStrongBinder(nullptr);
    data.setDataPosition(0);
    EXPECT_EQ(stub->onTransact(1, data, &reply, 0), 0);
    EXPECT_EQ(bytesOf(reply), parcel({i32(0), i32(-22)}));
    EXPECT_EQ(ask(*stub, 1, audioRequest()), done(i32(-22)));
    EXPECT_EQ(ask(*stub, 1, audioRequest(i32(1))), done(i32(-22)));
    EXPECT_EQ(listing(), "notifier size[0]\n");
}

TEST_F(ManagerStub, DeregistersTheCaller) {
    const RemoteAudioClient client{};
    stub->setNotifier(client.notifier);
    EXPECT_EQ(ask(*stub, 2, audioRequest()), done(i32(0)));
    EXPECT_EQ(registry->find(own), nullptr);
    EXPECT_EQ(ask(*stub, 2, audioRequest()), done(i32(0)));
}

/// A service that answers in the stub itself.
class OwnAnswers : public BnAppleUSBAudioManager {
  public:
    using BnAppleUSBAudioManager::BnAppleUSBAudioManager;
    int startup() override { return 31; }
    int setNotifier(const sp<IAppleUSBAudioManagerNotifier>&) override { return 32; }
    int clearNotifier() override { return 33; }
    int setVolume(unsigned int value1, unsigned int value2) override {
        return static_cast<int>(value1 + value2);
    }
};

TEST_F(ManagerStub, CallsItsOwnOperationsFirst) {
    static OwnAnswers& own = *new OwnAnswers(service);
    static const sp<OwnAnswers>& kept = *new sp<OwnAnswers>(&own);
    EXPECT_EQ(ask(*kept, 3, audioRequest()), done(i32(31)));
    EXPECT_EQ(ask(*kept, 1, audioRequest()), done(i32(32)));
    EXPECT_EQ(ask(*kept, 2, audioRequest()), done(i32(33)));
    EXPECT_EQ(ask(*kept, 7, audioRequest(parcel({i32(3), i32(4)}))), done(i32(7)));
    EXPECT_EQ(service->told(), "");
}

TEST_F(ManagerStub, ForwardsDirectCallsWithoutALine) {
    service->answer = 12;
    unsigned int ids[10] = {};
    unsigned int count = 0;
    EXPECT_EQ(stub->startup(), 12);
    EXPECT_EQ(stub->shutdown(), 12);
    EXPECT_EQ(stub->getIds(ids, &count), 12);
    EXPECT_EQ(stub->setVolume(1, 2), 12);
    EXPECT_EQ(stub->setSampleRate(3, 4), 12);
    EXPECT_EQ(stub->start(5), 12);
    EXPECT_EQ(stub->stop(6), 12);
    EXPECT_EQ(stub->play(7), 12);
    EXPECT_EQ(stub->pause(8), 12);
    EXPECT_EQ(service->told(),
              "startup()|shutdown()|getIds()|setVolume(1, 2)|setSampleRate(3, "
              "4)|start(5)|stop(6)|play(7)|pause(8)|");
    EXPECT_THAT(logged(), testing::IsEmpty());
}

/// Ends the process with 0 when a request is served on a thread without a state, and not announced.
[[noreturn]] void serveWithoutAThreadState() {
    const sp<AudioService> service = new AudioService;
    service->answer = 5;
    const sp<BnAppleUSBAudioManager> stub = keptStub(service);
    android::IPCThreadState::shutdown();
    const LogCatcher log;
    const Answer answer = ask(*stub, 8, audioRequest(i32(7)));
    if (!log.lines().empty()) _exit(1);
    if (!(answer == Answer{0, parcel({i32(0), i32(5)})})) _exit(2);
    if (service->told() != "start(7)|") _exit(3);
    _exit(0);
}

TEST(AudioStubDeathTest, ServesAThreadWithoutAStateAndDoesNotNameItsCaller) {
    EXPECT_EXIT(serveWithoutAThreadState(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace accessory::test
