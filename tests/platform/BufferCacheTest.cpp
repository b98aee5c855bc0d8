// What each thread keeps for its parcels. Part of a program with a CountingHeap.
#include <binder/Parcel.h>
#include <gtest/gtest.h>

#include <thread>

#include "platform/binder/src/BufferCache.h"
#include "tests/platform/CountingHeap.h"
#include "tests/platform/ParcelBytes.h"

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using accessory::test::frees;
using accessory::test::hexOf;

namespace {

TEST(BufferCache, RoundsUpToPowersOfTwoUpToOneMiB) {
    const size_t sizes[][2] = {{0, 512},          {1, 512},           {512, 512},        {513, 1024},
                               {1025, 2048},      {32769, 65536},     {65536, 65536},    {65537, 131072},
                               {524289, 1048576}, {1048576, 1048576}, {1048577, 1048577}};
    for (const auto& [wanted, expected] : sizes) {
        size_t capacity = 0;
        uint8_t* const block = runtime::acquireBlock(wanted, &capacity);
        EXPECT_EQ(expected, capacity);
        runtime::releaseBlock(block, capacity);
    }
}

TEST(BufferCache, GivesABlockOutAgain) {
    size_t capacity = 0;
    uint8_t* const block = runtime::acquireBlock(3000, &capacity);
    runtime::releaseBlock(block, capacity);
    EXPECT_EQ(block, runtime::acquireBlock(4096, &capacity));
    runtime::releaseBlock(block, capacity);
    runtime::releaseBlock(nullptr, 0);
}

TEST(BufferCache, KeepsNoBlockBeyondTheLargest) {
    size_t capacity = 0;
    uint8_t* const block = runtime::acquireBlock(1048577, &capacity);
    const size_t before = frees();
    runtime::releaseBlock(block, capacity);
    EXPECT_EQ(before + 1, frees());
}

TEST(BufferCache, SharesLargeBlocksAmongThreads) {
    size_t capacity = 0;
    uint8_t* const block = runtime::acquireBlock(65537, &capacity);
    runtime::releaseBlock(block, capacity);
    std::thread([&] {
        size_t another = 0;
        uint8_t* const same = runtime::acquireBlock(100'000, &another);
        EXPECT_EQ(block, same);
        EXPECT_EQ(capacity, another);
        runtime::releaseBlock(same, another);
    }).join();
}

TEST(BufferCache, KeepsABoundedNumberOfLargeBlocks) {
    uint8_t* blocks[10] = {};
    size_t capacity = 0;
    for (uint8_t*& block : blocks)
        block = runtime::acquireBlock(1'000'000, &capacity);
    const size_t before = frees();
    for (uint8_t* block : blocks)
        runtime::releaseBlock(block, capacity);
    EXPECT_GE(frees() - before, 6u) << "4 MiB are kept at most";
    EXPECT_LT(frees() - before, 10u) << "some are kept";
}

/// Runs @p work on a new thread. @return how many blocks that thread gave back to the heap, its end included.
template <typename Work>
size_t freesOfAThread(Work work) {
    struct Counter {
        size_t* result = nullptr;
        ~Counter() { *result = frees(); }
    };
    size_t count = 0;
    std::thread([&] {
        static thread_local Counter counter;  // made before the cache, so gone after it
        counter.result = &count;
        work();
    }).join();
    return count;
}

TEST(BufferCache, KeepsABoundedNumberOfBlocksPerThread) {
    size_t freesBeforeTheEnd = 0;
    freesOfAThread([&] {
        uint8_t* blocks[10] = {};
        size_t capacity = 0;
        for (uint8_t*& block : blocks)
            block = runtime::acquireBlock(65536, &capacity);
        for (uint8_t* block : blocks)
            runtime::releaseBlock(block, capacity);
        freesBeforeTheEnd = frees();
    });
    EXPECT_EQ(6u, freesBeforeTheEnd);
}

TEST(BufferCache, GivesEverythingBackWhenTheThreadEnds) {
    const size_t freed = freesOfAThread([] {
        Parcel first;
        Parcel second;
        first.writeInt32(1);
        second.writeInt32(2);
    });
    EXPECT_EQ(freesOfAThread([] {}) + 2, freed);
}

TEST(BufferCache, IsNotUsedAnyMoreByAParcelThatOutlivesIt) {
    const size_t freed = freesOfAThread([] {
        static thread_local Parcel late;  // made before the cache, so gone after it
        late.setDataPosition(0);
        late.writeInt32(1);
        Parcel().writeInt32(2);
    });
    EXPECT_EQ(freesOfAThread([] {}) + 2, freed);
}

TEST(BufferCache, TakesBlocksOfOtherThreads) {
    Parcel parcel;
    std::thread([&] { parcel.writeInt32(1); }).join();
    EXPECT_EQ("01 00 00 00", hexOf(parcel));
    parcel.freeData();
    EXPECT_EQ(NO_ERROR, parcel.writeInt32(2));
}

}  // namespace
