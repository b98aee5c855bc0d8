#include "simulator/device/CarPlay.h"

#include <algorithm>

#include "simulator/Text.h"

namespace accessory::simulator {

namespace {

constexpr int kWirelessConnected = 1;

}  // namespace

CarPlay::CarPlay(Stage& stage, unsigned int id, const DeviceProfile& profile)
    : Feature(stage, id), mProfile(profile), mAvailability(profile.carPlay) {}

void CarPlay::reset() {
    mAvailability = mProfile.carPlay;
    mSession = Session::kNone;
}

void CarPlay::attach() {
    if (mAvailability.wired || mAvailability.wireless) tellAvailability();
}

void CarPlay::setAvailability(const CarPlayProfile& availability) {
    mAvailability = availability;
    tellAvailability();
}

int CarPlay::start(bool wired, bool wireless) {
    if (!wired && !wireless) return kBadArgument;
    if (mSession != Session::kNone) return kWrongState;
    if (wired && mAvailability.wired)
        mSession = Session::kWired;
    else if (wireless && mAvailability.wireless)
        mSession = Session::kWireless;
    else
        return kWrongState;
    tell(&Clients::notify, kCarPlayStarted);
    if (mSession == Session::kWireless) setWirelessState(kWirelessConnected);
    return kDone;
}

int CarPlay::availableKeys(const std::vector<std::string>& keys) {
    std::vector<std::string> matched;
    std::copy_if(keys.begin(), keys.end(), std::back_inserter(matched), [this](const std::string& key) {
        const std::vector<std::string>& own = mProfile.digitalKeys;
        return std::find(own.begin(), own.end(), key) != own.end();
    });
    tell([id = mId, matched](Clients& clients) {
        std::vector<std::string> sent = matched;
        clients.CarPlayMatchedDigitalCarKeys(id, sent);
    });
    return kDone;
}

void CarPlay::describe(std::string* out) const {
    constexpr const char* kSessions[] = {"none", "wired", "wireless"};
    appendLine(out, "  CarPlay: wired %s, wireless %s, session: %s", mAvailability.wired ? "yes" : "no",
               mAvailability.wireless ? "yes" : "no", kSessions[static_cast<size_t>(mSession)]);
}

void CarPlay::tellAvailability() {
    tell([id = mId, now = mAvailability](Clients& clients) {
        CPAvailabilityWiredAttributes wired{now.wired, now.wiredIdentifier.c_str()};
        CPAvailabilityWirelessAttributes wireless{now.wireless, now.wirelessIdentifier.c_str()};
        clients.CarPlayAvailability(id, &wired, &wireless);
    });
}

}  // namespace accessory::simulator
