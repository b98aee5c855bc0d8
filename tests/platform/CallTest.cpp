// Two-way calls: what reaches the object, and what comes back.
#include <binder/BpBinder.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <thread>
#include <vector>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

TEST(Call, ReachesAnObjectOfAnotherProcessAndBringsItsAnswerBack) {
    const ServiceProcess service;
    Call call(service.object(), kEcho);
    call << 1 << 2 << -3;
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(12u, call.reply.dataSize());
    EXPECT_EQ(1, call.reply.readInt32());
    EXPECT_EQ(2, call.reply.readInt32());
    EXPECT_EQ(-3, call.reply.readInt32());
}

TEST(Call, SendsTheWholeRequestWhereverItsPositionIs) {
    const ServiceProcess service;
    Call call(service.object(), kEcho);
    call << 1 << 2;
    call.request.setDataPosition(4);
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(8u, call.reply.dataSize());
    EXPECT_EQ(1, call.reply.readInt32());
}

TEST(Call, SendsNothingButTheDataWhenThePositionIsPastTheirEnd) {
    const ServiceProcess service;
    Call call(service.object(), kEcho);
    call << 1;
    call.request.setDataPosition(100'000);
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(4u, call.reply.dataSize());
}

TEST(Call, ReplacesWhatWasInTheReply) {
    const ServiceProcess service;
    Call call(service.object(), kEcho);
    call << 5;
    call.reply.writeInt64(99);
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(4u, call.reply.dataSize());
    EXPECT_EQ(5, call.reply.readInt32());
}

TEST(Call, NeedsNoReply) {
    const ServiceProcess service;
    Parcel request;
    request.writeInt32(1);
    EXPECT_EQ(NO_ERROR, service.object()->transact(kEcho, request, nullptr));
}

TEST(Call, BringsAnErrorOfTheStubAsStatusWithAnEmptyReply) {
    const ServiceProcess service;
    for (const status_t error : std::vector<status_t>{BAD_VALUE, PERMISSION_DENIED, NO_MEMORY, -1}) {
        Call call(service.object(), kAnswer);
        call << error;
        call.reply.writeInt32(1);
        EXPECT_EQ(error, call.run());
        EXPECT_EQ(0u, call.reply.dataSize());
    }
    EXPECT_EQ(42, ask(service.object(), kAnswer, NO_ERROR));
}

TEST(Call, OfAnUnknownCodeIsAnsweredWithUnknownTransaction) {
    const ServiceProcess service;
    for (const uint32_t code : {0u, 999u, uint32_t{IBinder::LAST_CALL_TRANSACTION}, 0xffffffffu}) {
        EXPECT_EQ(UNKNOWN_TRANSACTION, Call(service.object(), code).run()) << code;
    }
}

TEST(Call, FromSeveralThreadsAtOnceGivesEachItsOwnAnswer) {
    const ServiceProcess service;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 8; ++thread) {
        threads.emplace_back([&service, thread] {
            for (int number = 0; number < 200; ++number)
                EXPECT_EQ(thread * 1000 + number, ask(service.object(), kEcho, thread * 1000 + number));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

TEST(RemoteObject, TellsTheNameOfItsInterface) {
    const ServiceProcess service;
    EXPECT_EQ(String16("test.Service"), service.object()->getInterfaceDescriptor());
}

TEST(RemoteObject, KeepsTheNameOfItsInterfaceBeyondItsDeath) {
    ServiceProcess service;
    EXPECT_EQ(String16("test.Service"), service.object()->getInterfaceDescriptor());
    service.kill();
    EXPECT_EQ(String16("test.Service"), service.object()->getInterfaceDescriptor());
}

TEST(RemoteObject, HasNoNameWhenItDiedUnasked) {
    ServiceProcess service;
    service.kill();
    EXPECT_EQ(String16(), service.object()->getInterfaceDescriptor());
}

TEST(RemoteObject, AnswersAPingAsLongAsItLives) {
    ServiceProcess service;
    EXPECT_EQ(NO_ERROR, service.object()->pingBinder());
    EXPECT_TRUE(service.object()->isBinderAlive());
    service.kill();
    EXPECT_EQ(DEAD_OBJECT, service.object()->pingBinder());
    EXPECT_FALSE(service.object()->isBinderAlive());
}

TEST(RemoteObject, IsNotSentAnObjectThatDoesNotLieAtAWholeCell) {
    const ServiceProcess service;
    Parcel words;
    words.setDataSize(8);
    Call call(service.object(), kEcho);
    call.request.appendFrom(&words, 0, 5);
    call << sp<IBinder>(new BBinder);
    EXPECT_EQ(BAD_VALUE, call.run());
    EXPECT_EQ(BAD_VALUE, call.send());
    EXPECT_EQ(7, ask(service.object(), kEcho, 7)) << "the connection is as good as before";
}

TEST(RemoteObject, HasNoLocalSide) {
    const ServiceProcess service;
    EXPECT_EQ(nullptr, service.object()->localBinder());
    EXPECT_EQ(service.object().get(), service.object()->remoteBinder());
    EXPECT_EQ(nullptr, service.object()->queryLocalInterface(String16("test.Service")));
}

/// Remembers how many arguments a dump was asked for with.
class DumpedObject : public BBinder {
  public:
    status_t dump(int /*fd*/, const Vector<String16>& args) override {
        arguments = args.size();
        return NO_ERROR;
    }

    size_t arguments = 0;
};

TEST(LocalObject, TakesNoMoreDumpArgumentsThanTheRequestHoldsWhateverItsCountSays) {
    const sp<DumpedObject> object = new DumpedObject();
    // A count of 1,000,000, and one byte in which no argument can lie.
    const uint8_t bytes[] = {0x40, 0x42, 0x0f, 0x00, 0x00};
    Parcel request;
    ASSERT_EQ(NO_ERROR, request.setData(bytes, sizeof(bytes)));
    EXPECT_EQ(NO_ERROR, object->transact(IBinder::DUMP_TRANSACTION, request, nullptr));
    EXPECT_EQ(0u, object->arguments);
}

TEST(LocalObject, TakesNoDumpArgumentsFromWhereNoneCanBeRead) {
    const sp<DumpedObject> object = new DumpedObject();
    Parcel request;
    request.writeFileDescriptor(STDIN_FILENO);
    request.writeInt32(1'000'000);
    request.writeString16(String16("sound"));
    request.writeString16(nullptr, 0);
    request.writeFileDescriptor(STDIN_FILENO);  // no reading of a string moves past it
    EXPECT_EQ(NO_ERROR, object->transact(IBinder::DUMP_TRANSACTION, request, nullptr));
    EXPECT_EQ(2u, object->arguments) << "a null string is an empty one";
}

TEST(LocalObject, IsCalledDirectlyOnTheCallersThread) {
    std::thread::id servedOn;
    const sp<IBinder> object = new FunctionObject([&](uint32_t, const Parcel& data, Parcel* reply, uint32_t) {
        servedOn = std::this_thread::get_id();
        return reply->writeInt32(data.readInt32() + 1);
    });
    EXPECT_EQ(6, ask(object, kEcho, 5));
    EXPECT_EQ(std::this_thread::get_id(), servedOn);
}

TEST(LocalObject, HasRunAOnewayCallWhenTheCallReturns) {
    int served = 0;
    const sp<IBinder> object = new FunctionObject([&](uint32_t, const Parcel&, Parcel*, uint32_t flags) {
        EXPECT_EQ(uint32_t{IBinder::FLAG_ONEWAY}, flags);
        ++served;
        return NO_ERROR;
    });
    EXPECT_EQ(NO_ERROR, Call(object, kEcho).send());
    EXPECT_EQ(1, served);
}

TEST(LocalObject, IsAlwaysAliveAndCannotBeLinkedTo) {
    const sp<IBinder> object = new BBinder;
    const sp<Recipient> recipient = new Recipient;
    EXPECT_EQ(NO_ERROR, object->pingBinder());
    EXPECT_TRUE(object->isBinderAlive());
    EXPECT_EQ(INVALID_OPERATION, object->linkToDeath(recipient));
    EXPECT_EQ(INVALID_OPERATION, object->unlinkToDeath(recipient));
}

}  // namespace
}  // namespace accessory::test
