#include "simulator/device/LibraryUpdates.h"

#include <algorithm>

#include "simulator/Text.h"

namespace accessory::simulator {

namespace {

constexpr uint32_t kUsualPage = 100;
constexpr uint32_t kUsualDelay = 50;  // milliseconds
constexpr uint8_t kComplete = 100;    // percent

}  // namespace

LibraryUpdates::LibraryUpdates(Stage& stage, unsigned int id, const DeviceProfile& profile,
                               MediaLibrary& library)
    : Feature(stage, id), mProfile(profile), mLibrary(library), mNextPage(stage) {}

void LibraryUpdates::reset() {
    mNextPage.stop();
    mLibrary = mProfile.library;
    mInformed = false;
    mAsked.reset();
}

int LibraryUpdates::startInformation() {
    mInformed = true;
    tell(&Clients::mediaLibInfoUpdate, mLibrary.name, mLibrary.id,
         mLibrary.radio ? kLibraryRadio : kLibraryOnDevice);
    return kDone;
}

int LibraryUpdates::stopInformation() {
    if (!mInformed) return kWrongState;
    mInformed = false;
    return kDone;
}

int LibraryUpdates::start(const LibraryRequest& request) {
    if (!isOurs(request.libraryId.c_str())) return kNotFound;
    if (request.pageSize > kLargestPage) return kBadArgument;
    mAsked = request;
    mSent = 0;
    // Who has this revision already has everything.
    if (request.revision == mLibrary.revision())
        tellPage({});
    else
        sendPage();
    return kDone;
}

int LibraryUpdates::stop(const char* libraryId) {
    if (!isOurs(libraryId)) return kNotFound;
    if (!mAsked) return kWrongState;
    mAsked.reset();
    mNextPage.stop();
    return kDone;
}

bool LibraryUpdates::isOurs(const char* libraryId) const {
    return libraryId == nullptr || *libraryId == '\0' || mLibrary.id == libraryId;
}

void LibraryUpdates::removeTrack(uint64_t id) {
    LibraryPage page;
    page.deletedTracks = {id};
    if (mLibrary.removeTrack(id)) changed(std::move(page));
}

void LibraryUpdates::removePlaylist(uint64_t id) {
    LibraryPage page;
    page.deletedPlaylists = {id};
    if (mLibrary.removePlaylist(id)) changed(std::move(page));
}

void LibraryUpdates::addTrack(const TrackPointer& track) {
    mLibrary.add(TrackList{track});
    LibraryPage page;
    page.tracks = {track};
    changed(std::move(page));
}

void LibraryUpdates::describe(std::string* out) const {
    appendLine(out, "  library: %s, revision %s, %zu tracks, %zu playlists", quoted(mLibrary.id).c_str(),
               mLibrary.revision().c_str(), mLibrary.tracks().size(), mLibrary.playlists().size());
    if (mInformed) appendLine(out, "  library information: asked for");
    if (mAsked)
        appendLine(out, "  library updates: asked for masks 0x%x 0x%x 0x%x, %zu entries sent%s",
                   mAsked->dataMask, mAsked->itemMask, mAsked->playlistMask, mSent,
                   mNextPage.running() ? ", more to come" : "");
}

void LibraryUpdates::sendPage() {
    LibraryPage page = nextPage();
    const bool complete = page.progress == kComplete;
    tellPage(std::move(page));
    if (complete) return;
    const uint32_t delay = mAsked->pageDelay != 0 ? mAsked->pageDelay : kUsualDelay;
    mNextPage.start(milliseconds(delay), [this] { sendPage(); });
}

LibraryPage LibraryUpdates::nextPage() {
    const TrackList& tracks = mLibrary.tracks();
    const std::vector<Playlist>& playlists = mLibrary.playlists();
    const size_t all = tracks.size() + playlists.size();
    LibraryPage page;
    page.reset = mSent == 0;
    for (const size_t end = std::min(all, mSent + pageSize()); mSent < end; ++mSent) {
        if (mSent < tracks.size())
            page.tracks.push_back(tracks[mSent]);
        else
            page.playlists.push_back(playlists[mSent - tracks.size()]);
    }
    page.progress = all == 0 || mSent >= all ? kComplete : static_cast<uint8_t>(mSent * kComplete / all);
    return page;
}

uint32_t LibraryUpdates::pageSize() const { return mAsked->pageSize != 0 ? mAsked->pageSize : kUsualPage; }

void LibraryUpdates::tellPage(LibraryPage page) {
    page.libraryId = mLibrary.id;
    page.revision = mLibrary.revision();
    const LibraryMasks masks{mAsked->dataMask, mAsked->itemMask, mAsked->playlistMask};
    tell([id = mId, page = std::move(page), masks](Clients& clients) {
        clients.mediaLibUpdateDataReady(id, libraryRecord(page, masks));
    });
}

void LibraryUpdates::changed(LibraryPage page) {
    mLibrary.touch();
    if (!mAsked) return;
    // Who is still being told of the library is told of it anew.
    if (mNextPage.running())
        mSent = 0;
    else
        tellPage(std::move(page));
}

}  // namespace accessory::simulator
