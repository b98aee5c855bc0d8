#include "simulator/model/MediaLibrary.h"

#include <algorithm>

namespace accessory::simulator {

namespace {

const std::string& nameIn(const Track& track, Grouping grouping) {
    switch (grouping) {
        case Grouping::kArtist:
            return track.artist;
        case Grouping::kGenre:
            return track.genre;
        case Grouping::kComposer:
            return track.composer;
        default:
            return track.album;
    }
}

const char* kindOf(Grouping grouping) {
    switch (grouping) {
        case Grouping::kArtist:
            return "artist";
        case Grouping::kGenre:
            return "genre";
        case Grouping::kComposer:
            return "composer";
        default:
            return "album";
    }
}

template <typename List, typename Matches>
bool removeIf(List* list, const Matches& matches) {
    const auto found = std::find_if(list->begin(), list->end(), matches);
    if (found == list->end()) return false;
    list->erase(found);
    return true;
}

}  // namespace

uint64_t idOf(const std::string& kind, const std::string& name) {
    if (name.empty()) return 0;
    std::string text = kind;
    text.append("\n").append(name);
    uint64_t hash = 0xcbf29ce484222325;  // FNV-1a
    for (const char character : text) {
        hash = (hash ^ static_cast<uint8_t>(character)) * 0x100000001b3;
    }
    return hash;
}

void MediaLibrary::add(const TrackList& tracks) {
    mTracks.insert(mTracks.end(), tracks.begin(), tracks.end());
}

TrackPointer MediaLibrary::find(uint64_t trackId) const {
    const auto found = std::find_if(mTracks.begin(), mTracks.end(),
                                    [&](const TrackPointer& track) { return track->id == trackId; });
    return found != mTracks.end() ? *found : nullptr;
}

TrackList MediaLibrary::find(const std::vector<uint64_t>& trackIds) const {
    TrackList found;
    for (const uint64_t id : trackIds) {
        if (const TrackPointer track = find(id)) found.push_back(track);
    }
    return found;
}

TrackList MediaLibrary::collection(Grouping grouping, uint64_t collectionId) const {
    if (grouping == Grouping::kPlaylist) {
        const auto playlist = std::find_if(mPlaylists.begin(), mPlaylists.end(),
                                           [&](const Playlist& list) { return list.id == collectionId; });
        return playlist != mPlaylists.end() ? find(playlist->tracks) : TrackList();
    }
    TrackList found;
    const auto belongs = [&](const TrackPointer& track) {
        return idOf(kindOf(grouping), nameIn(*track, grouping)) == collectionId;
    };
    std::copy_if(mTracks.begin(), mTracks.end(), std::back_inserter(found), belongs);
    return found;
}

bool MediaLibrary::removeTrack(uint64_t trackId) {
    return removeIf(&mTracks, [&](const TrackPointer& track) { return track->id == trackId; });
}

bool MediaLibrary::removePlaylist(uint64_t playlistId) {
    return removeIf(&mPlaylists, [&](const Playlist& list) { return list.id == playlistId; });
}

}  // namespace accessory::simulator
