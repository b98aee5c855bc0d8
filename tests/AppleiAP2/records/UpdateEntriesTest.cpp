// The items of a library update, which lie together in memory, each live as long as somebody holds them.
#include <accessory/MediaLibraryRecords.h>
#include <binder/Parcel.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <thread>
#include <vector>

namespace accessory::test {
namespace {

using android::sp;

constexpr uint32_t kItems = 1000;

sp<IiAP2MediaLibData> receivedUpdate(android::Parcel& parcel) {
    parcel.writeInt32(0);
    parcel.writeInt32(kItems);
    for (uint32_t i = 0; i < kItems; ++i) {
        parcel.writeInt32(0);                       // a media item
        parcel.writeInt32(MediaItemMask::kRating);  // with one field
        parcel.writeInt32(static_cast<int32_t>(i));
    }
    parcel.setDataPosition(0);
    return IiAP2MediaLibData::FromParcel(parcel);
}

int32_t ratingOf(const sp<iAP2MediaLibGroupData>& entry) {
    return static_cast<const iAP2MediaItem&>(*entry).getRating();
}

std::vector<sp<iAP2MediaLibGroupData>> takenFrom(const sp<IiAP2MediaLibData>& update) {
    std::vector<sp<iAP2MediaLibGroupData>> items;
    for (uint32_t i = 0; i < kItems; ++i)
        items.push_back(update->getGroupData(i));
    return items;
}

TEST(UpdateEntries, OutliveTheirUpdate) {
    android::Parcel parcel;
    const auto items = takenFrom(receivedUpdate(parcel));
    for (uint32_t i = 0; i < kItems; ++i)
        EXPECT_EQ(ratingOf(items[i]), static_cast<int32_t>(i));
}

TEST(UpdateEntries, LiveOnWhenAllTheirNeighboursAreGone) {
    android::Parcel parcel;
    const sp<iAP2MediaLibGroupData> kept = receivedUpdate(parcel)->getGroupData(500);
    EXPECT_EQ(ratingOf(kept), 500);
    EXPECT_EQ(kept->getStrongCount(), 1);
}

TEST(UpdateEntries, AreReleasedInAnyOrder) {
    android::Parcel parcel;
    auto items = takenFrom(receivedUpdate(parcel));
    std::shuffle(items.begin(), items.end(), std::mt19937(7));
    while (!items.empty()) {
        EXPECT_EQ(items.back()->getStrongCount(), 1);
        items.pop_back();
    }
}

TEST(UpdateEntries, AreReleasedByAnyThread) {
    android::Parcel parcel;
    auto items = takenFrom(receivedUpdate(parcel));
    std::vector<std::thread> threads;
    for (uint32_t number = 0; number < 4; ++number) {
        threads.emplace_back([&items, number] {
            for (uint32_t i = number; i < kItems; i += 4)
                items[i].clear();
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_TRUE(std::all_of(items.begin(), items.end(), [](const auto& item) { return item == nullptr; }));
}

TEST(UpdateEntries, LeaveTheirMaskToWhoeverHoldsIt) {
    android::Parcel parcel;
    sp<MediaItemMask> mask;
    {
        const sp<iAP2MediaLibGroupData> item = receivedUpdate(parcel)->getGroupData(3);
        mask = static_cast<IiAP2MediaItem&>(*item).mMask;
    }
    EXPECT_EQ(mask->mask, uint32_t{MediaItemMask::kRating});
    EXPECT_EQ(mask->getStrongCount(), 1);
}

TEST(UpdateEntries, AreMadeOneByOneByProducers) {
    const sp<IiAP2MediaItem> item = new IiAP2MediaItem;
    item->setRating(5);
    EXPECT_EQ(ratingOf(item), 5);
    const sp<MediaItemMask> mask = new MediaItemMask;
    EXPECT_EQ(mask->mask, 0u);
}

}  // namespace
}  // namespace accessory::test
