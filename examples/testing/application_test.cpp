// An application's test: the code under test gets a manager, and the test plays the service behind it.
#include <accessory/AppleiAP2ManagerNotifierAdapter.h>
#include <accessory/testing/BinderPair.h>
#include <accessory/testing/LogCatcher.h>
#include <accessory/testing/MockAppleiAP2Manager.h>
#include <accessory/testing/NowPlayingBuilders.h>

using namespace accessory;
using namespace accessory::testkit;
using android::sp;

// The application's code. A real one keeps it in a file of its own.
class Screen : public AppleiAP2ManagerNotifierAdapter {
  public:
    std::string title;
    int nowPlayingUpdate(unsigned int, const sp<iAP2ItemAttribute>& item,
                         const sp<iAP2MediaPlayback>&) override {
        if ((item->getMask() & iAP2ItemAttributeMask::kTitle) != 0) title = item->getTitle();
        return 0;
    }
};

bool follow(const sp<IAppleiAP2Manager>& manager, unsigned int phone, const sp<Screen>& screen) {
    if (manager->setNotifier(new BnAppleiAP2ManagerNotifier(screen)) != 0) return false;
    sp<iAP2ItemAttributeMask> attributes = maskOf<iAP2ItemAttributeMask>(iAP2ItemAttributeMask::kTitle);
    sp<iAP2MediaPlaybackMask> playback = new iAP2MediaPlaybackMask;
    return manager->startNowPlayingUpdate(phone, attributes, playback) == 0;
}

// Its tests: mock, real stub, real proxy, every call between them a parcel, all in this process.
class ScreenTest : public testing::Test {
  protected:
    const sp<testing::NiceMock<MockAppleiAP2ManagerImpl>> service{
        new testing::NiceMock<MockAppleiAP2ManagerImpl>};
    const BinderPair<IAppleiAP2Manager> pair{service};
    const sp<Screen> screen{new Screen};
};

TEST_F(ScreenTest, ShowsTheTitleThatPlays) {
    ASSERT_TRUE(follow(pair.proxy(), 1, screen));
    service->broadcaster->nowPlayingUpdate(1, ItemAttribute().title("First Light"), MediaPlayback());
    EXPECT_EQ(screen->title, "First Light");
}

TEST_F(ScreenTest, KeepsTheTitleWhenSomethingElseChanges) {
    ASSERT_TRUE(follow(pair.proxy(), 1, screen));
    service->broadcaster->nowPlayingUpdate(1, ItemAttribute().title("First Light"), MediaPlayback());
    service->broadcaster->nowPlayingUpdate(1, ItemAttribute().isLiked(1), MediaPlayback());
    EXPECT_EQ(screen->title, "First Light");
}

TEST_F(ScreenTest, AsksForTheTitleAndNothingElse) {
    const auto onlyTheTitle = testing::Truly(
        [](const sp<iAP2ItemAttributeMask>& asked) { return asked->mask == iAP2ItemAttributeMask::kTitle; });
    EXPECT_CALL(*service, startNowPlayingUpdate(1, onlyTheTitle, testing::_));
    follow(pair.proxy(), 1, screen);
}

TEST_F(ScreenTest, NoticesThatTheServiceHasEnded) {
    pair.requests().die();
    EXPECT_FALSE(android::IInterface::asBinder(pair.proxy())->isBinderAlive());
    const LogCatcher log;
    EXPECT_TRUE(follow(pair.proxy(), 1, screen)) << "a proxy cannot tell this from success, it logs it";
    EXPECT_THAT(log.lines(), testing::Contains(LoggedStatusCheck("IAppleiAP2Manager", "setNotifier")));
}
