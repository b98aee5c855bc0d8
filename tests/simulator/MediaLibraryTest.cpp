// The media library: finding, grouping, changing, and making one up.
#include "simulator/model/MediaLibrary.h"

#include <gmock/gmock.h>

#include <set>

#include "tests/simulator/Tracks.h"

namespace accessory::simulator {
namespace {

TrackPointer track(uint64_t id, const char* album, const char* artist) {
    Track made;
    made.id = id;
    made.album = album;
    made.artist = artist;
    return std::make_shared<const Track>(made);
}

class LibraryOfThree : public testing::Test {
  protected:
    LibraryOfThree() {
        library.add(TrackList{track(1, "X", "A"), track(2, "X", "B"), track(3, "Y", "A")});
        Playlist playlist;
        playlist.id = 9;
        playlist.tracks = {3, 1};
        library.add(playlist);
    }
    MediaLibrary library;
};

TEST_F(LibraryOfThree, FindsTracksInTheAskedOrder) {
    EXPECT_EQ(library.find(2)->album, "X");
    EXPECT_EQ(library.find(4), nullptr);
    EXPECT_THAT(idsOf(library.find(std::vector<uint64_t>{3, 4, 1})), testing::ElementsAre(3, 1));
}

TEST_F(LibraryOfThree, GroupsTracks) {
    EXPECT_THAT(idsOf(library.collection(Grouping::kAlbum, idOf("album", "X"))), testing::ElementsAre(1, 2));
    EXPECT_THAT(idsOf(library.collection(Grouping::kArtist, idOf("artist", "A"))),
                testing::ElementsAre(1, 3));
    EXPECT_THAT(idsOf(library.collection(Grouping::kPlaylist, 9)), testing::ElementsAre(3, 1));
    EXPECT_THAT(library.collection(Grouping::kPlaylist, 10), testing::IsEmpty());
    EXPECT_THAT(library.collection(Grouping::kGenre, idOf("genre", "Jazz")), testing::IsEmpty());
}

TEST_F(LibraryOfThree, LosesTracksAndPlaylists) {
    EXPECT_TRUE(library.removeTrack(1));
    EXPECT_FALSE(library.removeTrack(1));
    EXPECT_TRUE(library.removePlaylist(9));
    EXPECT_FALSE(library.removePlaylist(9));
    EXPECT_THAT(idsOf(library.tracks()), testing::ElementsAre(2, 3));
}

TEST_F(LibraryOfThree, CountsItsRevision) {
    library.setRevision(41);
    library.touch();
    EXPECT_EQ(library.revision(), "42");
}

TEST(IdOf, TellsKindsAndNamesApart) {
    EXPECT_EQ(idOf("album", ""), 0u);
    EXPECT_NE(idOf("album", "X"), idOf("album", "Y"));
    EXPECT_NE(idOf("album", "X"), idOf("artist", "X"));
}

TEST(GeneratedTracks, AreTheSameForTheSameSeed) {
    LibraryRecipe recipe;
    recipe.tracks = 100;
    const TrackList once = generateTracks(recipe);
    const TrackList again = generateTracks(recipe);
    recipe.seed = 2;
    const TrackList other = generateTracks(recipe);
    ASSERT_EQ(once.size(), 100u);
    size_t different = 0;
    for (size_t i = 0; i < once.size(); ++i) {
        EXPECT_EQ(once[i]->title, again[i]->title);
        EXPECT_EQ(once[i]->durationMs, again[i]->durationMs);
        different += once[i]->title != other[i]->title ? 1 : 0;
    }
    EXPECT_GT(different, 50u);
}

TEST(GeneratedTracks, FillAlbumsAndCountTheirTracks) {
    LibraryRecipe recipe;
    recipe.tracks = 25;
    recipe.tracksPerAlbum = 10;
    const TrackList tracks = generateTracks(recipe);
    std::set<std::string> albums;
    std::set<uint64_t> ids;
    for (const TrackPointer& each : tracks) {
        albums.insert(each->album);
        ids.insert(each->id);
    }
    EXPECT_EQ(albums.size(), 3u);
    EXPECT_EQ(ids.size(), 25u);
    EXPECT_EQ(tracks[9]->trackNumber, 10);
    EXPECT_EQ(tracks[9]->trackCount, 10);
    EXPECT_EQ(tracks[24]->trackNumber, 5);
    EXPECT_EQ(tracks[24]->trackCount, 5);
}

}  // namespace
}  // namespace accessory::simulator
