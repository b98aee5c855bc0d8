#include "tests/failures/LibraryService.h"

#include <accessory/IAppleiAP2Manager.h>
#include <binder/IServiceManager.h>

#include "tests/AppleiAP2/manager/registry/QuietService.h"
#include "tests/failures/NthFailure.h"

namespace accessory::test {

namespace {

using android::sp;

sp<IiAP2MediaLibData> libraryUpdate() {
    const TestsOwn making;
    const sp<IiAP2MediaItem> item = new IiAP2MediaItem;
    item->setId(kItem).setTitle(kTitle);
    const sp<IiAP2MediaLibData> update = new IiAP2MediaLibData;
    update->setId("library").addGroupData(item);
    return update;
}

class RaisingService : public QuietService {
    int start(unsigned int accId) override { return broadcasters.at(0)->attach(accId); }

    int startMediaLibUpdates(unsigned int accId, sp<MediaLibUpdateInfo>& /*info*/) override {
        return broadcasters.at(0)->mediaLibUpdateDataReady(accId, libraryUpdate());
    }

    int startNowPlayingUpdate(unsigned int /*accId*/, sp<iAP2ItemAttributeMask>& item,
                              sp<iAP2MediaPlaybackMask>& playback) override {
        if (item == nullptr || playback == nullptr) return kNoMasks;
        return item->mask == kItemFields && playback->mask == kPlaybackFields ? kMasksCame : kOtherMasks;
    }
};

}  // namespace

android::String16 managerName(const std::string& service) {
    return android::String16((service + ".manager").c_str());
}

android::status_t publishManager(const std::string& service) {
    const sp<AppleiAP2ManagerImplItf> implementation = new RaisingService;
    return android::defaultServiceManager()->addService(managerName(service),
                                                        new BnAppleiAP2Manager(implementation));
}

}  // namespace accessory::test
