// The section "library" of a device.
#include <set>

#include "simulator/scenario/ScenarioReader.h"

namespace accessory::simulator {

namespace {

void readRecipe(Fields& fields, LibraryRecipe* recipe) {
    fields.number("tracks", &recipe->tracks, "How many.", 1, 1'000'000);
    fields.number("tracksPerAlbum", &recipe->tracksPerAlbum, "On every album but the last.", 1, 1000);
    fields.number("albumsPerArtist", &recipe->albumsPerArtist, "Of every artist but the last.", 1, 1000);
    fields.number("seed", &recipe->seed, "The same seed makes the same tracks.");
}

void readPlaylist(Fields& fields, const MediaLibrary& library, Playlist* playlist) {
    fields.number("id", &playlist->id, "Persistent identifier.", 1, std::numeric_limits<int64_t>::max());
    fields.requiredText("name", &playlist->name, "What people call it.");
    fields.number("parent", &playlist->parentId, "Identifier of the folder that it is in; 0: none.", 0,
                  std::numeric_limits<int64_t>::max());
    fields.flag("folder", &playlist->folder, "Whether it is a folder of playlists.");
    fields.flag("radio", &playlist->radio, "Whether it is a radio station.");
    fields.numbers("tracks", &playlist->tracks, "Identifiers of its tracks.");
    if (library.find(playlist->tracks).size() != playlist->tracks.size())
        fields.fail("tracks",
                    "names a track that the library does not have; expected identifiers of its tracks");
}

void checkTracks(Fields& fields, const MediaLibrary& library) {
    std::set<uint64_t> ids;
    for (const TrackPointer& track : library.tracks()) {
        if (!ids.insert(track->id).second)
            return fields.fail("tracks", "has two tracks of the id " + std::to_string(track->id) +
                                             "; expected ids that differ");
    }
}

}  // namespace

void readLibrary(Fields& fields, MediaLibrary* library) {
    fields.requiredText("id", &library->id, "Unique identifier.");
    fields.text("name", &library->name, "What people call it.");
    fields.flag("radio", &library->radio,
                "Whether it is a radio library (type 1) instead of one on the device (0).");
    uint32_t revision = 1;
    fields.number("revision", &revision, "Counts up with every change.");
    library->setRevision(revision);
    LibraryRecipe recipe;
    fields.object(
        "generate", [&](Fields& inner) { readRecipe(inner, &recipe); },
        "Tracks that are made up, with the identifiers 1, 2, 3 ...");
    if (!fields.describing()) library->add(generateTracks(recipe));
    fields.list(
        "tracks",
        [&](Fields& entry) {
            Track track;
            track.id = library->tracks().size() + 1;
            readTrack(entry, &track);
            library->add(TrackList{std::make_shared<const Track>(std::move(track))});
        },
        "Tracks one by one, after those that are made up.");
    checkTracks(fields, *library);
    fields.list(
        "playlists",
        [&](Fields& entry) {
            Playlist playlist;
            playlist.id = library->playlists().size() + 1;
            readPlaylist(entry, *library, &playlist);
            library->add(std::move(playlist));
        },
        "Playlists and folders.");
}

void readTrack(Fields& fields, Track* track) {
    fields.number("id", &track->id, "Persistent identifier; usually its place in the library.", 1,
                  std::numeric_limits<int64_t>::max());
    fields.requiredText("title", &track->title, "The track's name.");
    fields.text("album", &track->album, "The album's name.");
    fields.text("artist", &track->artist, "Who plays it.");
    track->albumArtist = track->artist;
    fields.text("albumArtist", &track->albumArtist, "Whose album it is; usually the artist.");
    fields.text("genre", &track->genre, "E.g. Jazz.");
    fields.text("composer", &track->composer, "Who wrote it.");
    fields.number("duration", &track->durationMs, "Milliseconds.", 1);
    fields.number("rating", &track->rating, "0 to 100.", 0, 100);
    fields.number("trackNumber", &track->trackNumber, "On the disc.", 0);
    fields.number("trackCount", &track->trackCount, "Of the disc.", 0);
    fields.number("discNumber", &track->discNumber, "Of the album.", 0);
    fields.number("discCount", &track->discCount, "Of the album.", 0);
    fields.number("artwork", &track->artworkTransferId,
                  "File transfer identifier of its artwork, which fileTransferRecvInit() fetches; 0: none.",
                  0, 255);
    fields.number("chapterCount", &track->chapterCount, "How many chapters it has.", 0);
    fields.flag("liked", &track->liked, "Whether its owner likes it.");
    fields.flag("banned", &track->banned, "Whether its owner does not.");
    fields.flag("compilation", &track->compilation, "Whether its album is one of several artists.");
}

}  // namespace accessory::simulator
