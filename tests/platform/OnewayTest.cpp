// One-way calls: they do not wait, keep their order, and never run twice at once for one object.
#include <gtest/gtest.h>

#include <map>
#include <mutex>
#include <thread>
#include <vector>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

/// What a service has noted down, in order.
struct Notes {
    bool overlapped = false;
    std::vector<std::pair<int32_t, int32_t>> senderAndNumber;
};

Notes notesOf(const ServiceProcess& service) {
    Call call(service.object(), kRecorded);
    EXPECT_EQ(NO_ERROR, call.run());
    Notes notes;
    notes.overlapped = call.reply.readInt32() != 0;
    for (int32_t left = call.reply.readInt32(); left > 0; --left) {
        const int32_t sender = call.reply.readInt32();
        notes.senderAndNumber.emplace_back(sender, call.reply.readInt32());
    }
    return notes;
}

Notes notesOnceThereAre(const ServiceProcess& service, size_t count) {
    EXPECT_TRUE(eventually([&] { return notesOf(service).senderAndNumber.size() >= count; }));
    return notesOf(service);
}

status_t note(const ServiceProcess& service, int32_t sender, int32_t number) {
    Call call(service.object(), kRecord);
    call << sender << number;
    return call.send();
}

/// Whether the numbers of each sender are 0, 1, 2 ...
bool keepsEachSendersOrder(const Notes& notes) {
    std::map<int32_t, int32_t> next;
    for (const auto& [sender, number] : notes.senderAndNumber) {
        if (number != next[sender]++) return false;
    }
    return true;
}

TEST(OnewayCall, DoesNotWaitForTheObject) {
    const ServiceProcess service;
    EXPECT_EQ(NO_ERROR, Call(service.object(), kWait).send());
    EXPECT_TRUE(eventually([&] { return ask(service.object(), kWaiting) == 1; }));
    ask(service.object(), kOpenGate);
}

TEST(OnewayCall, OfOneThreadRunsInTheOrderOfSending) {
    const ServiceProcess service;
    for (int number = 0; number < 2000; ++number)
        ASSERT_EQ(NO_ERROR, note(service, 1, number));
    const Notes notes = notesOnceThereAre(service, 2000);
    EXPECT_EQ(2000u, notes.senderAndNumber.size());
    EXPECT_TRUE(keepsEachSendersOrder(notes));
    EXPECT_FALSE(notes.overlapped);
}

TEST(OnewayCall, OfSeveralThreadsRunsOneAtATimeAndInTheOrderOfEachThread) {
    const ServiceProcess service;
    std::vector<std::thread> threads;
    for (int sender = 1; sender <= 4; ++sender) {
        threads.emplace_back([&service, sender] {
            for (int number = 0; number < 500; ++number)
                EXPECT_EQ(NO_ERROR, note(service, sender, number));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    const Notes notes = notesOnceThereAre(service, 2000);
    EXPECT_EQ(2000u, notes.senderAndNumber.size());
    EXPECT_TRUE(keepsEachSendersOrder(notes));
    EXPECT_FALSE(notes.overlapped);
}

TEST(OnewayCall, OfTwoThreadsThatTakeTurnsRunsInTurn) {
    const ServiceProcess service;
    std::mutex turn;
    int32_t next = 0;
    const auto takeTurns = [&] {
        for (int i = 0; i < 500; ++i) {
            const std::lock_guard lock(turn);
            EXPECT_EQ(NO_ERROR, note(service, 1, next++));
        }
    };
    std::thread other(takeTurns);
    takeTurns();
    other.join();
    EXPECT_TRUE(keepsEachSendersOrder(notesOnceThereAre(service, 1000)));
}

TEST(OnewayCall, DoesNotHoldUpCallsOfOtherObjects) {
    const ServiceProcess service;
    const sp<IBinder> made = askForObject(service.object(), kMake);
    EXPECT_EQ(NO_ERROR, Call(service.object(), kWait).send());
    EXPECT_TRUE(eventually([&] { return ask(service.object(), kWaiting) == 1; }));
    EXPECT_EQ(NO_ERROR, Call(made, kCaller).send());
    EXPECT_EQ(NO_ERROR, Call(made, kCaller).run());
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
    ask(service.object(), kOpenGate);
}

TEST(OnewayCall, QueuesBehindOneOfTheSameObjectThatStillRuns) {
    const ServiceProcess service;
    EXPECT_EQ(NO_ERROR, Call(service.object(), kWait).send());
    for (int number = 0; number < 10; ++number)
        EXPECT_EQ(NO_ERROR, note(service, 1, number));
    EXPECT_TRUE(eventually([&] { return ask(service.object(), kWaiting) == 1; }));
    EXPECT_TRUE(notesOf(service).senderAndNumber.empty());
    ask(service.object(), kOpenGate);
    EXPECT_TRUE(keepsEachSendersOrder(notesOnceThereAre(service, 10)));
}

TEST(OnewayCall, CarriesObjects) {
    const ServiceProcess service;
    const sp<IBinder> mine = new BBinder;
    Call call(service.object(), kKeep);
    call << mine;
    EXPECT_EQ(NO_ERROR, call.send());
    EXPECT_TRUE(eventually([&] { return askForObject(service.object(), kKept) == mine; }));
}

TEST(OnewayCall, ThatFailsTellsNobodyAndTheServiceGoesOn) {
    const ServiceProcess service;
    EXPECT_EQ(NO_ERROR, Call(service.object(), kThrow).send());
    Call failing(service.object(), kAnswer);
    failing << BAD_VALUE;
    EXPECT_EQ(NO_ERROR, failing.send());
    EXPECT_EQ(NO_ERROR, note(service, 1, 0));
    EXPECT_TRUE(keepsEachSendersOrder(notesOnceThereAre(service, 1)));
}

TEST(OnewayCall, FloodsAreTakenInAsTheServiceKeepsUp) {
    const ServiceProcess service(1);
    constexpr int kCalls = 40;
    for (int number = 0; number < kCalls; ++number) {
        Call call(service.object(), kRecord);
        call << 1 << number;
        call.request.setDataSize(size_t{512} * 1024);
        ASSERT_EQ(NO_ERROR, call.send());
    }
    EXPECT_TRUE(keepsEachSendersOrder(notesOnceThereAre(service, kCalls)));
}

TEST(OnewayCall, IsRefusedWhenTheServiceHasFallenFarBehindAndTakenInLater) {
    const ServiceProcess service;
    ASSERT_EQ(NO_ERROR, Call(service.object(), kWait).send());
    EXPECT_TRUE(eventually([&] { return ask(service.object(), kWaiting) == 1; }));
    int sent = 0;
    const auto noteNext = [&] {
        Call call(service.object(), kRecord);
        call << 1 << sent;
        call.request.setDataSize(size_t{64} * 1024);
        return call.send();
    };
    status_t status = NO_ERROR;
    while (status == NO_ERROR && sent < 1000) {
        status = noteNext();
        sent += status == NO_ERROR ? 1 : 0;
    }
    EXPECT_EQ(FAILED_TRANSACTION, status);
    EXPECT_GT(sent, 32) << "at least 2 MiB may wait";
    EXPECT_LT(sent, 160) << "at most 10 MiB may wait";
    EXPECT_EQ(FAILED_TRANSACTION, noteNext()) << "and the next one at once";
    ask(service.object(), kOpenGate);
    EXPECT_TRUE(eventually([&] { return noteNext() == NO_ERROR; }));
    EXPECT_TRUE(keepsEachSendersOrder(notesOnceThereAre(service, sent + 1))) << "none that was taken is lost";
}

TEST(OnewayCall, ToADeadProcessIsTheSendersErrorAtTheLatestOnceThatIsKnown) {
    ServiceProcess service;
    EXPECT_EQ(NO_ERROR, note(service, 1, 0));
    service.kill();
    EXPECT_EQ(DEAD_OBJECT, note(service, 1, 1));
    EXPECT_EQ(DEAD_OBJECT, note(service, 1, 2));
}

}  // namespace
}  // namespace accessory::test
