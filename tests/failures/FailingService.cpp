#include "tests/failures/FailingService.h"

#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include "tests/failures/LibraryService.h"
#include "tests/failures/ShortTransfer.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {

namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

CHILD_ROLE(failingService) {
    ProcessState::self()->startThreadPool();
    const status_t status =
        defaultServiceManager()->addService(String16(args.at(0).c_str()), makeTestService());
    EXPECT_EQ(NO_ERROR, publishManager(args.at(0)));
    parent.send(std::to_string(status));
    const TestsOwn conversation;
    for (;;) {
        const std::string wish = parent.expectLine(std::chrono::minutes(10));
        if (wish == "disarm") {
            parent.send(disarmFailure() ? "1" : "0");
            continue;
        }
        if (wish == "shorten") {
            parent.send("short");
            shortenTransfers();
            continue;
        }
        const auto what = static_cast<Failing>(std::stoi(wish));
        const int n = std::stoi(parent.expectLine());
        const int error = std::stoi(parent.expectLine());
        parent.send("armed");
        armFailure(what, n, error);
    }
}

}  // namespace

FailingService::FailingService() : mName(uniqueServiceName()), mProcess("failingService", {mName}) {
    EXPECT_EQ("0", mProcess.expectLine());
}

void FailingService::arm(Failing what, int n, int error) {
    mProcess.send(std::to_string(static_cast<int>(what)));
    mProcess.send(std::to_string(n));
    mProcess.send(std::to_string(error));
    EXPECT_EQ("armed", mProcess.expectLine());
}

bool FailingService::disarm() {
    mProcess.send("disarm");
    return mProcess.expectLine() == "1";
}

void FailingService::shortenTransfers() {
    mProcess.send("shorten");
    EXPECT_EQ("short", mProcess.expectLine());
}

bool FailingService::isWell() {
    const sp<IBinder> object = defaultServiceManager()->checkService(String16(mName.c_str()));
    return object != nullptr && object->pingBinder() == NO_ERROR;
}

}  // namespace accessory::test
