// Protocol Buffers, with three kinds of memory: a message used again, messages on an arena, and new messages
// on the heap. Strings are assigned where they are, which reuses their memory; set_...() would not.
#include <google/protobuf/arena.h>
#include <records.pb.h>

#include <vector>

#include "bench/records/Codec.h"
#include "bench/records/Samples.h"

namespace accessory::bench {
namespace {

void fill(protobuf::ItemAttribute& item) {
    item.set_id(kSong.id);
    item.mutable_title()->assign(kSong.title);
    item.set_duration_ms(kSong.durationMs);
    item.mutable_album_title()->assign(kSong.albumTitle);
    item.set_album_track_number(kSong.albumTrackNumber);
    item.set_album_track_count(kSong.albumTrackCount);
    item.mutable_artist()->assign(kSong.artist);
    item.mutable_genre()->assign(kSong.genre);
    item.mutable_composer()->assign(kSong.composer);
    item.set_is_like_supported(kSong.isLikeSupported);
    item.set_is_liked(kSong.isLiked);
    item.set_artwork_file_transfer_id(kSong.artworkFileTransferId);
}

void fill(protobuf::MediaPlayback& playback) {
    playback.set_status(kPlayer.status);
    playback.set_elapsed_time(kPlayer.elapsedTime);
    playback.set_queue_index(kPlayer.queueIndex);
    playback.set_queue_count(kPlayer.queueCount);
    playback.set_shuffle_mode(kPlayer.shuffleMode);
    playback.set_repeat_mode(kPlayer.repeatMode);
    playback.mutable_app_name()->assign(kPlayer.appName);
    playback.set_playback_speed(kPlayer.playbackSpeed);
    playback.mutable_app_bundle_id()->assign(kPlayer.appBundleId);
}

void fill(protobuf::NowPlaying& pair) {
    fill(*pair.mutable_item());
    fill(*pair.mutable_playback());
}

void fill(protobuf::RouteGuidance& info) {
    for (const uint16_t id : kRoute.displayIds)
        info.add_display_ids(id);
    info.set_guidance_state(kRoute.guidanceState);
    info.set_maneuver_state(kRoute.maneuverState);
    info.mutable_current_road_name()->assign(kRoute.currentRoadName);
    info.mutable_destination_name()->assign(kRoute.destinationName);
    info.set_eta(kRoute.eta);
    info.set_time_remaining(kRoute.timeRemaining);
    info.set_distance_remaining(kRoute.distanceRemaining);
    info.mutable_distance_remaining_text()->assign(kRoute.distanceRemainingText);
    info.set_distance_remaining_units(kRoute.distanceRemainingUnits);
    info.set_distance_to_maneuver(kRoute.distanceToManeuver);
    info.mutable_distance_to_maneuver_text()->assign(kRoute.distanceToManeuverText);
    info.set_distance_to_maneuver_units(kRoute.distanceToManeuverUnits);
    for (const uint16_t index : kRoute.currentManeuvers)
        info.add_current_maneuvers(index);
    info.set_maneuver_count(kRoute.maneuverCount);
    info.mutable_source_name()->assign(kRoute.sourceName);
}

void fill(protobuf::MediaItem& item, uint32_t index) {
    item.set_id(kLibrary.itemId(index));
    item.mutable_title()->assign(kLibrary.itemTitle);
    item.set_playback_duration(kLibrary.itemDuration);
    item.mutable_album_title()->assign(kLibrary.itemAlbumTitle);
    item.mutable_artist()->assign(kLibrary.itemArtist);
}

void fill(protobuf::MediaLibrary& library) {
    library.mutable_id()->assign(kLibrary.id);
    library.mutable_revision()->assign(kLibrary.revision);
    library.mutable_items()->Reserve(static_cast<int>(LibrarySample::kItems));
    for (uint32_t i = 0; i < LibrarySample::kItems; ++i)
        fill(*library.add_items(), i);
}

void add(Sum& sum, const protobuf::ItemAttribute& item) {
    sum << item.id() << item.title() << item.duration_ms() << item.album_title() << item.album_track_number()
        << item.album_track_count() << item.album_disc_number() << item.album_disc_count() << item.artist()
        << item.genre() << item.composer() << item.is_like_supported() << item.is_ban_supported()
        << item.is_liked() << item.is_banned() << item.artwork_file_transfer_id() << item.chapter_count();
}

void add(Sum& sum, const protobuf::MediaPlayback& playback) {
    sum << playback.status() << playback.elapsed_time() << playback.queue_index() << playback.queue_count()
        << playback.queue_chapter_index() << playback.shuffle_mode() << playback.repeat_mode()
        << playback.app_name() << playback.library_unique_id() << playback.radio_ad()
        << playback.radio_station_name() << playback.radio_playlist_id() << playback.playback_speed()
        << playback.set_elapsed_time_available() << playback.queue_list_available()
        << playback.queue_list_transfer_id() << playback.app_bundle_id();
}

void add(Sum& sum, const protobuf::NowPlaying& pair) {
    add(sum, pair.item());
    add(sum, pair.playback());
}

void add(Sum& sum, const protobuf::RouteGuidance& info) {
    for (const uint32_t id : info.display_ids())
        sum << id;
    for (const uint32_t index : info.current_maneuvers())
        sum << index;
    sum << info.guidance_state() << info.maneuver_state() << info.current_road_name()
        << info.destination_name() << info.eta() << info.time_remaining() << info.distance_remaining()
        << info.distance_remaining_text() << info.distance_remaining_units() << info.distance_to_maneuver()
        << info.distance_to_maneuver_text() << info.distance_to_maneuver_units() << info.maneuver_count()
        << info.visible_in_app() << info.lane_index() << info.lane_count() << info.lanes_shown_in_app()
        << info.source_name() << info.source_supports_guidance() << info.time_zone_offset_minutes();
}

void add(Sum& sum, const protobuf::MediaItem& item) {
    sum << item.id() << item.title() << item.media_type() << item.rating() << item.playback_duration()
        << item.album_id() << item.album_title() << item.album_track_number() << item.album_track_count()
        << item.album_disc_number() << item.album_disc_count() << item.artist_id() << item.artist()
        << item.album_artist_id() << item.album_artist() << item.genre_id() << item.genre()
        << item.composer_id() << item.composer() << item.is_part_of_compilation() << item.is_like_supported()
        << item.is_ban_supported() << item.is_liked() << item.is_banned() << item.is_resident_on_device()
        << item.artwork_file_transfer_id() << item.chapter_count();
}

void add(Sum& sum, const protobuf::MediaLibrary& library) {
    sum << library.id() << library.revision() << library.reset() << library.update_progress()
        << library.is_hiding_remote_items() << library.play_all_songs_capable();
    for (const protobuf::MediaItem& item : library.items())
        add(sum, item);
}

/// One message that keeps its strings and items for the next use.
template <typename Content>
class UsedAgain {
  public:
    Content& empty() {
        mContent.Clear();
        return mContent;
    }

  private:
    Content mContent;
};

/// A new message on the heap, which its receiver can keep.
template <typename Content>
class MadeAnew {
  public:
    Content& empty() {
        mContent = std::make_unique<Content>();
        return *mContent;
    }

  private:
    std::unique_ptr<Content> mContent;
};

/// A new message in memory that is taken back as a whole.
template <typename Content>
class OnArena {
  public:
    Content& empty() {
        mArena.Reset();
        return *google::protobuf::Arena::CreateMessage<Content>(&mArena);
    }

  private:
    static constexpr size_t kBlockBytes = size_t{8} * 1024 * 1024;

    google::protobuf::ArenaOptions inBlock() {
        google::protobuf::ArenaOptions options;
        options.initial_block = mBlock.data();
        options.initial_block_size = mBlock.size();
        return options;
    }

    std::vector<char> mBlock = std::vector<char>(kBlockBytes);
    google::protobuf::Arena mArena{inBlock()};
};

template <typename Memory>
class ProtobufCodec : public Codec {
  public:
    ProtobufCodec() { ProtobufCodec::encode(); }

    size_t encode() override {
        auto& content = mMemory.empty();
        fill(content);
        mBytes.resize(content.ByteSizeLong());
        content.SerializeWithCachedSizesToArray(mBytes.data());
        return mBytes.size();
    }
    uint64_t decode() override {
        Sum sum;
        auto& content = mMemory.empty();
        content.ParseFromArray(mBytes.data(), static_cast<int>(mBytes.size()));
        add(sum, content);
        return sum.total();
    }

  private:
    Memory mMemory;
    std::vector<uint8_t> mBytes;
};

template <template <typename> typename Memory>
std::unique_ptr<Codec> codecWith(Message message) {
    switch (message) {
        case Message::kNowPlaying:
            return std::make_unique<ProtobufCodec<Memory<protobuf::NowPlaying>>>();
        case Message::kRouteGuidance:
            return std::make_unique<ProtobufCodec<Memory<protobuf::RouteGuidance>>>();
        case Message::kLibrary:
            return std::make_unique<ProtobufCodec<Memory<protobuf::MediaLibrary>>>();
    }
    return nullptr;
}

const FormatRegistration kUsedAgain({"protobuf_reused", 10, codecWith<UsedAgain>});
const FormatRegistration kMadeAnew({"protobuf_new", 11, codecWith<MadeAnew>});
const FormatRegistration kOnArena({"protobuf_arena", 12, codecWith<OnArena>});

}  // namespace
}  // namespace accessory::bench
