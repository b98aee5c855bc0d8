// The ring between the threads that record and the one that writes.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "trace/Ring.h"

namespace accessory::test {
namespace {

using android::runtime::trace::Ring;

bool put(Ring* ring, std::string text) {
    const iovec piece{text.data(), text.size()};
    return ring->put(&piece, 1);
}

/// All records that are there, one behind the other, taken out.
std::string takeAll(Ring* ring) {
    std::string text;
    std::vector<iovec> pieces;
    const Ring::Taken taken = ring->take(&pieces, 1000);
    for (const iovec& piece : pieces)
        text.append(static_cast<const char*>(piece.iov_base), piece.iov_len);
    ring->release(taken.bytes);
    return text;
}

TEST(TraceRing, GivesRecordsBackInTheirOrder) {
    Ring ring(64);
    EXPECT_TRUE(ring.isEmpty());
    EXPECT_TRUE(put(&ring, "one"));
    EXPECT_TRUE(put(&ring, "two and more"));
    EXPECT_FALSE(ring.isEmpty());
    EXPECT_EQ(takeAll(&ring), "onetwo and more");
    EXPECT_TRUE(ring.isEmpty());
    EXPECT_EQ(takeAll(&ring), "");
}

TEST(TraceRing, PutsPiecesTogether) {
    Ring ring(64);
    char first[] = "ab";
    char last[] = "cde";
    const iovec pieces[] = {{first, 2}, {nullptr, 0}, {last, 3}};
    EXPECT_TRUE(ring.put(pieces, 3));
    EXPECT_EQ(takeAll(&ring), "abcde");
}

TEST(TraceRing, RefusesWhatFindsNoRoomAndTakesMoreAfterwards) {
    Ring ring(64);
    EXPECT_FALSE(put(&ring, std::string(57, 'x')));  // and a word for its size
    EXPECT_TRUE(put(&ring, std::string(40, 'a')));
    EXPECT_TRUE(put(&ring, "b"));
    EXPECT_FALSE(put(&ring, "c"));
    EXPECT_EQ(takeAll(&ring), std::string(40, 'a') + "b");
    EXPECT_TRUE(put(&ring, std::string(56, 'd')));
    EXPECT_EQ(takeAll(&ring), std::string(56, 'd'));
}

TEST(TraceRing, CarriesRecordsAcrossItsEnd) {
    Ring ring(64);
    for (char c = 'a'; c <= 'z'; ++c) {
        const std::string text(static_cast<size_t>(20 + c % 5), c);
        ASSERT_TRUE(put(&ring, text));
        ASSERT_EQ(takeAll(&ring), text);
    }
}

/// Every record is told apart by its letter and is as long as its letter says.
bool isWhole(const std::string& text) {
    for (size_t at = 0; at < text.size();) {
        const auto length = size_t{1} + static_cast<unsigned char>(text[at]) - 'a';
        if (text.compare(at, length, std::string(length, text[at])) != 0) return false;
        at += length;
    }
    return true;
}

TEST(TraceRing, KeepsTheRecordsOfManyThreadsWhole) {
    constexpr int kThreads = 4;
    constexpr int kRecords = 5000;
    Ring ring(1024);
    std::atomic<int> running{kThreads};
    std::atomic<size_t> accepted{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < kRecords; ++i) {
                const int length = (t + i) % 26 + 1;
                const std::string text(static_cast<size_t>(length), static_cast<char>('a' + length - 1));
                if (put(&ring, text)) accepted += text.size();
            }
            --running;
        });
    }
    size_t taken = 0;
    for (bool more = true; more;) {
        more = running > 0 || !ring.isEmpty();
        const std::string text = takeAll(&ring);
        EXPECT_TRUE(isWhole(text)) << text;
        taken += text.size();
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(taken, accepted);
}

// Each of the two has at most one record in the ring; the second one's comes and goes while the first one
// puts. On a busy machine a turn can take a hundred times as long.
TEST(TraceRing, DropsNothingAsLongAsThereIsRoom) {
    constexpr int kRecords = 30'000;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(2);
    Ring ring(64);
    std::atomic<int> taken{0};
    int refusedFirst = 0;
    std::thread first([&] {
        for (int i = 0; i < kRecords && std::chrono::steady_clock::now() < end; ++i) {
            if (!put(&ring, "a")) ++refusedFirst;
            while (taken + refusedFirst <= i)
                std::this_thread::yield();
        }
        taken = -1;
    });
    int refusedSecond = 0;
    while (taken >= 0) {
        if (!put(&ring, "b")) ++refusedSecond;
        while (!ring.isEmpty()) {
            const std::string text = takeAll(&ring);
            taken += static_cast<int>(std::count(text.begin(), text.end(), 'a'));
            if (text.empty()) std::this_thread::yield();  // a record is being copied
        }
    }
    first.join();
    EXPECT_EQ(0, refusedFirst);
    EXPECT_EQ(0, refusedSecond);
}

}  // namespace
}  // namespace accessory::test
