// Shows what the phones play.
#include <accessory/AppleiAP2ManagerNotifierAdapter.h>
#include <accessory/IAppleiAP2Manager.h>
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <cstdio>

using accessory::iAP2ItemAttributeMask;
using accessory::iAP2MediaPlaybackMask;
using accessory::IAppleiAP2Manager;
using android::sp;

class NowPlaying : public accessory::AppleiAP2ManagerNotifierAdapter {
  public:
    explicit NowPlaying(const sp<IAppleiAP2Manager>& manager) : mManager(manager) {}

    // A phone has come: of what it plays we want the title.
    int attach(unsigned int accId) override {
        sp<iAP2ItemAttributeMask> attributes = new iAP2ItemAttributeMask;
        attributes->mask = iAP2ItemAttributeMask::kTitle;
        sp<iAP2MediaPlaybackMask> playback = new iAP2MediaPlaybackMask;
        return mManager->startNowPlayingUpdate(accId, attributes, playback);
    }

    int nowPlayingUpdate(unsigned int accId, const sp<accessory::iAP2ItemAttribute>& item,
                         const sp<accessory::iAP2MediaPlayback>& /*playback*/) override {
        if (item == nullptr || (item->getMask() & iAP2ItemAttributeMask::kTitle) == 0) return 0;
        const char* const title = item->getTitle();
        printf("phone %u plays %s\n", accId, title != nullptr ? title : "something without a title");
        return 0;
    }

  private:
    const sp<IAppleiAP2Manager> mManager;
};

int main() {
    setvbuf(stdout, nullptr, _IOLBF, 0);
    const auto service = android::defaultServiceManager()->getService(IAppleiAP2Manager::descriptor);
    const sp<IAppleiAP2Manager> manager = IAppleiAP2Manager::asInterface(service);
    if (manager == nullptr) return fprintf(stderr, "no service: start accessory-simulator first\n"), 1;

    const sp<NowPlaying> screen = new NowPlaying(manager);
    manager->setNotifier(new accessory::BnAppleiAP2ManagerNotifier(screen));
    manager->startup(static_cast<accessory::AppleiAP2TransportMode>(0));  // the phones on USB
    unsigned int ids[10], count = 0;
    manager->getAccessoryIds(ids, &count);
    for (unsigned int i = 0; i < count; ++i)
        screen->attach(ids[i]);
    android::ProcessState::self()->startThreadPool();
    android::IPCThreadState::self()->joinThreadPool();
}
