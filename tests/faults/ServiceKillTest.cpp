// Services that are killed in the middle of whatever they do; the client that used them lives on.
#include <accessory/AppleiAP2ManagerNotifier.h>
#include <accessory/IAppleiAP2Manager.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <gtest/gtest.h>

#include <thread>

#include "tests/AppleiAP2/manager/registry/QuietService.h"
#include "tests/AppleiAP2/notifier/Recorder.h"
#include "tests/faults/Kills.h"
#include "tests/faults/Restless.h"
#include "tests/faults/Survivor.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

/// Serves requests and raises events without a pause until it is killed.
CHILD_ROLE(restlessService) {
    const sp<QuietService> service = new QuietService;
    const sp<BnAppleiAP2Manager> stub = new BnAppleiAP2Manager(service);
    ProcessState::self()->startThreadPool();
    const String16 name(args.at(0).c_str());
    defaultServiceManager()->addService(name, new Depot);
    defaultServiceManager()->addService(name + String16(".iap2"), stub);
    parent.send("ready");
    for (unsigned event = 0;; ++event)
        service->broadcasters.at(0)->attach(event);
}

class ServiceKill : public Survivor {
  protected:
    void SetUp() override {
        for (int warmUp = 0; warmUp < 3; ++warmUp)
            killInTheMiddle();
        settle();
    }

    void killInTheMiddle();
    void killAtTheBeginning();

    std::string freshName() { return depotName() + "." + std::to_string(++mServices); }

    sp<IBinder> find(const std::string& name) {
        return defaultServiceManager()->checkService(String16(name.c_str()));
    }

    const unsigned seed = killSeed();
    std::mt19937 random{seed};
    Latencies latencies;
    std::vector<sp<Recipient>> recipients;

  private:
    int mServices = 0;
};

/// Any time: while it serves requests, raises events, has an object of ours or one of its own on the way.
void ServiceKill::killInTheMiddle() {
    const std::string name = freshName();
    ChildProcess child("restlessService", {name});
    ASSERT_EQ("ready", child.expectLine());
    const sp<Recorder> told = new Recorder;
    const sp<IAppleiAP2ManagerNotifier> notifier = new BnAppleiAP2ManagerNotifier(told);
    {
        // Held until the notice has come: who drops the proxy before is told nothing.
        const sp<IBinder> theirs = find(name);
        const sp<IAppleiAP2Manager> manager = IAppleiAP2Manager::asInterface(find(name + ".iap2"));
        ASSERT_TRUE(theirs != nullptr && manager != nullptr);
        recipients.push_back(new Recipient);
        ASSERT_EQ(NO_ERROR, theirs->linkToDeath(recipients.back()));
        std::atomic<unsigned> steps{0};
        const auto live = [&](unsigned number) {
            Restless restless(manager, theirs, notifier, number);
            while (restless.step())
                ++steps;
        };
        std::thread one(live, random());
        std::thread another(live, random());
        StayingCall staying(theirs);
        const unsigned enough = random() % 40;
        EXPECT_TRUE(eventually([&] { return steps >= enough; }));
        spin(std::chrono::microseconds(random() % 2000));
        latencies.kill(child, staying);
        one.join();
        another.join();
        EXPECT_TRUE(recipients.back()->isTold());
    }
    EXPECT_TRUE(eventually([] { return Gift::alive() == 0; })) << Gift::alive();
    EXPECT_TRUE(eventually([&] { return notifier->getStrongCount() == 1; })) << notifier->getStrongCount();
}

/// Any time from its start on, while this process looks for it.
void ServiceKill::killAtTheBeginning() {
    const std::string name = freshName();
    ChildProcess child("restlessService", {name});
    std::thread caller([&] {
        const sp<IBinder> found = find(name);
        if (found != nullptr) Call(found, kEchoAll).run();
    });
    spin(std::chrono::microseconds(random() % 30'000));
    child.kill(SIGKILL);
    child.wait();
    caller.join();
    EXPECT_EQ(nullptr, find(name));
}

TEST_F(ServiceKill, LeavesNothingBehindInTheClient) {
    const int kills = killsToDo();
    for (int i = 0; i < kills && !HasFailure(); ++i)
        i % 8 == 7 ? killAtTheBeginning() : killInTheMiddle();
    latencies.check("killed services");
    EXPECT_TRUE(holdsWhatItHeld());
    for (const sp<Recipient>& recipient : recipients)
        EXPECT_EQ(1, recipient->notices());
}

}  // namespace
}  // namespace accessory::test
