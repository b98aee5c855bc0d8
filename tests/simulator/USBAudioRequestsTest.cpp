// The USB audio manager, through the program.
#include <atomic>

#include "tests/simulator/SimulatorClient.h"
#include "tests/support/Eventually.h"

namespace accessory::simulator::test {
namespace {

using accessory::test::eventually;

class AudioClient : public AppleUSBAudioManagerNotifierImplItf {
  public:
    int attach(unsigned int accessoryId) override {
        attached = accessoryId;
        return 0;
    }
    int detach(unsigned int accessoryId) override {
        detached = accessoryId;
        return 0;
    }
    std::atomic<unsigned int> attached{0};
    std::atomic<unsigned int> detached{0};
};

class AudioSimulator : public QuietSimulator {
  protected:
    AudioSimulator() {
        EXPECT_EQ(audio.setNotifier(new BnAppleUSBAudioManagerNotifier(heard)), 0);
        attach();
    }
    ~AudioSimulator() override { audio.clearNotifier(); }

    IAppleUSBAudioManager& audio = client.audio();
    const android::sp<AudioClient> heard = new AudioClient();
};

TEST_F(AudioSimulator, TellsOfTheEndpointThatDeviceModeMakes) {
    EXPECT_EQ(audio.startup(), kDone);
    EXPECT_EQ(audio.startup(), kWrongState);
    EXPECT_EQ(manager.startUSBDeviceModeAudio(kPhone), kDone);
    EXPECT_TRUE(client.hears("USBDeviceModeAudioInfo(5, 44100)"));
    EXPECT_TRUE(eventually([&] { return heard->attached == 1005; }));
    unsigned int ids[10] = {};
    unsigned int count = 0;
    EXPECT_EQ(audio.getIds(ids, &count), kDone);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(ids[0], 1005u);
    EXPECT_EQ(manager.stopUSBDeviceModeAudio(kPhone), kDone);
    EXPECT_TRUE(eventually([&] { return heard->detached == 1005; }));
    EXPECT_EQ(manager.stopUSBDeviceModeAudio(kPhone), kWrongState);
}

TEST_F(AudioSimulator, TellsOfAnEndpointThatWasThereFirst) {
    EXPECT_EQ(manager.startUSBDeviceModeAudio(kPhone), kDone);
    EXPECT_EQ(audio.startup(), kDone);
    EXPECT_TRUE(eventually([&] { return heard->attached == 1005; }));
    EXPECT_EQ(audio.shutdown(), kDone);
    EXPECT_TRUE(eventually([&] { return heard->detached == 1005; }));
    EXPECT_EQ(audio.shutdown(), kWrongState);
}

TEST_F(AudioSimulator, WalksAStreamThroughItsStates) {
    EXPECT_EQ(audio.start(1005), kNoSuchAccessory);
    EXPECT_EQ(audio.startup(), kDone);
    EXPECT_EQ(manager.startUSBDeviceModeAudio(kPhone), kDone);
    EXPECT_EQ(audio.play(1005), kWrongState);
    EXPECT_EQ(audio.start(1005), kDone);
    EXPECT_EQ(audio.start(1005), kWrongState);
    EXPECT_EQ(audio.play(1005), kDone);
    EXPECT_EQ(audio.pause(1005), kDone);
    EXPECT_EQ(audio.pause(1005), kWrongState);
    EXPECT_EQ(audio.setVolume(1005, 40), kDone);
    EXPECT_EQ(audio.setVolume(1005, 101), kBadArgument);
    EXPECT_EQ(audio.setSampleRate(1005, 48000), kDone);
    EXPECT_EQ(audio.setSampleRate(1005, 96000), kBadArgument);
    EXPECT_TRUE(client.hears("USBDeviceModeAudioInfo(5, 48000)"));
    EXPECT_THAT(client.dump(), testing::HasSubstr("USB audio 1005: started, 48000 Hz, volume 40"));
    EXPECT_EQ(audio.stop(1005), kDone);
    EXPECT_EQ(audio.stop(1005), kWrongState);
    EXPECT_EQ(audio.stop(7), kNoSuchAccessory);
}

}  // namespace
}  // namespace accessory::simulator::test
