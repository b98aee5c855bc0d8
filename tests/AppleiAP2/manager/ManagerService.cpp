#include "tests/AppleiAP2/manager/ManagerService.h"

#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <condition_variable>
#include <mutex>

#include "tests/AppleiAP2/manager/ManagerRecorder.h"

namespace accessory::test {

using android::sp;
using android::String16;

namespace {

class Service : public ManagerRecorder {
  public:
    explicit Service(ChildSide& parent) : mParent(parent) { answer = RunningManager::kAnswer; }

    int stop(unsigned int accId) override {
        if (accId == RunningManager::kWaitForever) wait();
        if (accId == RunningManager::kTakesTheVersion) version = nullptr;
        return ManagerRecorder::stop(accId);
    }

    const char* getSupportFeature(unsigned int accId, const char* name) override {
        const char* const known = ManagerRecorder::getSupportFeature(accId, name);
        return accId == RunningManager::kWithoutFeatures ? nullptr : known;
    }

  private:
    void wait() {
        mParent.send("waiting");
        std::mutex never;
        std::unique_lock lock(never);
        std::condition_variable().wait(lock, [] { return false; });
    }

    ChildSide& mParent;
};

std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts)
        all += text + '|';
    return all;
}

CHILD_ROLE(managerService) {
    // It outlives main(), as the stub does.
    const auto* const service = new sp<Service>(new Service(parent));
    const auto* const stub = new sp<android::IBinder>(new BnAppleiAP2Manager(*service));
    if (android::defaultServiceManager()->addService(String16(args.at(0).c_str()), *stub) != 0) return 1;
    android::ProcessState::self()->startThreadPool();
    parent.send("ready");
    while (parent.expectLine() == "told")
        parent.send(joined((*service)->takeTold()));
    return 0;
}

/// No two services of one test run share a name.
std::string freshName() {
    static int count = 0;
    return "manager" + std::to_string(++count);
}

}  // namespace

RunningManager::RunningManager() : RunningManager(freshName()) {}

RunningManager::RunningManager(const std::string& name) : process("managerService", {name}) {
    EXPECT_EQ(process.expectLine(), "ready");
    mBinder = android::defaultServiceManager()->getService(String16(name.c_str()));
    EXPECT_NE(mBinder, nullptr);
}

std::string RunningManager::told() {
    process.send("told");
    return process.expectLine();
}

void RunningManager::kill() {
    process.kill(SIGKILL);
    process.wait();
}

}  // namespace accessory::test
