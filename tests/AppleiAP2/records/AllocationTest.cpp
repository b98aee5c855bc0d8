// How often reading a record asks for memory. The program counts its calls of operator new, the library's
// too.
#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

#include "AppleiAP2/records/EntryMemory.h"
#include "tests/AppleiAP2/records/MediaLibrarySamples.h"
#include "tests/AppleiAP2/records/NowPlayingSamples.h"
#include "tests/AppleiAP2/records/PowerSamples.h"
#include "tests/AppleiAP2/records/RouteGuidanceSamples.h"

namespace {
std::atomic<int> allocations{0};
}

// NOLINTBEGIN(cppcoreguidelines-no-malloc): what operator new is made of

__attribute__((visibility("default"))) void* operator new(size_t size, const std::nothrow_t&) noexcept {
    ++allocations;
    return std::malloc(size);
}

__attribute__((visibility("default"))) void* operator new(size_t size) {
    if (void* memory = operator new(size, std::nothrow)) return memory;
    throw std::bad_alloc();
}

__attribute__((visibility("default"))) void operator delete(void* memory) noexcept { std::free(memory); }

__attribute__((visibility("default"))) void operator delete(void* memory, size_t) noexcept {
    std::free(memory);
}

// NOLINTEND(cppcoreguidelines-no-malloc)

namespace accessory::test {
namespace {

/// An object takes two: itself, and the counts that the platform keeps beside it.
constexpr int kObject = 2;

template <typename Record>
int allocationsToRead(const Words& words) {
    android::Parcel parcel;
    words.putInto(parcel);
    Record::FromParcel(parcel);  // what the first log line of a program takes is not the record's
    parcel.setDataPosition(0);
    const int before = allocations;
    const auto record = Record::FromParcel(parcel);
    const int after = allocations;
    EXPECT_NE(nullptr, record);
    return after - before;
}

template <typename Sample>
int allocationsToReadAllFields() {
    Words words = Words().i32(0xffffffff);
    for (const FieldWords& field : Sample::words())
        words += field.words;
    return allocationsToRead<typename Sample::Table::Parcelable>(words);
}

/// Reads a record whose mask names no field. Readers that log pay for the log line here too.
template <typename Sample>
int allocationsToReadNoField() {
    return allocationsToRead<typename Sample::Table::Parcelable>(Words().i32(0x80000000));
}

template <typename Sample>
void expectNoneForFields() {
    EXPECT_EQ(allocationsToReadNoField<Sample>(), allocationsToReadAllFields<Sample>())
        << Sample::Table::kName;
}

TEST(Allocation, IsNoneForAField) {
    expectNoneForFields<MediaItemSample>();
    expectNoneForFields<MediaPlaylistSample>();
    expectNoneForFields<ItemAttributeSample>();
    expectNoneForFields<MediaPlaybackSample>();
    expectNoneForFields<PowerUpdateSample>();
    expectNoneForFields<RouteGuidanceSample>();
    expectNoneForFields<ManeuverSample>();
    expectNoneForFields<LaneGuidanceSample>();
}

TEST(Allocation, IsOnePerRecordAndOneForItsMaskObject) {
    EXPECT_EQ(2 * kObject, allocationsToReadAllFields<MediaItemSample>());
    EXPECT_EQ(2 * kObject, allocationsToReadAllFields<MediaPlaylistSample>());
    EXPECT_EQ(2 * kObject, allocationsToReadAllFields<ItemAttributeSample>());
    EXPECT_EQ(2 * kObject, allocationsToReadAllFields<MediaPlaybackSample>());
    EXPECT_EQ(kObject, allocationsToReadAllFields<RouteGuidanceSample>()) << "its mask is a member";
}

TEST(Allocation, OfALibraryUpdateIsThatOfItsEntries) {
    Words words = Words().i32(0).i32(100);
    for (int i = 0; i < 100; ++i)
        words.i32(2).i64(7);
    EXPECT_EQ(2 * kObject + 100 * kObject, allocationsToRead<IiAP2MediaLibData>(words));
}

constexpr size_t kItems = 100;

/// The blocks in which the items of an update and their masks lie, each behind two words that say where.
size_t blocksOfItems() {
    constexpr size_t kUnit = alignof(std::max_align_t);
    const auto place = [](size_t bytes) {
        return (2 * sizeof(void*) + kUnit - 1) / kUnit * kUnit + (bytes + kUnit - 1) / kUnit * kUnit;
    };
    const size_t bytes = kItems * (place(sizeof(IiAP2MediaItem)) + place(sizeof(MediaItemMask)));
    return (bytes + EntryMemory::kBlockBytes - 1) / EntryMemory::kBlockBytes;
}

TEST(Allocation, OfItemsIsOnePerBlockAndTwoCountsPerItem) {
    Words words = Words().i32(0).i32(kItems);
    for (size_t i = 0; i < kItems; ++i)
        words.i32(0).i32(MediaItemMask::kRating).i32(5);
    const int countsOfItems = 2 * static_cast<int>(kItems);
    const int blocks = static_cast<int>(blocksOfItems());
    EXPECT_LT(blocks, 5) << "a hundred items lie together";
    EXPECT_EQ(2 * kObject + countsOfItems + blocks, allocationsToRead<IiAP2MediaLibData>(words));
}

}  // namespace
}  // namespace accessory::test
