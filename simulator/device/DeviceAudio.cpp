#include "simulator/device/DeviceAudio.h"

#include <algorithm>

#include "simulator/Text.h"

namespace accessory::simulator {

DeviceAudio::DeviceAudio(Stage& stage, unsigned int id, const DeviceProfile& profile, const bool& managerRuns)
    : Feature(stage, id), mProfile(profile), mManagerRuns(managerRuns) {}

void DeviceAudio::reset() {
    if (mPresent) tellPresence(false);
    mPresent = false;
    mStream = Stream::kStopped;
    mVolume = kHighestVolume;
}

int DeviceAudio::startMode() {
    if (endpoint() == 0 || mPresent) return kWrongState;
    mPresent = true;
    mSampleRate = mProfile.usbAudio.sampleRates.front();
    tell(&Clients::USBDeviceModeAudioInfo, mSampleRate);
    tellPresence(true);
    return kDone;
}

int DeviceAudio::stopMode() {
    if (!mPresent) return kWrongState;
    reset();
    return kDone;
}

void DeviceAudio::managerStarted() {
    if (mPresent) tellPresence(true);
}

void DeviceAudio::managerStopped() {
    mStream = Stream::kStopped;
    if (mPresent) tellPresence(false);
}

int DeviceAudio::start() {
    if (mStream != Stream::kStopped) return kWrongState;
    mStream = Stream::kStarted;
    return kDone;
}

int DeviceAudio::stop() {
    if (mStream == Stream::kStopped) return kWrongState;
    mStream = Stream::kStopped;
    return kDone;
}

int DeviceAudio::play() {
    if (mStream != Stream::kStarted) return kWrongState;
    mStream = Stream::kPlaying;
    return kDone;
}

int DeviceAudio::pause() {
    if (mStream != Stream::kPlaying) return kWrongState;
    mStream = Stream::kStarted;
    return kDone;
}

int DeviceAudio::setSampleRate(uint32_t rate) {
    const std::vector<uint32_t>& rates = mProfile.usbAudio.sampleRates;
    if (std::find(rates.begin(), rates.end(), rate) == rates.end()) return kBadArgument;
    mSampleRate = rate;
    tell(&Clients::USBDeviceModeAudioInfo, rate);
    return kDone;
}

int DeviceAudio::setVolume(uint32_t volume) {
    if (volume > kHighestVolume) return kBadArgument;
    mVolume = volume;
    return kDone;
}

void DeviceAudio::describe(std::string* out) const {
    if (!mPresent) return;
    constexpr const char* kStreams[] = {"stopped", "started", "playing"};
    appendLine(out, "  USB audio %u: %s, %u Hz, volume %u", endpoint(),
               kStreams[static_cast<size_t>(mStream)], mSampleRate, mVolume);
}

void DeviceAudio::tellPresence(bool present) {
    if (!mManagerRuns) return;
    mStage.tellUSBAudio([id = endpoint(), present](AppleUSBAudioManagerNotifierItf& clients) {
        present ? clients.attach(id) : clients.detach(id);
    });
}

}  // namespace accessory::simulator
