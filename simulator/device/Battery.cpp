#include "simulator/device/Battery.h"

#include <accessory/PowerRecords.h>

#include <algorithm>

#include "simulator/Text.h"

namespace accessory::simulator {

namespace {

using Mask = iAP2PowerUpdateMask;

constexpr milliseconds kPercentTime{60'000};
constexpr int32_t kDisabled = 0;
constexpr int32_t kCharging = 1;
constexpr int32_t kCharged = 2;
constexpr int32_t kFull = 100;

uint32_t differences(const PowerState& one, const PowerState& other) {
    uint32_t bits = 0;
    const auto compare = [&](auto PowerState::*field, uint32_t bit) {
        if (one.*field != other.*field) bits |= bit;
    };
    compare(&PowerState::currentMilliamps, Mask::kCurrentFromAccessory);
    compare(&PowerState::willCharge, Mask::kChargeIsPresent);
    compare(&PowerState::mode, Mask::kPowerMode);
    compare(&PowerState::externalCharger, Mask::kExternalChargeConnected);
    compare(&PowerState::chargeState, Mask::kChargeState);
    compare(&PowerState::chargeLevel, Mask::kChargeLevel);
    return bits;
}

android::sp<iAP2PowerUpdate> powerRecord(const PowerState& state, uint32_t mask) {
    const android::sp<IiAP2PowerUpdate> record = new IiAP2PowerUpdate();
    record->setCurrentFromAccessory(state.currentMilliamps)
        .setChargeIsPresent(state.willCharge ? 1 : 0)
        .setPowerMode(state.mode)
        .setExternalChargeConnected(state.externalCharger ? 1 : 0)
        .setChargeState(state.chargeState)
        .setChargeLevel(state.chargeLevel);
    record->mMask->mask &= mask;
    return record;
}

}  // namespace

Battery::Battery(Stage& stage, unsigned int id, const DeviceProfile& profile)
    : Feature(stage, id), mProfile(profile), mState(profile.power), mTick(stage) {}

void Battery::reset() {
    mTick.stop();
    mState = mProfile.power;
    mAsked.reset();
}

int Battery::start(uint32_t mask) {
    mAsked = mask;
    tell([id = mId, state = mState, mask](Clients& clients) {
        clients.powerUpdate(id, powerRecord(state, mask));
    });
    return kDone;
}

int Battery::stop() {
    if (!mAsked) return kWrongState;
    mAsked.reset();
    return kDone;
}

int Battery::source(uint32_t milliamps, bool charge) {
    PowerState state = mState;
    state.currentMilliamps = static_cast<int32_t>(milliamps);
    state.willCharge = charge;
    if (!charge)
        state.chargeState = kDisabled;
    else
        state.chargeState = state.chargeLevel < kFull ? kCharging : kCharged;
    set(state);
    return kDone;
}

void Battery::set(const PowerState& state) {
    const uint32_t changed = differences(state, mState) & mAsked.value_or(0);
    mState = state;
    if (changed == 0) return;
    tell([id = mId, state, changed](Clients& clients) {
        clients.powerUpdate(id, powerRecord(state, changed));
    });
}

void Battery::describe(std::string* out) const {
    appendLine(out, "  battery: %d %%, %s, %d mA from the accessory", mState.chargeLevel,
               charging() ? "charging" : "not charging", mState.currentMilliamps);
    if (mAsked) appendLine(out, "  power: asked for 0x%x", *mAsked);
}

void Battery::tick() {
    mTick.start(kPercentTime, [this] {
        PowerState state = mState;
        state.chargeLevel = std::clamp(state.chargeLevel + (charging() ? 1 : -1), 0, kFull);
        if (charging() && state.chargeLevel == kFull) state.chargeState = kCharged;
        // A charged battery is kept full.
        if (mState.chargeState != kCharged) set(state);
        tick();
    });
}

bool Battery::charging() const { return mState.chargeState == kCharging; }

}  // namespace accessory::simulator
