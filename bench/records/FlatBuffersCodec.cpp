// FlatBuffers. One builder is used again; strings and tables are written from the inside out, as the format
// has it. A received message is verified, as its documentation asks for bytes that another process sent, and
// then read where it lies.
#include <records_generated.h>

#include <iterator>
#include <stdexcept>
#include <vector>

#include "bench/records/Codec.h"
#include "bench/records/Samples.h"

namespace accessory::bench {
namespace {

using flatbuffers::FlatBufferBuilder;
using flatbuffers::Offset;

Offset<flatbuf::ItemAttribute> makeItem(FlatBufferBuilder& out) {
    const auto title = out.CreateString(kSong.title);
    const auto albumTitle = out.CreateString(kSong.albumTitle);
    const auto artist = out.CreateString(kSong.artist);
    const auto genre = out.CreateString(kSong.genre);
    const auto composer = out.CreateString(kSong.composer);
    flatbuf::ItemAttributeBuilder item(out);
    item.add_id(kSong.id);
    item.add_title(title);
    item.add_duration_ms(kSong.durationMs);
    item.add_album_title(albumTitle);
    item.add_album_track_number(kSong.albumTrackNumber);
    item.add_album_track_count(kSong.albumTrackCount);
    item.add_artist(artist);
    item.add_genre(genre);
    item.add_composer(composer);
    item.add_is_like_supported(kSong.isLikeSupported);
    item.add_is_liked(kSong.isLiked);
    item.add_artwork_file_transfer_id(kSong.artworkFileTransferId);
    return item.Finish();
}

Offset<flatbuf::MediaPlayback> makePlayback(FlatBufferBuilder& out) {
    const auto appName = out.CreateString(kPlayer.appName);
    const auto appBundleId = out.CreateString(kPlayer.appBundleId);
    flatbuf::MediaPlaybackBuilder playback(out);
    playback.add_status(kPlayer.status);
    playback.add_elapsed_time(kPlayer.elapsedTime);
    playback.add_queue_index(kPlayer.queueIndex);
    playback.add_queue_count(kPlayer.queueCount);
    playback.add_shuffle_mode(kPlayer.shuffleMode);
    playback.add_repeat_mode(kPlayer.repeatMode);
    playback.add_app_name(appName);
    playback.add_playback_speed(kPlayer.playbackSpeed);
    playback.add_app_bundle_id(appBundleId);
    return playback.Finish();
}

void make(FlatBufferBuilder& out, const flatbuf::NowPlaying*) {
    const auto item = makeItem(out);
    const auto playback = makePlayback(out);
    out.Finish(flatbuf::CreateNowPlaying(out, item, playback));
}

void make(FlatBufferBuilder& out, const flatbuf::RouteGuidance*) {
    const auto displayIds = out.CreateVector(kRoute.displayIds, std::size(kRoute.displayIds));
    const auto roadName = out.CreateString(kRoute.currentRoadName);
    const auto destinationName = out.CreateString(kRoute.destinationName);
    const auto remainingText = out.CreateString(kRoute.distanceRemainingText);
    const auto toManeuverText = out.CreateString(kRoute.distanceToManeuverText);
    const auto maneuvers = out.CreateVector(kRoute.currentManeuvers, std::size(kRoute.currentManeuvers));
    const auto sourceName = out.CreateString(kRoute.sourceName);
    flatbuf::RouteGuidanceBuilder info(out);
    info.add_display_ids(displayIds);
    info.add_guidance_state(kRoute.guidanceState);
    info.add_maneuver_state(kRoute.maneuverState);
    info.add_current_road_name(roadName);
    info.add_destination_name(destinationName);
    info.add_eta(kRoute.eta);
    info.add_time_remaining(kRoute.timeRemaining);
    info.add_distance_remaining(kRoute.distanceRemaining);
    info.add_distance_remaining_text(remainingText);
    info.add_distance_remaining_units(kRoute.distanceRemainingUnits);
    info.add_distance_to_maneuver(kRoute.distanceToManeuver);
    info.add_distance_to_maneuver_text(toManeuverText);
    info.add_distance_to_maneuver_units(kRoute.distanceToManeuverUnits);
    info.add_current_maneuvers(maneuvers);
    info.add_maneuver_count(kRoute.maneuverCount);
    info.add_source_name(sourceName);
    out.Finish(info.Finish());
}

Offset<flatbuf::MediaItem> makeMediaItem(FlatBufferBuilder& out, uint32_t index) {
    const auto title = out.CreateString(kLibrary.itemTitle);
    const auto albumTitle = out.CreateString(kLibrary.itemAlbumTitle);
    const auto artist = out.CreateString(kLibrary.itemArtist);
    flatbuf::MediaItemBuilder item(out);
    item.add_id(kLibrary.itemId(index));
    item.add_title(title);
    item.add_playback_duration(kLibrary.itemDuration);
    item.add_album_title(albumTitle);
    item.add_artist(artist);
    return item.Finish();
}

void make(FlatBufferBuilder& out, const flatbuf::MediaLibrary*) {
    static std::vector<Offset<flatbuf::MediaItem>> offsets;
    offsets.clear();
    for (uint32_t i = 0; i < LibrarySample::kItems; ++i)
        offsets.push_back(makeMediaItem(out, i));
    const auto items = out.CreateVector(offsets);
    const auto id = out.CreateString(kLibrary.id);
    const auto revision = out.CreateString(kLibrary.revision);
    flatbuf::MediaLibraryBuilder library(out);
    library.add_id(id);
    library.add_revision(revision);
    library.add_items(items);
    out.Finish(library.Finish());
}

Sum& operator<<(Sum& sum, const flatbuffers::String* text) {
    return sum << (text != nullptr ? text->c_str() : nullptr);
}

template <typename Number>
Sum& operator<<(Sum& sum, flatbuffers::Optional<Number> number) {
    return sum << static_cast<uint64_t>(number.value_or(0));
}

void add(Sum& sum, const flatbuf::ItemAttribute* item) {
    sum << item->id() << item->title() << item->duration_ms() << item->album_title()
        << item->album_track_number() << item->album_track_count() << item->album_disc_number()
        << item->album_disc_count() << item->artist() << item->genre() << item->composer()
        << item->is_like_supported() << item->is_ban_supported() << item->is_liked() << item->is_banned()
        << item->artwork_file_transfer_id() << item->chapter_count();
}

void add(Sum& sum, const flatbuf::MediaPlayback* playback) {
    sum << playback->status() << playback->elapsed_time() << playback->queue_index()
        << playback->queue_count() << playback->queue_chapter_index() << playback->shuffle_mode()
        << playback->repeat_mode() << playback->app_name() << playback->library_unique_id()
        << playback->radio_ad() << playback->radio_station_name() << playback->radio_playlist_id()
        << playback->playback_speed() << playback->set_elapsed_time_available()
        << playback->queue_list_available() << playback->queue_list_transfer_id()
        << playback->app_bundle_id();
}

void add(Sum& sum, const flatbuf::NowPlaying* pair) {
    add(sum, pair->item());
    add(sum, pair->playback());
}

void add(Sum& sum, const flatbuf::RouteGuidance* info) {
    for (const uint16_t id : *info->display_ids())
        sum << id;
    for (const uint16_t index : *info->current_maneuvers())
        sum << index;
    sum << info->guidance_state() << info->maneuver_state() << info->current_road_name()
        << info->destination_name() << info->eta() << info->time_remaining() << info->distance_remaining()
        << info->distance_remaining_text() << info->distance_remaining_units() << info->distance_to_maneuver()
        << info->distance_to_maneuver_text() << info->distance_to_maneuver_units() << info->maneuver_count()
        << info->visible_in_app() << info->lane_index() << info->lane_count() << info->lanes_shown_in_app()
        << info->source_name() << info->source_supports_guidance() << info->time_zone_offset_minutes();
}

void add(Sum& sum, const flatbuf::MediaItem* item) {
    sum << item->id() << item->title() << item->media_type() << item->rating() << item->playback_duration()
        << item->album_id() << item->album_title() << item->album_track_number() << item->album_track_count()
        << item->album_disc_number() << item->album_disc_count() << item->artist_id() << item->artist()
        << item->album_artist_id() << item->album_artist() << item->genre_id() << item->genre()
        << item->composer_id() << item->composer() << item->is_part_of_compilation()
        << item->is_like_supported() << item->is_ban_supported() << item->is_liked() << item->is_banned()
        << item->is_resident_on_device() << item->artwork_file_transfer_id() << item->chapter_count();
}

void add(Sum& sum, const flatbuf::MediaLibrary* library) {
    sum << library->id() << library->revision() << library->reset() << library->update_progress()
        << library->is_hiding_remote_items() << library->play_all_songs_capable();
    for (const flatbuf::MediaItem* item : *library->items())
        add(sum, item);
}

template <typename Root>
class FlatBuffersCodec : public Codec {
  public:
    FlatBuffersCodec() { FlatBuffersCodec::encode(); }

    size_t encode() override {
        mBuilder.Clear();
        make(mBuilder, static_cast<const Root*>(nullptr));
        return mBuilder.GetSize();
    }
    uint64_t decode() override {
        flatbuffers::Verifier verifier(mBuilder.GetBufferPointer(), mBuilder.GetSize(), kDeepest,
                                       kMostTables);
        if (!verifier.VerifyBuffer<Root>(nullptr)) throw std::runtime_error("a broken message");
        Sum sum;
        add(sum, flatbuffers::GetRoot<Root>(mBuilder.GetBufferPointer()));
        return sum.total();
    }

  private:
    static constexpr flatbuffers::uoffset_t kDeepest = 64;
    static constexpr flatbuffers::uoffset_t kMostTables = 2 * LibrarySample::kItems;

    FlatBufferBuilder mBuilder;
};

std::unique_ptr<Codec> flatBuffersCodec(Message message) {
    switch (message) {
        case Message::kNowPlaying:
            return std::make_unique<FlatBuffersCodec<flatbuf::NowPlaying>>();
        case Message::kRouteGuidance:
            return std::make_unique<FlatBuffersCodec<flatbuf::RouteGuidance>>();
        case Message::kLibrary:
            return std::make_unique<FlatBuffersCodec<flatbuf::MediaLibrary>>();
    }
    return nullptr;
}

const FormatRegistration kFlatBuffers({"flatbuffers", 40, flatBuffersCodec});

}  // namespace
}  // namespace accessory::bench
