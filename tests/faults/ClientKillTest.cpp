// Clients that are killed in the middle of whatever they do; the service lives on as if they had never been.
#include <accessory/IAppleiAP2Manager.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "tests/AppleiAP2/manager/registry/DumpOutput.h"
#include "tests/AppleiAP2/manager/registry/QuietService.h"
#include "tests/AppleiAP2/notifier/Recorder.h"
#include "tests/faults/Kills.h"
#include "tests/faults/Restless.h"
#include "tests/faults/Survivor.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

/// Registers, requests and so on until it is killed, on two threads. Only one of them registers and
/// deregisters: of two such requests of a dead client each could undo the other, and what is left would tell
/// nothing.
CHILD_ROLE(restlessClient) {
    const auto get = [](const std::string& name) {
        return defaultServiceManager()->getService(String16(name.c_str()));
    };
    const sp<IAppleiAP2Manager> manager = IAppleiAP2Manager::asInterface(get(args.at(0)));
    const sp<IBinder> depot = get(args.at(1));
    const auto seed = static_cast<unsigned>(std::stoul(args.at(2)));
    if (manager == nullptr || depot == nullptr) return 1;
    ProcessState::self()->startThreadPool();
    Call anchor(depot, kAnchor);
    anchor << sp<IBinder>(new Depot);
    if (anchor.run() != NO_ERROR) return 1;
    const auto live = [&](const sp<IAppleiAP2ManagerNotifier>& notifier, unsigned ownSeed) {
        Restless restless(manager, depot, notifier, ownSeed);
        while (restless.step()) {
        }
    };
    std::thread other([&] { live(nullptr, seed + 1); });
    live(new BnAppleiAP2ManagerNotifier(new Recorder), seed);
    other.join();
    return 0;
}

class ClientKill : public Survivor {
  protected:
    void SetUp() override {
        EXPECT_EQ(NO_ERROR, defaultServiceManager()->addService(
                                String16(depotName().c_str()) + String16(".iap2"), stub));
        // While no client knows the stub, nobody holds it for the length of a request.
        mStubHolders = stub->getStrongCount();
        for (int warmUp = 0; warmUp < 3; ++warmUp)
            killInTheMiddle();
        mStubHolders += static_cast<int32_t>(unlinked);
        forgetTheUnlinked();
        settle();
    }

    void killInTheMiddle();
    void killAtTheBeginning();
    void expectNothingOfTheDead(const sp<Recipient>& recipient);

    ChildProcess start() {
        return ChildProcess("restlessClient", {depotName() + ".iap2", depotName(), std::to_string(random())});
    }

    /// Raises events all the time until @p end.
    void raiseEvents(const std::atomic<bool>& end) {
        for (unsigned event = 0; !end; ++event) {
            broadcaster->attach(event);
            broadcaster->hidComponentUpdate(event, 1, true);
        }
    }

    /// The processes in the list that a dump shows.
    std::vector<int> listed() {
        EXPECT_EQ(stub->dump(output.in(), dumpArguments({"notifier"})), 0);
        const std::string text = output.only();
        std::vector<int> pids;
        for (size_t at = text.find("pid["); at != std::string::npos; at = text.find("pid[", at + 1))
            pids.push_back(std::stoi(text.substr(at + 4)));
        return pids;
    }

    /// A client that died between its entry and the link to its death stays registered: that is logged, and
    /// nothing is undone. Counts those since the last time.
    size_t newlyUnlinked() {
        const std::vector<LogLine> lines = log.take();
        return static_cast<size_t>(std::count_if(lines.begin(), lines.end(), [](const LogLine& line) {
            return line.tag == "IAppleiAP2Manager" && line.text.rfind("setNotifier ", 0) == 0 &&
                   line.text.find("check return value failed") != std::string::npos;
        }));
    }

    /// Does by hand what the registry leaves to be done.
    void forgetTheUnlinked() {
        for (const int pid : listed())
            dynamic_cast<AppleiAP2ManagerNotifier&>(*broadcaster).removeNotifier(pid);
        unlinked = 0;
    }

    const unsigned seed = killSeed();
    std::mt19937 random{seed};
    const sp<QuietService> service{new QuietService};
    const sp<BnAppleiAP2Manager> stub{new BnAppleiAP2Manager(service)};
    const sp<AppleiAP2ManagerNotifierItf> broadcaster{service->broadcasters.at(0)};
    LogCatcher log;
    const DumpOutput output;
    Latencies latencies;
    std::vector<sp<Recipient>> recipients;
    size_t unlinked = 0;

    /// The recipients of those that could not be linked hold the stub.
    int32_t expectedHolders() const { return mStubHolders + static_cast<int32_t>(unlinked); }

  private:
    int32_t mStubHolders = 0;
};

/// Any time after it has become known here: registering, in a request, in an event, passing an object.
void ClientKill::killInTheMiddle() {
    ChildProcess child = start();
    sp<IBinder> anchor;
    ASSERT_TRUE(eventually([&] { return (anchor = depot->anchorOf(child.pid())) != nullptr; }));
    const sp<Recipient> recipient = new Recipient;
    ASSERT_EQ(NO_ERROR, anchor->linkToDeath(recipient));
    std::atomic<bool> end{false};
    std::thread events([&] { raiseEvents(end); });
    StayingCall staying(anchor);
    const int enough = depot->calls() + static_cast<int>(random() % 40);
    EXPECT_TRUE(eventually([&] { return depot->calls() >= enough; }));
    spin(std::chrono::microseconds(random() % 2000));
    latencies.kill(child, staying);
    end = true;
    events.join();
    expectNothingOfTheDead(recipient);
}

/// Any time from its start on, whether anybody here knows it or not.
void ClientKill::killAtTheBeginning() {
    ChildProcess child = start();
    spin(std::chrono::microseconds(random() % 30'000));
    child.kill(SIGKILL);
    child.wait();
}

void ClientKill::expectNothingOfTheDead(const sp<Recipient>& recipient) {
    EXPECT_TRUE(recipient->isTold());
    recipients.push_back(recipient);
    depot->clear();
    EXPECT_TRUE(eventually([this] {
        unlinked += newlyUnlinked();
        return listed().size() == unlinked;
    })) << listed().size()
        << " registered, " << unlinked << " could not be linked";
    EXPECT_TRUE(eventually([] { return Gift::alive() == 0; })) << Gift::alive();
}

TEST_F(ClientKill, LeavesNothingBehindInTheService) {
    const int kills = killsToDo();
    for (int i = 0; i < kills && !HasFailure(); ++i)
        i % 8 == 7 ? killAtTheBeginning() : killInTheMiddle();
    depot->clear();
    latencies.check("killed clients");
    // The request of the last client may have come to its link only now.
    EXPECT_TRUE(eventually([this] {
        unlinked += newlyUnlinked();
        return stub->getStrongCount() == expectedHolders();
    })) << stub->getStrongCount()
        << " instead of " << expectedHolders();
    EXPECT_TRUE(holdsWhatItHeld());
    for (const sp<Recipient>& recipient : recipients)
        EXPECT_EQ(1, recipient->notices());
    std::printf("%zu of %d died between entry and link and stayed registered\n", unlinked, kills);
}

}  // namespace
}  // namespace accessory::test
