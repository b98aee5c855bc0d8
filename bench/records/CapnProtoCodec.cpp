// Cap'n Proto. Setting a field already is encoding it, and reading a field is decoding it.
#include <capnp/message.h>
#include <capnp/serialize.h>
#include <records.capnp.h>

#include <iterator>
#include <vector>

#include "bench/records/Codec.h"
#include "bench/records/Samples.h"

namespace accessory::bench {
namespace {

// The masks name the fields that are set, with the bits of the records.
constexpr uint32_t kItemMask = 0x9737;
constexpr uint32_t kPlaybackMask = 0x110ef;
constexpr uint32_t kRouteMask = 0x87fff;
constexpr uint32_t kMediaItemMask = 0x1053;
constexpr uint32_t kLibraryMask = 0x7;

void fill(capnproto::ItemAttribute::Builder item) {
    item.setMask(kItemMask);
    item.setId(kSong.id);
    item.setTitle(kSong.title);
    item.setDurationMs(kSong.durationMs);
    item.setAlbumTitle(kSong.albumTitle);
    item.setAlbumTrackNumber(kSong.albumTrackNumber);
    item.setAlbumTrackCount(kSong.albumTrackCount);
    item.setArtist(kSong.artist);
    item.setGenre(kSong.genre);
    item.setComposer(kSong.composer);
    item.setIsLikeSupported(kSong.isLikeSupported);
    item.setIsLiked(kSong.isLiked);
    item.setArtworkFileTransferId(kSong.artworkFileTransferId);
}

void fill(capnproto::MediaPlayback::Builder playback) {
    playback.setMask(kPlaybackMask);
    playback.setStatus(kPlayer.status);
    playback.setElapsedTime(kPlayer.elapsedTime);
    playback.setQueueIndex(kPlayer.queueIndex);
    playback.setQueueCount(kPlayer.queueCount);
    playback.setShuffleMode(kPlayer.shuffleMode);
    playback.setRepeatMode(kPlayer.repeatMode);
    playback.setAppName(kPlayer.appName);
    playback.setPlaybackSpeed(kPlayer.playbackSpeed);
    playback.setAppBundleId(kPlayer.appBundleId);
}

void fill(capnproto::NowPlaying::Builder pair) {
    fill(pair.initItem());
    fill(pair.initPlayback());
}

template <size_t kCount>
kj::ArrayPtr<const uint16_t> listOf(const uint16_t (&values)[kCount]) {
    return {values, kCount};
}

void fill(capnproto::RouteGuidance::Builder info) {
    info.setMask(kRouteMask);
    info.setDisplayIds(listOf(kRoute.displayIds));
    info.setGuidanceState(kRoute.guidanceState);
    info.setManeuverState(kRoute.maneuverState);
    info.setCurrentRoadName(kRoute.currentRoadName);
    info.setDestinationName(kRoute.destinationName);
    info.setEta(kRoute.eta);
    info.setTimeRemaining(kRoute.timeRemaining);
    info.setDistanceRemaining(kRoute.distanceRemaining);
    info.setDistanceRemainingText(kRoute.distanceRemainingText);
    info.setDistanceRemainingUnits(kRoute.distanceRemainingUnits);
    info.setDistanceToManeuver(kRoute.distanceToManeuver);
    info.setDistanceToManeuverText(kRoute.distanceToManeuverText);
    info.setDistanceToManeuverUnits(kRoute.distanceToManeuverUnits);
    info.setCurrentManeuvers(listOf(kRoute.currentManeuvers));
    info.setManeuverCount(kRoute.maneuverCount);
    info.setSourceName(kRoute.sourceName);
}

void fill(capnproto::MediaItem::Builder item, uint32_t index) {
    item.setMask(kMediaItemMask);
    item.setId(kLibrary.itemId(index));
    item.setTitle(kLibrary.itemTitle);
    item.setPlaybackDuration(kLibrary.itemDuration);
    item.setAlbumTitle(kLibrary.itemAlbumTitle);
    item.setArtist(kLibrary.itemArtist);
}

void fill(capnproto::MediaLibrary::Builder library) {
    library.setMask(kLibraryMask);
    library.setId(kLibrary.id);
    library.setRevision(kLibrary.revision);
    auto items = library.initItems(LibrarySample::kItems);
    for (uint32_t i = 0; i < LibrarySample::kItems; ++i)
        fill(items[i], i);
}

Sum& operator<<(Sum& sum, capnp::Text::Reader text) { return sum << text.cStr(); }

void add(Sum& sum, capnproto::ItemAttribute::Reader item) {
    sum << item.getId() << item.getTitle() << item.getDurationMs() << item.getAlbumTitle()
        << item.getAlbumTrackNumber() << item.getAlbumTrackCount() << item.getAlbumDiscNumber()
        << item.getAlbumDiscCount() << item.getArtist() << item.getGenre() << item.getComposer()
        << item.getIsLikeSupported() << item.getIsBanSupported() << item.getIsLiked() << item.getIsBanned()
        << item.getArtworkFileTransferId() << item.getChapterCount();
}

void add(Sum& sum, capnproto::MediaPlayback::Reader playback) {
    sum << playback.getStatus() << playback.getElapsedTime() << playback.getQueueIndex()
        << playback.getQueueCount() << playback.getQueueChapterIndex() << playback.getShuffleMode()
        << playback.getRepeatMode() << playback.getAppName() << playback.getLibraryUniqueId()
        << playback.getRadioAd() << playback.getRadioStationName() << playback.getRadioPlaylistId()
        << playback.getPlaybackSpeed() << playback.getSetElapsedTimeAvailable()
        << playback.getQueueListAvailable() << playback.getQueueListTransferId() << playback.getAppBundleId();
}

void add(Sum& sum, capnproto::NowPlaying::Reader pair) {
    add(sum, pair.getItem());
    add(sum, pair.getPlayback());
}

void add(Sum& sum, capnproto::RouteGuidance::Reader info) {
    for (const uint16_t id : info.getDisplayIds())
        sum << id;
    for (const uint16_t index : info.getCurrentManeuvers())
        sum << index;
    sum << info.getGuidanceState() << info.getManeuverState() << info.getCurrentRoadName()
        << info.getDestinationName() << info.getEta() << info.getTimeRemaining()
        << info.getDistanceRemaining() << info.getDistanceRemainingText() << info.getDistanceRemainingUnits()
        << info.getDistanceToManeuver() << info.getDistanceToManeuverText()
        << info.getDistanceToManeuverUnits() << info.getManeuverCount() << info.getVisibleInApp()
        << info.getLaneIndex() << info.getLaneCount() << info.getLanesShownInApp() << info.getSourceName()
        << info.getSourceSupportsGuidance() << info.getTimeZoneOffsetMinutes();
}

void add(Sum& sum, capnproto::MediaItem::Reader item) {
    sum << item.getId() << item.getTitle() << item.getMediaType() << item.getRating()
        << item.getPlaybackDuration() << item.getAlbumId() << item.getAlbumTitle()
        << item.getAlbumTrackNumber() << item.getAlbumTrackCount() << item.getAlbumDiscNumber()
        << item.getAlbumDiscCount() << item.getArtistId() << item.getArtist() << item.getAlbumArtistId()
        << item.getAlbumArtist() << item.getGenreId() << item.getGenre() << item.getComposerId()
        << item.getComposer() << item.getIsPartOfCompilation() << item.getIsLikeSupported()
        << item.getIsBanSupported() << item.getIsLiked() << item.getIsBanned() << item.getIsResidentOnDevice()
        << item.getArtworkFileTransferId() << item.getChapterCount();
}

void add(Sum& sum, capnproto::MediaLibrary::Reader library) {
    sum << library.getId() << library.getRevision() << library.getReset() << library.getUpdateProgress()
        << library.getIsHidingRemoteItems() << library.getPlayAllSongsCapable();
    for (const auto item : library.getItems())
        add(sum, item);
}

/// @tparam kWords  room of the scratch segment, which the whole message fits, in words of 8 bytes.
template <typename Root, size_t kWords>
class CapnProtoCodec : public Codec {
  public:
    CapnProtoCodec() {
        capnp::MallocMessageBuilder message(scratch());
        fill(message.initRoot<Root>());
        mReceived = capnp::messageToFlatArray(message);
    }

    // The segment is what would be sent; making one array of it and its header is not counted.
    size_t encode() override {
        capnp::MallocMessageBuilder message(scratch());
        fill(message.initRoot<Root>());
        const auto segments = message.getSegmentsForOutput();
        return segments.size() == 1 ? segments[0].asBytes().size() : 0;
    }
    uint64_t decode() override {
        Sum sum;
        capnp::FlatArrayMessageReader message(mReceived);
        add(sum, message.getRoot<Root>());
        return sum.total();
    }

  private:
    kj::ArrayPtr<capnp::word> scratch() { return {mScratch.data(), mScratch.size()}; }

    std::vector<capnp::word> mScratch = std::vector<capnp::word>(kWords);
    kj::Array<capnp::word> mReceived;
};

std::unique_ptr<Codec> capnProtoCodec(Message message) {
    switch (message) {
        case Message::kNowPlaying:
            return std::make_unique<CapnProtoCodec<capnproto::NowPlaying, 128>>();
        case Message::kRouteGuidance:
            return std::make_unique<CapnProtoCodec<capnproto::RouteGuidance, 128>>();
        case Message::kLibrary:
            return std::make_unique<
                CapnProtoCodec<capnproto::MediaLibrary, size_t{LibrarySample::kItems} * 64>>();
    }
    return nullptr;
}

const FormatRegistration kCapnProto({"capnproto", 20, capnProtoCodec});

}  // namespace
}  // namespace accessory::bench
