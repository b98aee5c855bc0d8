// The value that many threads read while some replace it.
#include <accessory/Snapshot.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/Eventually.h"

namespace accessory::test {
namespace {

using Keys = std::vector<int>;

constexpr int kThreads = 8;

/// Adds @p key when all threads have begun to, each with the same value before it.
void addBesideOthers(Snapshot<Keys>& shared, int key, std::atomic<int>& begun) {
    bool first = true;
    shared.update([&](Keys& keys) {
        if (std::exchange(first, false)) {
            ++begun;
            EXPECT_TRUE(eventually([&] { return begun.load() == kThreads; }));
        }
        keys.push_back(key);
        return 0;
    });
}

TEST(Snapshot, LosesNoneOfManyThreadsChanges) {
    Snapshot<Keys> shared;
    std::atomic<int> begun{0};
    std::vector<std::thread> threads;
    for (int key = 0; key < kThreads; ++key)
        threads.emplace_back([&, key] { addBesideOthers(shared, key, begun); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(*shared.load(), testing::UnorderedElementsAre(0, 1, 2, 3, 4, 5, 6, 7));
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
