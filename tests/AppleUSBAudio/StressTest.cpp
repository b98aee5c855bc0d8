// Many threads at the registry and at the stub at once: nothing is lost, nothing is left over.
#include <accessory/testing/RecordingBinder.h>

#include <thread>

#include "tests/AppleUSBAudio/AudioFixture.h"

namespace accessory::test {
namespace {

using android::sp;

/// Runs @p work(number) on so many threads at once and waits for them.
template <typename Work>
void onThreads(int count, Work work) {
    std::atomic<int> ready{0};
    std::vector<std::thread> threads;
    for (int number = 0; number < count; ++number) {
        threads.emplace_back([&, number] {
            ++ready;
            while (ready < count)
                std::this_thread::yield();
            work(number);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

/// Counts its calls.
class CountingNotifier : public BnAppleUSBAudioManagerNotifier {
  public:
    CountingNotifier() : BnAppleUSBAudioManagerNotifier(new AudioListener) {}
    int attach(unsigned int) override {
        ++calls;
        return 0;
    }
    std::atomic<int> calls{0};
};

class AudioStress : public AudioFixture {
  protected:
    static constexpr int kThreads = 8;
    static constexpr int kEach = 64;

    const sp<CountingNotifier> counter{new CountingNotifier};
};

TEST_F(AudioStress, LosesNoRegistration) {
    onThreads(kThreads, [this](int thread) {
        for (int i = 0; i < kEach; ++i)
            EXPECT_EQ(registry->addNotifier(i * kThreads + thread, counter), 0);
    });
    EXPECT_EQ(broadcaster->attach(7), 0);
    EXPECT_EQ(counter->calls, kThreads * kEach);
}

TEST_F(AudioStress, LetsExactlyOneOfManyRegisterAndRemoveAProcess) {
    for (int pid = 0; pid < kEach; ++pid) {
        std::atomic<int> added{0};
        onThreads(4, [&](int) { added += registry->addNotifier(pid, counter) == 0 ? 1 : 0; });
        EXPECT_EQ(added, 1);
        std::atomic<int> removed{0};
        onThreads(4, [&](int) { removed += registry->removeNotifier(pid) == 0 ? 1 : 0; });
        EXPECT_EQ(removed, 1);
    }
    EXPECT_EQ(counter->getStrongCount(), 1) << "a notifier is still held";
}

TEST_F(AudioStress, StaysWholeWhenManyThreadsOfAProcessRegisterAndDeregister) {
    const sp<IAppleUSBAudioManagerNotifier> notifier =
        IAppleUSBAudioManagerNotifier::asInterface(sp<android::IBinder>(new testkit::RecordingBinder));
    onThreads(kThreads, [&](int) {
        for (int i = 0; i < kEach; ++i) {
            EXPECT_EQ(stub->setNotifier(notifier), 0);
            const int cleared = stub->clearNotifier();
            EXPECT_TRUE(cleared == 0 || cleared == -1) << cleared;
        }
    });
    registry->removeNotifier(own);
    EXPECT_EQ(listing(), "notifier size[0]\n");
    EXPECT_EQ(notifier->getStrongCount(), 1);
    EXPECT_EQ(stub->setNotifier(notifier), 0);
    EXPECT_EQ(stub->clearNotifier(), 0);
}

TEST_F(AudioStress, KeepsItsTableWhileItIsReadWithoutTheLock) {
    std::atomic<int> writers{4};
    onThreads(kThreads, [&](int thread) {
        if (thread < 4) {
            for (int i = 0; i < kEach; ++i) {
                EXPECT_EQ(registry->addNotifier(thread, counter), 0);
                const sp<AppleUSBAudioNotifierDeathRecipient> recipient =
                    new AppleUSBAudioNotifierDeathRecipient(stub, thread);
                recipient->binderDied(nullptr);
                EXPECT_EQ(registry->find(thread), nullptr);
            }
            --writers;
            return;
        }
        while (writers > 0) {
            EXPECT_EQ(broadcaster->attach(7), 0);
            EXPECT_EQ(stub->clearNotifier(), 0);
            android::String8 text;
            EXPECT_EQ(registry->dump({}, text), 0);
        }
    });
    EXPECT_EQ(listing(), "notifier size[0]\n");
}

}  // namespace
}  // namespace accessory::test
