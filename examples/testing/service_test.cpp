// A service's test: its implementation alone with a mocked broadcaster, and behind its stub with a client
// that dies.
#include <accessory/testing/BinderPair.h>
#include <accessory/testing/MockAppleUSBAudioManager.h>
#include <accessory/testing/MockAppleUSBAudioManagerNotifier.h>

namespace kit = accessory::testkit;
using android::sp;
using testing::NiceMock;

// The service's code: one sound card, which is there while the audio function runs.
class SoundCard : public accessory::AppleUSBAudioManagerImplItf {
  public:
    static constexpr unsigned int kCard = 3;

    int startup() override { return mClients->attach(kCard); }
    int shutdown() override { return mClients->detach(kCard); }
    int addNotifier(const sp<accessory::AppleUSBAudioManagerNotifierItf>& clients) override {
        mClients = clients;
        return 0;
    }
    int getIds(unsigned int* ids, unsigned int* count) override {
        ids[0] = kCard;
        *count = 1;
        return 0;
    }
    int setVolume(unsigned int card, unsigned int percent) override {
        return card == kCard && percent <= 100 ? 0 : -22;
    }
    int setSampleRate(unsigned int, unsigned int) override { return -38; }
    int start(unsigned int) override { return 0; }
    int stop(unsigned int) override { return 0; }
    int play(unsigned int) override { return 0; }
    int pause(unsigned int) override { return 0; }
    int dump(const android::Vector<android::String16>&, android::String8&) override { return 0; }

  private:
    sp<accessory::AppleUSBAudioManagerNotifierItf> mClients;
};

// By itself.
TEST(SoundCardTest, TellsOfTheCardWhenItStartsUp) {
    const sp<kit::MockAppleUSBAudioManagerBroadcaster> clients = new kit::MockAppleUSBAudioManagerBroadcaster;
    const sp<SoundCard> service = new SoundCard;
    service->addNotifier(clients);
    EXPECT_CALL(*clients, attach(SoundCard::kCard));
    EXPECT_EQ(service->startup(), 0);
}

// As clients see it: through a proxy, with events by parcel.
class ServedSoundCard : public testing::Test {
  protected:
    ServedSoundCard() { service.proxy()->setNotifier(new accessory::BnAppleUSBAudioManagerNotifier(client)); }

    const kit::BinderPair<accessory::IAppleUSBAudioManager> service{new SoundCard};
    const sp<NiceMock<kit::MockAppleUSBAudioManagerNotifierImpl>> client{
        new NiceMock<kit::MockAppleUSBAudioManagerNotifierImpl>};
};

TEST_F(ServedSoundCard, RefusesAVolumeThatThereIsNot) {
    EXPECT_EQ(service.proxy()->setVolume(SoundCard::kCard, 100), 0);
    EXPECT_EQ(service.proxy()->setVolume(SoundCard::kCard, 101), -22);
    const kit::Transaction last = service.requests().transactions().back();
    EXPECT_EQ(kit::wordsOf(last.reply), (kit::Words{0, 0xffffffea})) << "no exception, then the status";
}

TEST_F(ServedSoundCard, TellsItsClientOfTheCard) {
    EXPECT_CALL(*client, attach(SoundCard::kCard));
    service.proxy()->startup();
    EXPECT_EQ(service.events()->transactions().size(), 1u);
}

TEST_F(ServedSoundCard, StartsUpAlthoughItsClientHasDied) {
    service.events()->die();
    EXPECT_CALL(*client, attach).Times(0);
    EXPECT_EQ(service.proxy()->startup(), 0);
}
