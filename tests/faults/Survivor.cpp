#include "tests/faults/Survivor.h"

#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <thread>
#include <vector>

#include "tests/support/ChildProcess.h"

namespace accessory::test {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

namespace {

constexpr int kPoolThreads = 6;

/// Keeps every thread of the depot's pool busy until the gate is opened.
CHILD_ROLE(crowd) {
    const sp<IBinder> depot = defaultServiceManager()->getService(String16(args.at(0).c_str()));
    std::vector<std::thread> threads;
    for (int i = 0; i < kPoolThreads; ++i)
        threads.emplace_back([&depot] { EXPECT_EQ(NO_ERROR, Call(depot, kCrowd).run()); });
    for (std::thread& thread : threads)
        thread.join();
    return 0;
}

std::string freshDepotName() {
    static int count = 0;
    return "depot" + std::to_string(++count);
}

}  // namespace

Survivor::Survivor() : mDepotName(freshDepotName()) {
    ProcessState::self()->setThreadPoolMaxThreadCount(kPoolThreads);
    ProcessState::self()->startThreadPool();
    EXPECT_EQ(NO_ERROR, defaultServiceManager()->addService(String16(mDepotName.c_str()), depot));
    ChildProcess crowd("crowd", {mDepotName});
    EXPECT_TRUE(eventually([this] { return depot->gate.waiting() == kPoolThreads; }));
    depot->gate.open();
    EXPECT_TRUE(testing::ExitedWithCode(0)(crowd.wait()));
}

void Survivor::settle() {
    EXPECT_TRUE(eventually([this] {
        mAtFirst = Holdings::now();
        return !holdsASocketOfTheDead() && Holdings::now() == mAtFirst;
    }));
}

testing::AssertionResult Survivor::holdsWhatItHeld() const {
    if (eventually([this] { return Holdings::now() == mAtFirst; })) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << testing::PrintToString(Holdings::now()) << " instead of " << testing::PrintToString(mAtFirst);
}

}  // namespace accessory::test
