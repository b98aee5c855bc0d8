// Many threads at the registry and at the stub at once: nothing is lost, nothing is left over.
#include <accessory/testing/RecordingBinder.h>

#include <atomic>
#include <thread>

#include "tests/AppleiAP2/manager/registry/RegistryFixture.h"

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
class Counter : public BnAppleiAP2ManagerNotifier {
  public:
    Counter() : BnAppleiAP2ManagerNotifier(new Recorder) {}
    int attach(unsigned int) override {
        ++calls;
        return 0;
    }
    int hidComponentUpdate(unsigned int, unsigned short, bool) override {
        ++calls;
        return 0;
    }
    std::atomic<int> calls{0};
};

/// Whether a notifier that may be removed at any time is still whole.
bool isNullOrAnswers(const sp<IAppleiAP2ManagerNotifier>& found) {
    return found == nullptr || found->attach(7) == 0;
}

/// The registry's listing; empty when it failed.
std::string countedIn(const sp<AppleiAP2ManagerNotifier>& registry) {
    android::String8 text;
    return registry->dump({}, text) == 0 ? text.string() : "";
}

class Stress : public RegistryFixture {
  protected:
    static constexpr int kThreads = 8;
    static constexpr int kEach = 64;

    const sp<Counter> counter{new Counter};
};

TEST_F(Stress, LosesNoRegistration) {
    onThreads(kThreads, [this](int thread) {
        for (int i = 0; i < kEach; ++i)
            EXPECT_EQ(registry->addNotifier(i * kThreads + thread, counter), 0);
    });
    for (int pid = 0; pid < kThreads * kEach; ++pid)
        EXPECT_EQ(registry->find(pid), counter) << pid;
    EXPECT_EQ(broadcaster->attach(7), 0);
    EXPECT_EQ(counter->calls, kThreads * kEach);
}

TEST_F(Stress, LetsExactlyOneOfManyRegisterForAProcess) {
    for (int pid = 0; pid < kEach; ++pid) {
        std::atomic<int> added{0};
        onThreads(4, [&](int) { added += registry->addNotifier(pid, counter) == 0 ? 1 : 0; });
        EXPECT_EQ(added, 1);
    }
}

TEST_F(Stress, LetsExactlyOneOfManyRemoveAProcess) {
    for (int pid = 0; pid < kEach; ++pid) {
        registry->addNotifier(pid, counter);
        std::atomic<int> gone{0};
        onThreads(4, [&](int) { gone += registry->removeNotifier(pid) == 0 ? 1 : 0; });
        EXPECT_EQ(gone, 1);
    }
    EXPECT_EQ(listing(), "notifier size[0]\n");
    EXPECT_EQ(counter->getStrongCount(), 1) << "a notifier is still held";
}

TEST_F(Stress, KeepsItsTableWhileItIsReadWithoutTheLock) {
    std::atomic<int> writers{4};
    std::atomic<int> rounds{0};
    onThreads(kThreads, [&](int thread) {
        if (thread < 4) {
            for (int i = 0; i < kEach; ++i) {
                EXPECT_EQ(registry->addNotifier(thread, sp<Counter>(new Counter)), 0);
                EXPECT_EQ(registry->addNotifier(100 + i * kThreads + thread, counter), 0);
                EXPECT_EQ(registry->removeNotifier(thread), 0);
            }
            --writers;
            return;
        }
        while (writers > 0) {
            ++rounds;
            switch (thread) {
                case 4:
                    EXPECT_EQ(broadcaster->attach(7), 0);
                    break;
                case 5:
                    EXPECT_EQ(broadcaster->hidComponentUpdate(7, 1, true), 0);
                    break;
                case 6:
                    EXPECT_TRUE(isNullOrAnswers(registry->find(3)));
                    break;
                default:
                    EXPECT_NE(countedIn(registry), "");
            }
        }
    });
    EXPECT_GT(rounds, 0);
    for (int thread = 0; thread < 4; ++thread) {
        EXPECT_EQ(registry->find(thread), nullptr);
        for (int i = 0; i < kEach; ++i)
            EXPECT_EQ(registry->find(100 + i * kThreads + thread), counter);
    }
}

TEST_F(Stress, StaysWholeWhenManyThreadsOfAProcessRegisterAndDeregister) {
    const sp<IAppleiAP2ManagerNotifier> notifier =
        IAppleiAP2ManagerNotifier::asInterface(sp<android::IBinder>(new testkit::RecordingBinder));
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

TEST_F(Stress, StaysWholeWhenClientsDieWhileOthersRegister) {
    onThreads(kThreads, [&](int thread) {
        for (int i = 0; i < kEach; ++i) {
            const int pid = 1000 + i * kThreads + thread;
            EXPECT_EQ(registry->addNotifier(pid, counter), 0);
            if (i % 2 == 0) continue;
            const sp<AppleiAP2NotifierDeathRecipient> recipient =
                new AppleiAP2NotifierDeathRecipient(stub, pid);
            recipient->binderDied(nullptr);
            EXPECT_EQ(registry->find(pid), nullptr);
        }
    });
    EXPECT_EQ(broadcaster->attach(7), 0);
    EXPECT_EQ(counter->calls, kThreads * kEach / 2);
}

}  // namespace
}  // namespace accessory::test
