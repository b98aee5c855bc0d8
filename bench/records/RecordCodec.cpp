// Our own records: what a service fills and writes, and what a client reads.
#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/RouteGuidanceRecords.h>
#include <binder/Parcel.h>

#include <iterator>
#include <vector>

#include "bench/records/Codec.h"
#include "bench/records/Samples.h"

namespace accessory::bench {
namespace {

using android::Parcel;
using android::sp;

void fill(IiAP2ItemAttribute& item) {
    item.setID(kSong.id).setTitle(kSong.title).setDurationInMillSec(kSong.durationMs);
    item.setAlbumTitle(kSong.albumTitle).setAlbumTrackNum(kSong.albumTrackNumber);
    item.setAlbumTrackCount(kSong.albumTrackCount).setArtist(kSong.artist).setGenre(kSong.genre);
    item.setComposer(kSong.composer).setIsLikeSupported(kSong.isLikeSupported).setIsLiked(kSong.isLiked);
    item.setArtWorkFileTransferID(kSong.artworkFileTransferId);
}

void fill(IiAP2MediaPlayback& playback) {
    playback.setstats(kPlayer.status).setElaspedTime(kPlayer.elapsedTime).setQueueIndex(kPlayer.queueIndex);
    playback.setQueueCount(kPlayer.queueCount).setShuffMode(kPlayer.shuffleMode);
    playback.setReapedMode(kPlayer.repeatMode).setAppName(kPlayer.appName);
    playback.setPlaybackSpeedValue(kPlayer.playbackSpeed).setPlaybackAppBundkeID(kPlayer.appBundleId);
}

void fill(IRouteGuidaceUpdateInfo& info) {
    info.setDisplayID(kRoute.displayIds, std::size(kRoute.displayIds));
    info.setRouteGuidanceState(kRoute.guidanceState).setManeuverState(kRoute.maneuverState);
    info.setCurrentRoadName(kRoute.currentRoadName).setDestinationName(kRoute.destinationName);
    info.setETA(kRoute.eta).setTimeRemainingToDestination(kRoute.timeRemaining);
    info.setDisatnceRemaining(kRoute.distanceRemaining);
    info.setDistanceRemainingDisplayStr(kRoute.distanceRemainingText);
    info.setDistanceRemainingDisplayUints(kRoute.distanceRemainingUnits);
    info.setDistanceToNextManeuver(kRoute.distanceToManeuver);
    info.setDistanceToNextManeuverDisplayStr(kRoute.distanceToManeuverText);
    info.setDistanceToNextManeuverDisplayUnits(kRoute.distanceToManeuverUnits);
    info.setRouteGuidanceManeuverCurrentList(kRoute.currentManeuvers, std::size(kRoute.currentManeuvers));
    info.setRouteGuidanceManeuverCount(kRoute.maneuverCount).setSourceName(kRoute.sourceName);
}

void fill(IiAP2MediaItem& item, uint32_t index) {
    item.setId(kLibrary.itemId(index)).setTitle(kLibrary.itemTitle);
    item.setPlaybackDuration(kLibrary.itemDuration).setAlbumTitle(kLibrary.itemAlbumTitle);
    item.setArtist(kLibrary.itemArtist);
}

void add(Sum& sum, const iAP2ItemAttribute& item) {
    sum << item.getID() << item.getTitle() << item.getDurationInMillSec() << item.getAlbumTitle()
        << item.getAlbumTrackNum() << item.getAlbumTrackCount() << item.getAlbumDiskNum()
        << item.getAlbumDiskCount() << item.getArtist() << item.getGenre() << item.getComposer()
        << item.getIsLikeSupported() << item.getIsBanSupported() << item.getIsLiked() << item.getIsBanned()
        << item.getArtWorkFileTransferID() << item.getChapterCount();
}

void add(Sum& sum, const iAP2MediaPlayback& playback) {
    sum << playback.getstats() << playback.getElaspedTime() << playback.getQueueIndex()
        << playback.getQueueCount() << playback.getQueueChapterIndex() << playback.getShuffMode()
        << playback.getReapedMode() << playback.getAppName() << playback.getLibraryUniqueldID()
        << playback.getRaidoAd() << playback.getRadioStationName() << playback.getRadioMediaPlayListID()
        << playback.getPlaybackSpeedValue() << playback.getSetElapsedTimeAvailable()
        << playback.getPlaybackQueueListAvail() << playback.getPlaybackQueueListTransferID()
        << playback.getPlaybackAppBundkeID();
}

void add(Sum& sum, uint32_t count, const uint16_t* values) {
    for (uint32_t i = 0; i < count; ++i)
        sum << values[i];
}

void add(Sum& sum, const RouteGuidaceUpdateInfo& info) {
    add(sum, info.getDisplayIdCnt(), info.getDisplayID());
    add(sum, info.getRouteGuidanceManeuverInCurrentListCnt(), info.getRouteGuidanceManeuverCurrentList());
    sum << info.getRouteGuidanceState() << info.getManeuverState() << info.getCurrentRoadName()
        << info.getDestinationName() << info.getETA() << info.getTimeRemainingToDestination()
        << info.getDisatnceRemaining() << info.getDistanceRemainingDisplayStr()
        << info.getDistanceRemainingDisplayUints() << info.getDistanceToNextManeuver()
        << info.getDistanceToNextManeuverDisplayStr() << info.getDistanceToNextManeuverDisplayUnits()
        << info.getRouteGuidanceManeuverCount() << info.getRouteGuidanceVisiableInApp()
        << info.getLaneGuidanceCurrentIndex() << info.getLaneGuidanceTotalCount()
        << info.getLaneGuidanceBeingShownInApp() << info.getSourceName()
        << info.getSourceSupportsRouteGuidance() << info.getDestinationTimeZoneOffsetMinutes();
}

void add(Sum& sum, const iAP2MediaItem& item) {
    sum << item.getId() << item.getTitle() << item.getMediaType() << item.getRating()
        << item.getPlaybackDuration() << item.getAlbumId() << item.getAlbumTitle()
        << item.getAlbumTrackNumber() << item.getAlbumTrackCount() << item.getAlbumDiscNumber()
        << item.getAlbumDiscCount() << item.getArtistId() << item.getArtist() << item.getAlbumArtistId()
        << item.getAlbumArtist() << item.getGenreId() << item.getGenre() << item.getComposerId()
        << item.getComposer() << item.getIsPartOfCompilation() << item.getIsLikeSupport()
        << item.getIsBanSupport() << item.getIsLiked() << item.getIsBanned() << item.getIsResidenOnDevice()
        << item.getArtworkFileTransferId() << item.getChapterCount();
}

void add(Sum& sum, const iAP2MediaLibData& update) {
    sum << update.getId() << update.getRevision() << update.getMediaLibReset() << update.getUpdateProgress()
        << update.getIsHidingRemoteItems() << update.getPlayAllSongCapable();
    const auto count = static_cast<uint32_t>(update.getGroupDataCount());
    for (uint32_t i = 0; i < count; ++i)
        add(sum, static_cast<const iAP2MediaItem&>(*update.getGroupData(i)));
}

/// A record as its producer keeps it: filled as a parcelable, sent as a plain record.
template <typename Parcelable, typename Plain>
struct Kept {
    Parcelable& filled = *new Parcelable;
    sp<Plain> sent = &filled;
};

struct NowPlaying {
    Kept<IiAP2ItemAttribute, iAP2ItemAttribute> item;
    Kept<IiAP2MediaPlayback, iAP2MediaPlayback> playback;

    void write(Parcel* parcel) const {
        fill(item.filled);
        fill(playback.filled);
        IiAP2ItemAttribute::writeToParcel(parcel, item.sent);
        IiAP2MediaPlayback::writeToParcel(parcel, playback.sent);
    }
    static void read(const Parcel& parcel, Sum& sum) {
        add(sum, *IiAP2ItemAttribute::FromParcel(parcel));
        add(sum, *IiAP2MediaPlayback::FromParcel(parcel));
    }
};

struct RouteGuidance {
    Kept<IRouteGuidaceUpdateInfo, RouteGuidaceUpdateInfo> info;

    void write(Parcel* parcel) const {
        fill(info.filled);
        IRouteGuidaceUpdateInfo::writeToParcel(parcel, info.sent);
    }
    static void read(const Parcel& parcel, Sum& sum) {
        add(sum, *IRouteGuidaceUpdateInfo::FromParcel(parcel));
    }
};

struct Library {
    Kept<IiAP2MediaLibData, iAP2MediaLibData> update;
    std::vector<sp<IiAP2MediaItem>> items;

    Library() {
        for (uint32_t i = 0; i < LibrarySample::kItems; ++i) {
            items.emplace_back(new IiAP2MediaItem);
            update.filled.addGroupData(items.back());
        }
    }
    void write(Parcel* parcel) const {
        update.filled.setId(kLibrary.id).setRevision(kLibrary.revision);
        for (uint32_t i = 0; i < LibrarySample::kItems; ++i)
            fill(*items[i], i);
        IiAP2MediaLibData::writeToParcel(parcel, update.sent);
    }
    static void read(const Parcel& parcel, Sum& sum) { add(sum, *IiAP2MediaLibData::FromParcel(parcel)); }
};

template <typename... Records>
uint64_t makeEmpty() {
    return (sp<Records>(new Records)->getMask() + ...);
}

uint64_t makeEmptyLibrary() {
    const sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
    update->mGroupData.setCapacity(LibrarySample::kItems);
    for (uint32_t i = 0; i < LibrarySample::kItems; ++i) {
        update->mGroupData.push();
        update->mGroupData.editTop() = sp<IiAP2MediaItem>(new IiAP2MediaItem);
    }
    return update->getMask();
}

/// The parcel is used again, as the runtime's cache of blocks has it.
template <typename Records>
class RecordCodec : public Codec {
  public:
    RecordCodec() { RecordCodec::encode(); }

    size_t encode() override {
        mParcel.setDataSize(0);
        mRecords.write(&mParcel);
        return mParcel.dataSize();
    }
    uint64_t decode() override {
        Sum sum;
        mParcel.setDataPosition(0);
        Records::read(mParcel, sum);
        return sum.total();
    }

  private:
    Records mRecords;
    Parcel mParcel;
};

std::unique_ptr<Codec> recordCodec(Message message) {
    switch (message) {
        case Message::kNowPlaying:
            return std::make_unique<RecordCodec<NowPlaying>>();
        case Message::kRouteGuidance:
            return std::make_unique<RecordCodec<RouteGuidance>>();
        case Message::kLibrary:
            return std::make_unique<RecordCodec<Library>>();
    }
    return nullptr;
}

const FormatRegistration kOurs({kRecords, 0, recordCodec});

}  // namespace

uint64_t makeEmptyRecords(Message message) {
    switch (message) {
        case Message::kNowPlaying:
            return makeEmpty<IiAP2ItemAttribute, IiAP2MediaPlayback>();
        case Message::kRouteGuidance:
            return makeEmpty<IRouteGuidaceUpdateInfo>();
        case Message::kLibrary:
            return makeEmptyLibrary();
    }
    return 0;
}

}  // namespace accessory::bench
