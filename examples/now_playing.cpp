// Shows what the phone plays.
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
    int nowPlayingUpdate(unsigned int accId, const sp<accessory::iAP2ItemAttribute>& item,
                         const sp<accessory::iAP2MediaPlayback>& /*playback*/) override {
        if ((item->getMask() & iAP2ItemAttributeMask::kTitle) == 0) return 0;
        printf("phone %u plays %s\n", accId, item->getTitle());
        return 0;
    }
};

int main() {
    setvbuf(stdout, nullptr, _IOLBF, 0);
    const auto service = android::defaultServiceManager()->getService(IAppleiAP2Manager::descriptor);
    const sp<IAppleiAP2Manager> manager = IAppleiAP2Manager::asInterface(service);
    if (manager == nullptr) return fprintf(stderr, "no service: start accessory-simulator first\n"), 1;

    manager->setNotifier(new accessory::BnAppleiAP2ManagerNotifier(new NowPlaying));
    manager->startup(static_cast<accessory::AppleiAP2TransportMode>(0));  // the phones on USB
    unsigned int ids[10], count = 0;
    manager->getAccessoryIds(ids, &count);
    for (unsigned int i = 0; i < count; ++i) {
        sp<iAP2ItemAttributeMask> attributes = new iAP2ItemAttributeMask;
        attributes->mask = iAP2ItemAttributeMask::kTitle;
        sp<iAP2MediaPlaybackMask> playback = new iAP2MediaPlaybackMask;
        manager->startNowPlayingUpdate(ids[i], attributes, playback);
    }
    android::ProcessState::self()->startThreadPool();
    android::IPCThreadState::self()->joinThreadPool();
}
