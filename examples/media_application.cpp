// A media application: shows what plays on the phone, reads its library and starts a song from it.
#include <accessory/AppleiAP2ManagerNotifierAdapter.h>

#include <cinttypes>
#include <mutex>

#include "Enumerators.h"
#include "ManagerConnection.h"

using accessory::IAppleiAP2Manager;
using android::sp;

namespace {

using Attributes = accessory::iAP2ItemAttributeMask;
using Playback = accessory::iAP2MediaPlaybackMask;

constexpr int kRinging = 2;
constexpr int kActive = 4;

/// Events come on the Binder runtime's threads; their strings live as long as the call.
class MediaApplication : public accessory::AppleiAP2ManagerNotifierAdapter {
  public:
    explicit MediaApplication(IAppleiAP2Manager& manager) : mManager(manager) {}

    int attach(unsigned int accId) override {
        printf("phone %u is here\n", accId);
        follow(accId);
        return 0;
    }

    int detach(unsigned int accId) override {
        printf("phone %u is gone\n", accId);
        return 0;
    }

    int mediaLibInfoUpdate(unsigned int accId, const char* name, const char* uid,
                           accessory::MediaLibType /*type*/) override {
        printf("its library is '%s'\n", orNothing(name));
        sp<accessory::MediaLibUpdateInfo> whole = new accessory::MediaLibUpdateInfo;
        whole->mFirstText = uid;
        mManager.startMediaLibUpdates(accId, whole);
        return 0;
    }

    int mediaLibUpdateDataReady(unsigned int /*accId*/, sp<accessory::iAP2MediaLibData> data) override {
        const std::lock_guard<std::mutex> guard(mLock);
        mEntries += data->getGroupDataCount();
        printf("library: %d entries so far, %u %%\n", mEntries, data->getUpdateProgress());
        return 0;
    }

    int nowPlayingUpdate(unsigned int /*accId*/, const sp<accessory::iAP2ItemAttribute>& item,
                         const sp<accessory::iAP2MediaPlayback>& playback) override {
        if ((item->getMask() & Attributes::kTitle) != 0) {
            printf("now playing: %s, by %s\n", orNothing(item->getTitle()), orNothing(item->getArtist()));
        }
        if ((playback->getMask() & Playback::kElaspedTime) != 0) {
            printf("at %d:%02d\n", playback->getElaspedTime() / 60'000,
                   playback->getElaspedTime() / 1000 % 60);
        }
        return 0;
    }

    /// A call interrupts the music; the phone itself pauses the player.
    int CallStateUpdate(unsigned int /*accId*/, accessory::CallStateUpdateParam& call) override {
        const int state = call.field3 != nullptr ? *call.field3 : -1;
        const char* const words = state == kRinging ? "rings" : state == kActive ? "is on the line" : nullptr;
        if (words != nullptr) printf("%s %s\n", orNothing(call.field2), words);
        return 0;
    }

    /// Asks for the fields that the screen shows, and for no others.
    void follow(unsigned int accId) {
        sp<Attributes> attributes = new Attributes;
        attributes->mask = Attributes::kID | Attributes::kTitle | Attributes::kArtist;
        sp<Playback> playback = new Playback;
        playback->mask = Playback::kStats | Playback::kElaspedTime;
        mManager.startNowPlayingUpdate(accId, attributes, playback);
        accessory::StartCallStateUpdateParam call;
        call.field2 = call.field3 = 1;
        mManager.StartCallStateUpdates(accId, call);
        mManager.startMediaLibInformation(accId);
    }

  private:
    static const char* orNothing(const char* text) { return text != nullptr ? text : "-"; }

    IAppleiAP2Manager& mManager;
    std::mutex mLock;
    int mEntries = 0;
};

}  // namespace

int main() {
    examples::endOnRequest();
    setvbuf(stdout, nullptr, _IOLBF, 0);
    examples::ManagerConnection connection;
    if (!connection.isOpen()) return 1;
    const sp<MediaApplication> application = new MediaApplication(connection.manager());
    if (!connection.listen(application)) return 1;
    for (const unsigned int phone : connection.phones())
        application->attach(phone);
    connection.manager().startup(accessory::kTransportUSBHost);
    const bool inGoodOrder = connection.waitForTheEnd();
    printf(inGoodOrder ? "bye\n" : "the service has ended\n");
    return 0;
}
