// The accessory manager between two real processes: every operation, the caller's identity, both dumps,
// refusals.
#include <binder/Parcel.h>
#include <fcntl.h>
#include <unistd.h>

#include <string>
#include <thread>
#include <vector>

#include "tests/AccessoryManager/Bytes.h"
#include "tests/AccessoryManager/Spelling.h"
#include "tests/AccessoryManager/TestService.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using android::IBinder;
using android::NO_ERROR;
using android::sp;
using android::String16;
using android::String8;

/// More than any transaction carries.
constexpr size_t kTooLong = 2 << 20;

std::string callingLine(uint32_t code) {
    return "6 Calling MSG[" + std::to_string(code) + "]: PID=" + std::to_string(getpid()) +
           ", UID=" + std::to_string(getuid()) + "|";
}

/// Everything that the service writes to a pipe.
std::string dumpOf(const sp<IBinder>& binder, std::initializer_list<const char*> words) {
    android::Vector<String16> args;
    for (const char* word : words)
        args.add(String16(word));
    int ends[2]{-1, -1};
    EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    EXPECT_EQ(binder->dump(ends[1], args), NO_ERROR);
    close(ends[1]);
    std::string content(4096, '\0');
    content.resize(static_cast<size_t>(read(ends[0], content.data(), content.size())));
    close(ends[0]);
    return content;
}

class AcrossProcesses : public testing::Test {
  protected:
    /// @return the status of a request of those bytes; its reply is in @p reply.
    android::status_t ask(uint32_t code, const Bytes& request, Bytes* reply, uint32_t flags = 0) {
        android::Parcel data;
        android::Parcel answer;
        fill(&data, request);
        const android::status_t status = service.binder()->transact(code, data, &answer, flags);
        *reply = bytesOf(answer);
        return status;
    }

    void expectStillServing() { EXPECT_EQ(manager->getDeviceCount(), 3); }

    LogCatcher log;
    RunningService service;
    const sp<IAccessoryManager> manager = service.manager();
};

TEST_F(AcrossProcesses, AnswersTheCount) { EXPECT_EQ(manager->getDeviceCount(), 3); }

TEST_F(AcrossProcesses, AnswersTheFeatureOfEveryIdentifier) {
    for (const unsigned int id : {0u, 1u, 0x7fffffffu, 0x80000000u, 0xffffffffu})
        EXPECT_EQ(manager->getFeature(id), static_cast<int32_t>(~id));
}

TEST_F(AcrossProcesses, AnswersPathsOfEveryLength) {
    for (const unsigned int length : {0u, 1u, 2u, 3u, 4u, 5u, 4095u, 4096u, 100'001u, 1'000'000u})
        EXPECT_EQ(text(manager->getPath(length)), pathOfLength(length)) << length;
    EXPECT_THAT(log.linesWith("IAccessoryManager"), testing::IsEmpty());
}

TEST_F(AcrossProcesses, TakesPathsOfEveryKind) {
    for (const std::string& path : {std::string(), std::string("/dev/x"), std::string("\xe2\x82\xac"),
                                    std::string("a\0b", 3), pathOfLength(1'000'000)})
        EXPECT_EQ(manager->getAccessoryId(string8Of(path)), identifierOf(path)) << path.size();
    EXPECT_THAT(log.linesWith("IAccessoryManager"), testing::IsEmpty());
}

TEST_F(AcrossProcesses, LogsTheClientsPidAndUidInTheService) {
    manager->getDeviceCount();
    manager->getFeature(1);
    manager->getPath(1);
    manager->getAccessoryId(String8("x"));
    EXPECT_EQ(service.log(), callingLine(1) + callingLine(2) + callingLine(3) + callingLine(4));
}

TEST_F(AcrossProcesses, CallsWithFlagsZero) {
    manager->getDeviceCount();
    EXPECT_EQ(service.flags(), "0");
    manager->getAccessoryId(String8("x"));
    EXPECT_EQ(service.flags(), "0");
}

TEST_F(AcrossProcesses, AnswersInBytes) {
    Bytes reply;
    EXPECT_EQ(ask(2, parcel({token(), i32(7)}), &reply), NO_ERROR);
    EXPECT_EQ(reply, parcel({i32(0), i32(-8)}));
    EXPECT_EQ(ask(3, parcel({token(), i32(4)}), &reply), NO_ERROR);
    EXPECT_EQ(reply, parcel({i32(0), i32(4), {'x', 'y', 'z', 'x'}, i32(0)}));
}

TEST_F(AcrossProcesses, RefusesAnUnknownCodeAndAWrongToken) {
    Bytes reply;
    EXPECT_EQ(ask(0, token(), &reply), android::UNKNOWN_TRANSACTION);
    EXPECT_EQ(ask(5, token(), &reply), android::UNKNOWN_TRANSACTION);
    EXPECT_EQ(reply, Bytes{});
    EXPECT_EQ(ask(1, token(u"accessory.AppleiAP2Manager"), &reply), -1);
    EXPECT_EQ(reply, Bytes{});
    EXPECT_EQ(service.log(), callingLine(0) + callingLine(5) + callingLine(1));
    expectStillServing();
}

TEST_F(AcrossProcesses, AnswersTheInterfacesNameBehindTheLeadingZero) {
    Bytes reply;
    EXPECT_EQ(ask(IBinder::INTERFACE_TRANSACTION, {}, &reply), NO_ERROR);
    EXPECT_EQ(reply, parcel({i32(0), string16(u"accessory.AccessoryManager")}));
}

TEST_F(AcrossProcesses, SurvivesARequestThatWaitsForNoReply) {
    Bytes reply;
    EXPECT_EQ(ask(3, parcel({token(), i32(5)}), &reply, IBinder::FLAG_ONEWAY), NO_ERROR);
    EXPECT_EQ(reply, Bytes{});
    expectStillServing();
    EXPECT_TRUE(eventually([this] { return service.log().find(callingLine(3)) != std::string::npos; }));
}

TEST_F(AcrossProcesses, IsPingedWithoutALogLine) {
    EXPECT_EQ(service.binder()->pingBinder(), NO_ERROR);
    EXPECT_EQ(service.log(), "");
}

TEST_F(AcrossProcesses, DumpsIntoTheClientsDescriptor) {
    EXPECT_EQ(dumpOf(service.binder(), {}), "-[accessory.AccessoryManager]-\narguments:");
    EXPECT_EQ(dumpOf(service.binder(), {"-a", "b"}), "-[accessory.AccessoryManager]-\narguments: [-a] [b]");
    EXPECT_EQ(dumpOf(service.binder(), {"notifier"}), "-[accessory.AccessoryManager]-\n");
}

TEST_F(AcrossProcesses, GivesZeroForAPathThatIsTooLongToSend) {
    EXPECT_EQ(manager->getAccessoryId(string8Of(pathOfLength(kTooLong))), 0);
    EXPECT_THAT(log.linesWith("IAccessoryManager"),
                testing::ElementsAre(
                    LoggedCheck("IAccessoryManager", "getAccessoryId", "!reply.readExceptionCode()")));
    expectStillServing();
}

TEST_F(AcrossProcesses, GivesAnEmptyPathForOneThatIsTooLongToAnswer) {
    EXPECT_EQ(text(manager->getPath(kTooLong)), "");
    EXPECT_THAT(
        log.linesWith("IAccessoryManager"),
        testing::ElementsAre(LoggedCheck("IAccessoryManager", "getPath", "!reply.readExceptionCode()")));
    expectStillServing();
}

TEST_F(AcrossProcesses, AnswersEachOfManyThreadsWithItsOwnValue) {
    std::vector<std::thread> clients;
    for (unsigned int client = 0; client < 8; ++client) {
        clients.emplace_back([this, client] {
            for (unsigned int id = client; id < 1600; id += 8)
                ASSERT_EQ(manager->getFeature(id), static_cast<int32_t>(~id));
        });
    }
    for (std::thread& client : clients)
        client.join();
}

}  // namespace
}  // namespace accessory::test
