#include "tests/AppleiAP2/manager/registry/RegisteringClient.h"

#include <accessory/IAppleiAP2Manager.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <unistd.h>

#include <atomic>
#include <condition_variable>
#include <mutex>

#include "tests/AppleiAP2/manager/registry/DumpOutput.h"
#include "tests/AppleiAP2/notifier/Recorder.h"

namespace accessory::test {

using android::sp;
using android::String16;

namespace {

constexpr std::chrono::milliseconds kLongPatience{100'000};

class Client : public Recorder {
  public:
    explicit Client(ChildSide& parent) : mParent(parent) { answer = getpid(); }

    int notify(unsigned int accId, unsigned int event) override {
        if (event == RegisteringClient::kWait && mayWait) wait();
        return Recorder::notify(accId, event);
    }

    std::atomic<bool> mayWait{true};

    void release() {
        const std::lock_guard lock(mLock);
        mReleased = true;
        mChanged.notify_all();
    }

  private:
    void wait() {
        std::unique_lock lock(mLock);
        mReleased = false;
        mParent.send("waiting");
        mChanged.wait(lock, [this] { return mReleased; });
    }

    ChildSide& mParent;
    std::mutex mLock;
    std::condition_variable mChanged;
    bool mReleased = false;
};

std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts)
        all += text + '|';
    return all;
}

/// The list of the service's clients, through a pipe, which holds that of a thousand.
std::string listingOf(android::IBinder& service) {
    int ends[2] = {-1, -1};
    EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    EXPECT_EQ(service.dump(ends[1], dumpArguments({"notifier"})), 0);
    close(ends[1]);
    std::string text(1 << 16, '\0');
    const ssize_t length = read(ends[0], text.data(), text.size());
    close(ends[0]);
    text.resize(length > 0 ? static_cast<size_t>(length) : 0);
    return text;
}

int countedIn(const std::string& listing) {
    int lines = 0;
    for (size_t at = listing.find("pid["); at != std::string::npos; at = listing.find("pid[", at + 1))
        ++lines;
    const std::string head = "notifier size[" + std::to_string(lines) + "]\n";
    return listing.find(head) != std::string::npos ? lines : -1;
}

CHILD_ROLE(registeringClient) {
    const sp<android::IBinder> binder =
        android::defaultServiceManager()->getService(String16(args.at(0).c_str()));
    const sp<IAppleiAP2Manager> manager = IAppleiAP2Manager::asInterface(binder);
    if (manager == nullptr) return 1;
    android::ProcessState::self()->startThreadPool();
    const sp<Client> client = new Client(parent);
    const sp<IAppleiAP2ManagerNotifier> notifier = new BnAppleiAP2ManagerNotifier(client);
    const sp<IAppleiAP2ManagerNotifier> another = new BnAppleiAP2ManagerNotifier(new Recorder);
    parent.send("ready");
    for (std::string told = parent.expectLine(kLongPatience); told != "bye";
         told = parent.expectLine(kLongPatience)) {
        if (told == "set") parent.send(std::to_string(manager->setNotifier(notifier)));
        if (told == "set another") parent.send(std::to_string(manager->setNotifier(another)));
        if (told == "clear") parent.send(std::to_string(manager->clearNotifier()));
        if (told == "request") parent.send(std::to_string(manager->startHID(7)));
        if (told == "dump") parent.send(std::to_string(countedIn(listingOf(*binder))));
        if (told == "told") parent.send(joined(client->takeTold()));
        if (told == "release") client->release();
        if (told == "never wait") client->mayWait = false;
        if (told.rfind("answer ", 0) == 0) {
            client->answer = std::stoi(told.substr(7));
            parent.send("ok");
        }
    }
    return 0;
}

}  // namespace

RegisteringClient::RegisteringClient(const std::string& service) : process("registeringClient", {service}) {}

void RegisteringClient::awaitReady() { EXPECT_EQ(process.expectLine(kLongPatience), "ready"); }

int RegisteringClient::ended() { return std::stoi(process.expectLine(kLongPatience)); }

int RegisteringClient::ask(const std::string& request) {
    begin(request);
    return ended();
}

void RegisteringClient::answer(int result) {
    process.send("answer " + std::to_string(result));
    EXPECT_EQ(process.expectLine(), "ok");
}

std::string RegisteringClient::told() {
    process.send("told");
    return process.expectLine();
}

void RegisteringClient::awaitWaiting() { EXPECT_EQ(process.expectLine(), "waiting"); }

void RegisteringClient::neverWait() {
    process.send("never wait");
    answer(0);
}

void RegisteringClient::release() { process.send("release"); }

void RegisteringClient::kill() {
    process.kill(SIGKILL);
    process.wait();
}

}  // namespace accessory::test
