// The library's way over the runtime: requests with records, events, the listing of a stub.
#include <accessory/AppleiAP2ManagerNotifierAdapter.h>
#include <accessory/IAppleiAP2Manager.h>
#include <accessory/NowPlayingRecords.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>

#include "tests/failures/Journeys.h"
#include "tests/failures/LibraryService.h"
#include "tests/failures/NthFailure.h"
#include "tests/support/Eventually.h"

namespace accessory::test {

namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

/// How long an event may take before it counts as lost.
constexpr std::chrono::milliseconds kAttempt{250};

bool isTheUpdate(const sp<iAP2MediaLibData>& data) {
    if (data == nullptr || data->getGroupDataCount() != 1) return false;
    const sp<iAP2MediaLibGroupData> entry = data->getGroupData(0);
    if (entry == nullptr || entry->type != iAP2MediaLibGroupData::kItem) return false;
    const auto& item = static_cast<const iAP2MediaItem&>(*entry);
    return item.getId() == kItem && item.getTitle() != nullptr && std::string(item.getTitle()) == kTitle;
}

/// Hears of one device, by whatever event.
class Listener : public AppleiAP2ManagerNotifierAdapter {
  public:
    void expect(unsigned int accId) {
        mHeard = false;
        mSpoilt = false;
        mExpected = accId;
    }
    bool isTold() {
        return eventually([this] { return mHeard || mSpoilt; }, kAttempt);
    }
    bool isSpoilt() const { return mSpoilt; }

    int attach(unsigned int accId) override {
        if (accId == mExpected) mHeard = true;
        return 0;
    }
    int mediaLibUpdateDataReady(unsigned int accId, sp<iAP2MediaLibData> data) override {
        const TestsOwn looking;
        if (accId == mExpected) (isTheUpdate(data) ? mHeard : mSpoilt) = true;
        return 0;
    }

  private:
    std::atomic<unsigned int> mExpected{0};
    std::atomic<bool> mHeard{false};
    std::atomic<bool> mSpoilt{false};
};

sp<IAppleiAP2Manager> gManager;
sp<Listener> gListener;
sp<IAppleiAP2ManagerNotifier> gNotifier;

void findManager(const std::string& service) {
    ProcessState::self()->startThreadPool();
    gManager = IAppleiAP2Manager::asInterface(defaultServiceManager()->checkService(managerName(service)));
    EXPECT_NE(nullptr, gManager);
    gListener = new Listener;
    gNotifier = new BnAppleiAP2ManagerNotifier(gListener);
}

/// Registers and asks until the event comes: what fails in between the library tells the log alone.
template <typename Ask>
Outcome hear(const Ask& ask) {
    static unsigned int device = 0;
    gListener->expect(++device);
    const bool told = eventually([&] {
        gManager->setNotifier(gNotifier);
        ask(device);
        return gListener->isTold();
    });
    gManager->clearNotifier();
    return told && !gListener->isSpoilt() ? Outcome::kArrived : Outcome::kWrong;
}

Outcome hearEvent(const std::string& /*service*/) {
    return hear([](unsigned int device) { gManager->start(device); });
}

sp<MediaLibUpdateInfo> newInfo() {
    const TestsOwn making;
    return new MediaLibUpdateInfo;
}

Outcome hearUpdate(const std::string& /*service*/) {
    return hear([](unsigned int device) {
        sp<MediaLibUpdateInfo> info = newInfo();
        gManager->startMediaLibUpdates(device, info);
    });
}

template <typename Mask>
sp<Mask> maskOf(unsigned int fields) {
    const TestsOwn making;
    const sp<Mask> mask = new Mask;
    mask->mask = fields;
    return mask;
}

Outcome requestWithRecords(const std::string& /*service*/) {
    auto item = maskOf<iAP2ItemAttributeMask>(kItemFields);
    auto playback = maskOf<iAP2MediaPlaybackMask>(kPlaybackFields);
    const int answer = gManager->startNowPlayingUpdate(1, item, playback);
    if (answer == kOtherMasks) return Outcome::kWrong;
    return answer == kMasksCame ? Outcome::kArrived : Outcome::kRefused;
}

Outcome listClients(const std::string& /*service*/) { return dumpOf(IInterface::asBinder(gManager)); }

}  // namespace

std::vector<Journey> libraryJourneys() {
    return {{"LibraryEvent", findManager, hearEvent},
            {"LibraryUpdate", findManager, hearUpdate},
            {"LibraryRequest", findManager, requestWithRecords},
            {"LibraryDump", findManager, listClients}};
}

}  // namespace accessory::test
