#include "tests/AppleiAP2/notifier/TestClient.h"

#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <condition_variable>
#include <mutex>

#include "tests/AppleiAP2/notifier/Event.h"
#include "tests/AppleiAP2/notifier/Recorder.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {

using android::sp;
using android::String16;

namespace {

class Client : public Recorder {
  public:
    explicit Client(ChildSide& parent) : mParent(parent) { answer = RunningClient::kAnswer; }

    int notify(unsigned int accId, unsigned int event) override {
        if (event == RunningClient::kWaitForever) wait();
        return Recorder::notify(accId, event);
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

std::string linesOf(LogCatcher& log) {
    std::vector<std::string> texts;
    for (const LogLine& line : log.linesWith(kTag))
        texts.push_back(std::to_string(line.priority) + ' ' + line.text);
    log.clear();
    return joined(texts);
}

CHILD_ROLE(notifierClient) {
    LogCatcher log;
    const sp<Client> client = new Client(parent);
    const sp<android::IBinder> stub = new BnAppleiAP2ManagerNotifier(client);
    if (android::defaultServiceManager()->addService(String16(args.at(0).c_str()), stub) != 0) return 1;
    android::ProcessState::self()->startThreadPool();
    log.clear();
    parent.send("ready");
    for (std::string question = parent.expectLine(); question != "bye"; question = parent.expectLine())
        parent.send(question == "log" ? linesOf(log) : joined(client->takeTold()));
    return 0;
}

/// No two clients of one test run share a name.
std::string freshName() {
    static int count = 0;
    return "notifier" + std::to_string(++count);
}

}  // namespace

RunningClient::RunningClient() : RunningClient(freshName()) {}

RunningClient::RunningClient(const std::string& name) : process("notifierClient", {name}) {
    EXPECT_EQ(process.expectLine(), "ready");
    mBinder = android::defaultServiceManager()->getService(String16(name.c_str()));
    EXPECT_NE(mBinder, nullptr);
}

sp<IAppleiAP2ManagerNotifier> RunningClient::notifier() const {
    return IAppleiAP2ManagerNotifier::asInterface(mBinder);
}

std::string RunningClient::told() {
    process.send("told");
    return process.expectLine();
}

std::string RunningClient::log() {
    process.send("log");
    return process.expectLine();
}

void RunningClient::kill() {
    process.kill(SIGKILL);
    process.wait();
}

}  // namespace accessory::test
