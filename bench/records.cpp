// Writing and reading the data records, beside a memcpy of the same bytes.
#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/RouteGuidanceRecords.h>
#include <benchmark/benchmark.h>
#include <binder/Parcel.h>

#include <cstring>
#include <vector>

namespace {

using namespace accessory;
using android::Parcel;
using android::sp;

/// The attributes of a song and the state of its player, as one event carries them.
struct NowPlaying {
    sp<IiAP2ItemAttribute> item = new IiAP2ItemAttribute;
    sp<IiAP2MediaPlayback> playback = new IiAP2MediaPlayback;

    NowPlaying() {
        item->setID(0x1122334455667788).setTitle("Morning Train").setDurationInMillSec(337000);
        item->setAlbumTitle("Platform Nine").setAlbumTrackNum(3).setAlbumTrackCount(5);
        item->setArtist("The Commuters").setGenre("Jazz").setComposer("A. Composer");
        item->setIsLikeSupported(1).setIsLiked(1).setArtWorkFileTransferID(17);
        playback->setstats(1).setElaspedTime(12000).setQueueIndex(2).setQueueCount(5).setShuffMode(0);
        playback->setReapedMode(1).setAppName("Music").setPlaybackSpeedValue(100);
        playback->setPlaybackAppBundkeID("com.example.music");
    }

    void write(Parcel& parcel) const {
        IiAP2ItemAttribute::writeToParcel(&parcel, item);
        IiAP2MediaPlayback::writeToParcel(&parcel, playback);
    }
    static void read(const Parcel& parcel) {
        benchmark::DoNotOptimize(IiAP2ItemAttribute::FromParcel(parcel));
        benchmark::DoNotOptimize(IiAP2MediaPlayback::FromParcel(parcel));
    }
};

struct RouteGuidance {
    sp<IRouteGuidaceUpdateInfo> info = new IRouteGuidaceUpdateInfo;

    RouteGuidance() {
        const uint16_t displays[] = {1};
        const uint16_t maneuvers[] = {4, 5, 6};
        info->setDisplayID(displays, 1).setRouteGuidanceState(1).setManeuverState(2);
        info->setCurrentRoadName("High Street").setDestinationName("Home").setETA(1'700'000'000);
        info->setTimeRemainingToDestination(1260).setDisatnceRemaining(12400);
        info->setDistanceRemainingDisplayStr("12.4").setDistanceRemainingDisplayUints(0);
        info->setDistanceToNextManeuver(350).setDistanceToNextManeuverDisplayStr("350");
        info->setDistanceToNextManeuverDisplayUnits(2).setRouteGuidanceManeuverCurrentList(maneuvers, 3);
        info->setRouteGuidanceManeuverCount(9).setSourceName("Maps");
    }

    void write(Parcel& parcel) const { IRouteGuidaceUpdateInfo::writeToParcel(&parcel, info); }
    static void read(const Parcel& parcel) {
        benchmark::DoNotOptimize(IRouteGuidaceUpdateInfo::FromParcel(parcel));
    }
};

struct Library {
    sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;

    Library() {
        constexpr int kItems = 10'000;
        for (int i = 0; i < kItems; ++i) {
            sp<IiAP2MediaItem> item = new IiAP2MediaItem;
            item->setId(static_cast<uint64_t>(i)).setTitle("Morning Train").setPlaybackDuration(337000);
            item->setAlbumTitle("Platform Nine").setArtist("The Commuters");
            update->addGroupData(item);
        }
    }

    void write(Parcel& parcel) const { IiAP2MediaLibData::writeToParcel(&parcel, update); }
    static void read(const Parcel& parcel) {
        benchmark::DoNotOptimize(IiAP2MediaLibData::FromParcel(parcel));
    }
};

template <typename Message>
void write(benchmark::State& state) {
    const Message message;
    Parcel parcel;
    for (auto _ : state) {
        parcel.setDataSize(0);
        parcel.setDataPosition(0);
        message.write(parcel);
    }
    state.counters["bytes"] = static_cast<double>(parcel.dataSize());
}

template <typename Message>
void read(benchmark::State& state) {
    Parcel parcel;
    Message().write(parcel);
    for (auto _ : state) {
        parcel.setDataPosition(0);
        Message::read(parcel);
    }
}

template <typename Message>
void copy(benchmark::State& state) {
    Parcel parcel;
    Message().write(parcel);
    std::vector<uint8_t> target(parcel.dataSize());
    for (auto _ : state) {
        std::memcpy(target.data(), parcel.data(), target.size());
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
}

BENCHMARK(write<NowPlaying>);
BENCHMARK(read<NowPlaying>);
BENCHMARK(copy<NowPlaying>);
BENCHMARK(write<RouteGuidance>);
BENCHMARK(read<RouteGuidance>);
BENCHMARK(copy<RouteGuidance>);
BENCHMARK(write<Library>);
BENCHMARK(read<Library>);
BENCHMARK(copy<Library>);

}  // namespace

BENCHMARK_MAIN();
