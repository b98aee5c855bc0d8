#include "simulator/device/Bluetooth.h"

#include <algorithm>
#include <array>

#include "simulator/Text.h"

namespace accessory::simulator {

namespace {

using LinkKey = std::array<unsigned char, 16>;

}  // namespace

Bluetooth::Bluetooth(Stage& stage, unsigned int id, const DeviceProfile& profile)
    : Feature(stage, id), mProfile(profile) {}

void Bluetooth::reset() {
    mOutOfBand = OutOfBand::kIdle;
    mPairing = 0;
    mComponents = 0;
    mAsked.clear();
    mConnections.clear();
}

void Bluetooth::beginOutOfBand() {
    mOutOfBand = OutOfBand::kStarted;
    tell(&Clients::startOOBBTP);
}

int Bluetooth::accessoryInfo() {
    if (mOutOfBand != OutOfBand::kStarted) return kWrongState;
    mOutOfBand = OutOfBand::kKeySent;
    LinkKey key;
    for (unsigned char& byte : key)
        byte = static_cast<unsigned char>(mStage.random()());
    tell([id = mId, key, mac = mProfile.bluetoothAddress](Clients& clients) {
        LinkKey sentKey = key;
        MacAddress sentMac = mac;
        clients.OOBBTPLinkKeyInfo(id, sentKey.data(), sentKey.size(), sentMac.data(), sentMac.size());
    });
    return kDone;
}

int Bluetooth::completionInfo() {
    if (mOutOfBand != OutOfBand::kKeySent) return kWrongState;
    mOutOfBand = OutOfBand::kIdle;
    tell(&Clients::stopOOBBTP);
    return kDone;
}

void Bluetooth::beginPairing(uint16_t pairing) {
    mPairing = pairing;
    tell([id = mId, pairing, mac = mProfile.bluetoothAddress](Clients& clients) {
        MacAddress sent = mac;
        clients.StartBluetoothPairing(id, pairing, sent.data());
    });
}

int Bluetooth::pairingInformation(uint16_t pairing, bool hasBlocks) {
    if (mPairing == 0 || pairing != mPairing) return kWrongState;
    return hasBlocks ? kDone : kBadArgument;
}

int Bluetooth::pairingStatus(uint16_t pairing, uint32_t result) {
    if (mPairing == 0 || pairing != mPairing) return kWrongState;
    mPairing = 0;
    tell(&Clients::StopBluetoothPairing, pairing, result);
    return kDone;
}

int Bluetooth::components(uint32_t count) {
    mComponents = count;
    return kDone;
}

int Bluetooth::startConnections(std::vector<uint32_t> components) {
    mAsked = std::move(components);
    for (const uint32_t component : mAsked)
        tell(&Clients::BTConnectionUpdate, component, mConnections[component]);
    return kDone;
}

int Bluetooth::stopConnections() {
    if (mAsked.empty()) return kWrongState;
    mAsked.clear();
    return kDone;
}

void Bluetooth::setConnection(uint32_t component, uint32_t state) {
    mConnections[component] = state;
    if (std::find(mAsked.begin(), mAsked.end(), component) != mAsked.end())
        tell(&Clients::BTConnectionUpdate, component, state);
}

void Bluetooth::describe(std::string* out) const {
    if (mOutOfBand != OutOfBand::kIdle) appendLine(out, "  pairing out of band: under way");
    if (mPairing != 0) appendLine(out, "  pairing %u: under way", mPairing);
    if (mComponents != 0) appendLine(out, "  Bluetooth components of the head unit: %u", mComponents);
    if (!mAsked.empty()) appendLine(out, "  Bluetooth connections: asked for %zu components", mAsked.size());
}

}  // namespace accessory::simulator
