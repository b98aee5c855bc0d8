#include "tests/AppleUSBAudio/AudioClient.h"

#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <condition_variable>

#include "tests/AppleUSBAudio/AudioFixture.h"

namespace accessory::test {

using android::sp;
using android::String16;

namespace {

constexpr std::chrono::milliseconds kLongPatience{100'000};

class Listener : public AudioListener {
  public:
    explicit Listener(ChildSide& parent) : mParent(parent) {}

    int attach(unsigned int accessoryId) override {
        if (accessoryId == AudioClient::kWait) wait();
        return AudioListener::attach(accessoryId);
    }

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

std::string resultsOf(IAppleUSBAudioManager& manager) {
    unsigned int ids[10] = {};
    unsigned int count = 0;
    std::string text;
    for (const int result :
         {manager.startup(), manager.shutdown(), manager.getIds(ids, &count), manager.setVolume(1, 2),
          manager.setSampleRate(3, 4), manager.start(5), manager.stop(6), manager.play(7), manager.pause(8)})
        text += std::to_string(result) + ' ';
    text += "ids";
    for (unsigned int i = 0; i < count; ++i)
        text += ' ' + std::to_string(ids[i]);
    return text;
}

CHILD_ROLE(audioClient) {
    const sp<android::IBinder> binder =
        android::defaultServiceManager()->getService(String16(args.at(0).c_str()));
    const sp<IAppleUSBAudioManager> manager = IAppleUSBAudioManager::asInterface(binder);
    if (manager == nullptr) return 1;
    android::ProcessState::self()->startThreadPool();
    const sp<Listener> listener = new Listener(parent);
    const sp<IAppleUSBAudioManagerNotifier> notifier = new BnAppleUSBAudioManagerNotifier(listener);
    const sp<IAppleUSBAudioManagerNotifier> another = new BnAppleUSBAudioManagerNotifier(new AudioListener);
    parent.send("ready");
    for (std::string told = parent.expectLine(kLongPatience); told != "bye";
         told = parent.expectLine(kLongPatience)) {
        if (told == "set") parent.send(std::to_string(manager->setNotifier(notifier)));
        if (told == "set another") parent.send(std::to_string(manager->setNotifier(another)));
        if (told == "set null") parent.send(std::to_string(manager->setNotifier(nullptr)));
        if (told == "clear") parent.send(std::to_string(manager->clearNotifier()));
        if (told == "all") parent.send(resultsOf(*manager));
        if (told == "told") parent.send(listener->told());
        if (told == "release") listener->release();
        if (told.rfind("answer ", 0) == 0) {
            listener->answer = std::stoi(told.substr(7));
            parent.send("ok");
        }
    }
    return 0;
}

}  // namespace

AudioClient::AudioClient(const std::string& service) : process("audioClient", {service}) {
    EXPECT_EQ(process.expectLine(), "ready");
}

int AudioClient::ask(const std::string& request) {
    begin(request);
    return ended();
}

std::string AudioClient::callAll() {
    process.send("all");
    return process.expectLine();
}

void AudioClient::answer(int result) {
    process.send("answer " + std::to_string(result));
    EXPECT_EQ(process.expectLine(), "ok");
}

std::string AudioClient::told() {
    process.send("told");
    return process.expectLine();
}

void AudioClient::awaitWaiting() { EXPECT_EQ(process.expectLine(), "waiting"); }

void AudioClient::release() { process.send("release"); }

void AudioClient::kill() {
    process.kill(SIGKILL);
    process.wait();
}

}  // namespace accessory::test
