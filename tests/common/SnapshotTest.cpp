// The value that many threads read while some replace it.
#include <accessory/Snapshot.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <vector>

namespace accessory::test {
namespace {

using Keys = std::vector<int>;

constexpr int kThreads = 8;
constexpr int kEach = 300;

/// Adds keys that no other thread adds.
void addAll(Snapshot<Keys>& shared, int thread) {
    for (int i = 0; i < kEach; ++i) {
        const int key = thread * kEach + i;
        const size_t size = shared.update([key](Keys& keys) {
            keys.push_back(key);
            return keys.size();
        });
        EXPECT_GE(size, static_cast<size_t>(i + 1));
    }
}

TEST(Snapshot, LosesNoneOfManyThreadsChanges) {
    Snapshot<Keys> shared;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread)
        threads.emplace_back([&shared, thread] { addAll(shared, thread); });
    for (std::thread& thread : threads)
        thread.join();
    Keys keys = *shared.load();
    std::sort(keys.begin(), keys.end());
    ASSERT_EQ(keys.size(), size_t{kThreads} * kEach);
    for (int key = 0; key < kThreads * kEach; ++key)
        ASSERT_EQ(keys[static_cast<size_t>(key)], key);
}

TEST(Snapshot, KeepsWhatAReaderHasAsItWas) {
    Snapshot<Keys> shared;
    const auto before = shared.load();
    EXPECT_EQ(shared.update([](Keys& keys) {
        keys.push_back(5);
        return 7;
    }),
              7);
    EXPECT_TRUE(before->empty());
    EXPECT_EQ(*shared.load(), Keys{5});
}

}  // namespace
}  // namespace accessory::test
