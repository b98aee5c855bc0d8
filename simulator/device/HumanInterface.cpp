#include "simulator/device/HumanInterface.h"

#include "simulator/Text.h"

namespace accessory::simulator {

HumanInterface::HumanInterface(Stage& stage, unsigned int id, const DeviceProfile& profile,
                               NowPlaying& nowPlaying)
    : Feature(stage, id), mProfile(profile), mNowPlaying(nowPlaying), mTouch(profile.assistiveTouch) {}

void HumanInterface::reset() {
    mComponents.clear();
    mReports = 0;
    mTouch = mProfile.assistiveTouch;
    mTouchAsked = false;
}

int HumanInterface::start(uint16_t component) {
    if (!mComponents.insert(component).second) return kWrongState;
    enableComponent(component, true);
    return kDone;
}

int HumanInterface::stop() {
    if (mComponents.empty()) return kWrongState;
    for (const uint16_t component : mComponents)
        enableComponent(component, false);
    mComponents.clear();
    return kDone;
}

int HumanInterface::report(const unsigned char* bytes, int length) {
    if (bytes == nullptr || length <= 0) return kBadArgument;
    if (mComponents.empty()) return kWrongState;
    ++mReports;
    constexpr NowPlaying::RemoteEvent kEvents[] = {NowPlaying::kPlay, NowPlaying::kPause,
                                                   NowPlaying::kTogglePlay, NowPlaying::kNext,
                                                   NowPlaying::kPrevious};
    for (size_t bit = 0; bit < std::size(kEvents); ++bit) {
        if ((bytes[0] >> bit & 1) != 0) mNowPlaying.remote(kEvents[bit]);
    }
    return kDone;
}

void HumanInterface::sendReport(int component, const std::vector<uint8_t>& bytes) {
    tell([id = mId, component, bytes](Clients& clients) {
        std::vector<uint8_t> sent = bytes;
        clients.deviceHIDReport(id, component, sent.data(), static_cast<int>(sent.size()));
    });
}

void HumanInterface::enableComponent(uint16_t component, bool enabled) {
    tell(&Clients::hidComponentUpdate, component, enabled);
}

int HumanInterface::startTouchInformation() {
    mTouchAsked = true;
    tell(&Clients::AssistiveTouchInformation, mTouch);
    return kDone;
}

int HumanInterface::stopTouchInformation() {
    if (!mTouchAsked) return kWrongState;
    mTouchAsked = false;
    return kDone;
}

bool HumanInterface::setTouch(bool enabled) {
    if (enabled == mTouch) return false;
    mTouch = enabled;
    if (mTouchAsked) tell(&Clients::AssistiveTouchInformation, enabled);
    return true;
}

void HumanInterface::describe(std::string* out) const {
    if (!mComponents.empty())
        appendLine(out, "  HID: %zu components started, %u reports received", mComponents.size(), mReports);
    appendLine(out, "  assistive touch: %s%s", mTouch ? "on" : "off", mTouchAsked ? ", asked for" : "");
}

}  // namespace accessory::simulator
