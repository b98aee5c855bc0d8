// An application's test: the code under test gets a manager, and the test plays the service behind it.
#include <accessory/AppleiAP2ManagerNotifierAdapter.h>
#include <accessory/testing/BinderPair.h>
#include <accessory/testing/LogCatcher.h>
#include <accessory/testing/MockAppleiAP2Manager.h>
#include <accessory/testing/NowPlayingBuilders.h>

namespace kit = accessory::testkit;
using android::sp;

// The application's code. A real one keeps it in a file of its own.
class Screen : public accessory::AppleiAP2ManagerNotifierAdapter {
  public:
    std::string title;
    int nowPlayingUpdate(unsigned int, const sp<accessory::iAP2ItemAttribute>& item,
                         const sp<accessory::iAP2MediaPlayback>&) override {
        if (item == nullptr || (item->getMask() & accessory::iAP2ItemAttributeMask::kTitle) == 0) return 0;
        title = item->getTitle() != nullptr ? item->getTitle() : "";
        return 0;
    }
};

bool follow(const sp<accessory::IAppleiAP2Manager>& manager, unsigned int phone, const sp<Screen>& screen) {
    if (manager->setNotifier(new accessory::BnAppleiAP2ManagerNotifier(screen)) != 0) return false;
    sp<accessory::iAP2ItemAttributeMask> attributes =
        kit::maskOf<accessory::iAP2ItemAttributeMask>(accessory::iAP2ItemAttributeMask::kTitle);
    sp<accessory::iAP2MediaPlaybackMask> playback = new accessory::iAP2MediaPlaybackMask;
    return manager->startNowPlayingUpdate(phone, attributes, playback) == 0;
}

// Its tests: mock, real stub, real proxy, every call between them a parcel, all in this process.
class ScreenTest : public testing::Test {
  protected:
    const sp<testing::NiceMock<kit::MockAppleiAP2ManagerImpl>> service{
        new testing::NiceMock<kit::MockAppleiAP2ManagerImpl>};
    const kit::BinderPair<accessory::IAppleiAP2Manager> pair{service};
    const sp<Screen> screen{new Screen};
};

TEST_F(ScreenTest, ShowsTheTitleThatPlays) {
    ASSERT_TRUE(follow(pair.proxy(), 1, screen));
    service->broadcaster->nowPlayingUpdate(1, kit::ItemAttribute().title("First Light"),
                                           kit::MediaPlayback());
    EXPECT_EQ(screen->title, "First Light");
}

TEST_F(ScreenTest, KeepsTheTitleWhenSomethingElseChanges) {
    ASSERT_TRUE(follow(pair.proxy(), 1, screen));
    service->broadcaster->nowPlayingUpdate(1, kit::ItemAttribute().title("First Light"),
                                           kit::MediaPlayback());
    service->broadcaster->nowPlayingUpdate(1, kit::ItemAttribute().isLiked(1), kit::MediaPlayback());
    EXPECT_EQ(screen->title, "First Light");
}

TEST_F(ScreenTest, IsEmptyWhileThePlayerHasNoTitle) {
    ASSERT_TRUE(follow(pair.proxy(), 1, screen));
    service->broadcaster->nowPlayingUpdate(1, kit::ItemAttribute().title("First Light"),
                                           kit::MediaPlayback());
    service->broadcaster->nowPlayingUpdate(1, kit::ItemAttribute().title(nullptr), kit::MediaPlayback());
    EXPECT_EQ(screen->title, "");
}

TEST_F(ScreenTest, AsksForTheTitleAndNothingElse) {
    const auto onlyTheTitle = testing::Truly([](const sp<accessory::iAP2ItemAttributeMask>& asked) {
        return asked->mask == accessory::iAP2ItemAttributeMask::kTitle;
    });
    EXPECT_CALL(*service, startNowPlayingUpdate(1, onlyTheTitle, testing::_));
    follow(pair.proxy(), 1, screen);
}

TEST_F(ScreenTest, NoticesThatTheServiceHasEnded) {
    pair.requests().die();
    EXPECT_FALSE(android::IInterface::asBinder(pair.proxy())->isBinderAlive());
    const kit::LogCatcher log;
    EXPECT_TRUE(follow(pair.proxy(), 1, screen)) << "a proxy cannot tell this from success, it logs it";
    EXPECT_THAT(log.lines(), testing::Contains(kit::LoggedStatusCheck("IAppleiAP2Manager", "setNotifier")));
}
