// A library out of nothing but a seed: names put together from word lists.
#include <array>
#include <random>

#include "simulator/model/MediaLibrary.h"

namespace accessory::simulator {

namespace {

constexpr std::array kAdjectives = {"Quiet",    "Golden", "Distant", "Broken",  "Electric", "Silver",
                                    "Northern", "Hidden", "Slow",    "Burning", "Paper",    "Velvet",
                                    "Second",   "Open",   "Blue",    "Winter"};
constexpr std::array kNouns = {"Harbour", "Road",   "Mirror", "Garden", "Signal",  "River",
                               "Window",  "Engine", "Summer", "Tower",  "Lantern", "Field",
                               "Letter",  "Ocean",  "Clock",  "Circus"};
constexpr std::array kGivenNames = {"Ada",  "Bram", "Clara", "Dario", "Edda",  "Farid", "Greta", "Hugo",
                                    "Ines", "Jens", "Kaya",  "Leon",  "Marta", "Nils",  "Olga",  "Piet"};
constexpr std::array kFamilyNames = {"Abel",   "Brandt", "Castel", "Dorn",   "Eklund", "Falk",
                                     "Girard", "Holm",   "Ivers",  "Jansen", "Keller", "Lind",
                                     "Moreau", "Nord",   "Okoro",  "Petri"};
constexpr std::array kGenres = {"Rock", "Jazz", "Classical", "Electronic", "Folk", "Soul", "Pop", "Ambient"};

// The standard's distributions give different numbers in different libraries; a remainder does not.
class Dice {
  public:
    explicit Dice(uint32_t seed) : mRandom(seed) {}

    uint32_t below(uint32_t limit) { return static_cast<uint32_t>(mRandom() % limit); }
    template <typename Words>
    std::string word(const Words& words) {
        return words[below(static_cast<uint32_t>(words.size()))];
    }
    template <typename First, typename Second>
    std::string words(const First& first, const Second& second) {
        std::string text = word(first);
        return text + ' ' + word(second);
    }

  private:
    std::mt19937 mRandom;
};

/// The names that neighbouring tracks share.
struct Surroundings {
    std::string artist;
    std::string genre;
    std::string album;
};

void moveOn(const LibraryRecipe& recipe, uint32_t index, Dice* dice, Surroundings* here) {
    const uint32_t album = index / recipe.tracksPerAlbum;
    if (index % (recipe.tracksPerAlbum * recipe.albumsPerArtist) == 0) {
        here->artist = dice->words(kGivenNames, kFamilyNames);
        here->genre = dice->word(kGenres);
    }
    // The number keeps two albums of the same words apart.
    if (index % recipe.tracksPerAlbum == 0)
        here->album = dice->words(kAdjectives, kNouns) + " No. " + std::to_string(album + 1);
}

Track trackAt(const LibraryRecipe& recipe, uint32_t index, const Surroundings& here, Dice* dice) {
    const uint32_t first = index - index % recipe.tracksPerAlbum;
    Track track;
    track.id = index + 1;
    track.title = dice->words(kAdjectives, kNouns);
    track.album = here.album;
    track.artist = track.albumArtist = here.artist;
    track.genre = here.genre;
    track.composer = dice->words(kGivenNames, kFamilyNames);
    track.durationMs = static_cast<int32_t>(120'000 + dice->below(240) * 1000);
    track.rating = static_cast<int32_t>(dice->below(6) * 20);
    track.trackNumber = static_cast<int32_t>(index - first + 1);
    track.trackCount = static_cast<int32_t>(std::min(recipe.tracksPerAlbum, recipe.tracks - first));
    return track;
}

}  // namespace

TrackList generateTracks(const LibraryRecipe& recipe) {
    Dice dice(recipe.seed);
    Surroundings here;
    TrackList tracks;
    tracks.reserve(recipe.tracks);
    for (uint32_t index = 0; index < recipe.tracks; ++index) {
        moveOn(recipe, index, &dice, &here);
        tracks.push_back(std::make_shared<const Track>(trackAt(recipe, index, here, &dice)));
    }
    return tracks;
}

}  // namespace accessory::simulator
