#include "simulator/device/Applications.h"

#include <algorithm>

#include "simulator/Text.h"
#include "simulator/Values.h"

namespace accessory::simulator {

namespace {

constexpr unsigned char kPixmap = 1;

/// A binary portable pixmap in one colour.
std::string pictureOf(uint32_t colour) {
    std::string picture = "P6 16 16 255\n";
    for (int pixel = 0; pixel < 16 * 16; ++pixel) {
        picture += static_cast<char>(colour >> 16);
        picture += static_cast<char>(colour >> 8);
        picture += static_cast<char>(colour);
    }
    return picture;
}

AppleAppList entryOf(const Application& application) {
    AppleAppList entry;
    entry.value16 = application.category;
    entry.string1 = application.id.c_str();
    entry.string2 = application.name.c_str();
    entry.value32 = static_cast<uint32_t>(application.protocol);
    return entry;
}

}  // namespace

Applications::Applications(Stage& stage, unsigned int id, const DeviceProfile& profile,
                           NowPlaying& nowPlaying, Sessions& sessions)
    : Feature(stage, id), mProfile(profile), mNowPlaying(nowPlaying), mSessions(sessions) {}

void Applications::reset() {
    mInFront.clear();
    mDiscovering = false;
}

int Applications::identify(const char** ids, unsigned int* count) const {
    if (ids == nullptr || count == nullptr) return kBadArgument;
    *count = 0;
    for (const Application& application : mProfile.applications) {
        if (*count < kMostIds) ids[(*count)++] = application.id.c_str();
    }
    return kDone;
}

int Applications::launch(const char* id) {
    if (id == nullptr) return kBadArgument;
    const Application* const application = find(id);
    if (application == nullptr) return kNotFound;
    mInFront = application->id;
    tell(&Clients::notify, kAppLaunched);
    if (application->playsMedia) mNowPlaying.setApplication(*application);
    if (application->protocol != 0) mSessions.open(application->protocol);
    return kDone;
}

int Applications::startDiscovery(uint16_t most) {
    mDiscovering = true;
    std::vector<Application> found = mProfile.applications;
    if (most != 0 && most < found.size()) found.resize(most);
    tell([id = mId, found](Clients& clients) {
        std::vector<AppleAppList> list;
        std::transform(found.begin(), found.end(), std::back_inserter(list), entryOf);
        const auto count = static_cast<unsigned short>(list.size());
        clients.AppDiscoveryUpdate(id, count, list.data(), count, 0, nullptr, 0);
    });
    return kDone;
}

int Applications::stopDiscovery() {
    if (!mDiscovering) return kWrongState;
    mDiscovering = false;
    return kDone;
}

int Applications::requestIcon(const char* id) {
    if (id == nullptr) return kBadArgument;
    const Application* const application = find(id);
    if (application == nullptr) return kNotFound;
    tell([accessory = mId, app = application->id,
          picture = pictureOf(application->iconColour)](Clients& clients) {
        std::string bytes = picture;
        clients.AppDiscoveryAppIcon(accessory, app.c_str(), true, kPixmap, bytes.data(),
                                    static_cast<unsigned int>(bytes.size()));
    });
    return kDone;
}

void Applications::describe(std::string* out) const {
    appendLine(out, "  applications: %zu, in front: %s", mProfile.applications.size(),
               mInFront.empty() ? "none" : mInFront.c_str());
    if (mDiscovering) appendLine(out, "  app discovery: asked for");
}

const Application* Applications::find(const char* id) const {
    const auto found = std::find_if(mProfile.applications.begin(), mProfile.applications.end(),
                                    [&](const Application& application) { return application.id == id; });
    return found != mProfile.applications.end() ? &*found : nullptr;
}

}  // namespace accessory::simulator
