#include "simulator/device/Phone.h"

#include "simulator/Text.h"

namespace accessory::simulator {

namespace {

constexpr milliseconds kConnectingAfter{1000};
constexpr const char* kVoicemail = "voicemail";

}  // namespace

Phone::Phone(Stage& stage, unsigned int id, const DeviceProfile& profile)
    : Feature(stage, id), mProfile(profile), mNetwork(profile.network) {}

void Phone::reset() {
    mTimers.clear();
    mCalls.clear();
    mNetwork = mProfile.network;
    mMuted = false;
    mTones.clear();
    mLastDialled.clear();
    mAskedCalls.reset();
    mAskedCommunications.reset();
}

int Phone::startCallStates(const CallFields& asked) {
    mAskedCalls = asked;
    for (const Call& call : mCalls.calls())
        tellCall(call);
    return kDone;
}

int Phone::stopCallStates() {
    if (!mAskedCalls) return kWrongState;
    mAskedCalls.reset();
    return kDone;
}

int Phone::startCommunications(const CommunicationsFields& asked) {
    mAskedCommunications = asked;
    mTold = communications();
    tell([id = mId, view = mTold, asked](Clients& clients) { raise(clients, id, view, asked); });
    return kDone;
}

int Phone::stopCommunications() {
    if (!mAskedCommunications) return kWrongState;
    mAskedCommunications.reset();
    return kDone;
}

int Phone::accept(int action, const char* uuid) {
    if (action != kHoldAndAccept && action != kEndAndAccept) return kBadArgument;
    if (uuid != nullptr && !mCalls.contains(uuid)) return kNotFound;
    return publish(mCalls.accept(uuid, action == kEndAndAccept, deviceTime()));
}

int Phone::end(int action, const char* uuid) {
    if (action != kEndOne && action != kEndAll) return kBadArgument;
    if (action == kEndAll) return publish(mCalls.endAll());
    if (uuid != nullptr && !mCalls.contains(uuid)) return kNotFound;
    return publish(mCalls.end(uuid));
}

int Phone::initiate(int type, const char* destination, int32_t service, const char* addressBookId) {
    if (type < kToDestination || type > kRedial) return kBadArgument;
    if (type == kToDestination && destination == nullptr) return kBadArgument;
    if (!communications().initiateAvailable) return kWrongState;
    Call call;
    call.remoteId = type == kToDestination ? destination : type == kRedial ? mLastDialled : kVoicemail;
    if (call.remoteId.empty()) return kNotFound;
    call.service = service;
    if (addressBookId != nullptr) call.addressBookId = addressBookId;
    mLastDialled = call.remoteId;
    const std::string uuid = mCalls.outgoing(std::move(call));
    later(uuid, std::min(kConnectingAfter, milliseconds(mProfile.answerAfterMs)),
          [this, uuid] { publish(mCalls.connecting(uuid)); });
    later(uuid + "/answer", milliseconds(mProfile.answerAfterMs),
          [this, uuid] { publish(mCalls.connected(uuid, deviceTime())); });
    return publish(true);
}

int Phone::mute(bool muted) {
    if (mCalls.calls().empty()) return kWrongState;
    mMuted = muted;
    return publish(true);
}

int Phone::tone(int tone, const char* uuid) {
    if (tone < 0 || tone > kHighestTone) return kBadArgument;
    if (mCalls.find(uuid, CallState::kActive) == nullptr) return kWrongState;
    mTones += "0123456789*#"[tone];
    return kDone;
}

void Phone::ring(Call call, milliseconds patience) {
    const std::string uuid = mCalls.incoming(std::move(call));
    publish(true);
    if (patience.count() == 0) return;
    later(uuid, patience, [this, uuid] {
        if (mCalls.find(uuid.c_str(), CallState::kRinging) != nullptr) publish(mCalls.end(uuid.c_str()));
    });
}

void Phone::setNetwork(const Network& network) {
    mNetwork = network;
    publish(true);
}

void Phone::describe(std::string* out) const {
    for (const Call& call : mCalls.calls())
        appendLine(out, "  call %s: %s %s%s", call.uuid.c_str(), quoted(call.remoteId).c_str(),
                   nameOf(call.state), call.conference ? ", in the conference" : "");
    if (!mCalls.calls().empty()) appendLine(out, "  microphone: %s", mMuted ? "muted" : "on");
    if (!mTones.empty()) appendLine(out, "  tones sent: %s", mTones.c_str());
    if (mAskedCalls) appendLine(out, "  call states: asked for fields %s", mAskedCalls->to_string().c_str());
    if (mAskedCommunications)
        appendLine(out, "  communications: asked for fields %s", mAskedCommunications->to_string().c_str());
}

int Phone::publish(bool done) {
    for (const Call& call : mCalls.takeChanged())
        tellCall(call);
    if (mCalls.calls().empty()) mMuted = false;
    tellCommunications();
    return done ? kDone : kWrongState;
}

void Phone::tellCall(const Call& call) {
    if (!mAskedCalls) return;
    tell([id = mId, call, asked = *mAskedCalls](Clients& clients) { raise(clients, id, call, asked); });
}

void Phone::tellCommunications() {
    if (!mAskedCommunications) return;
    const CommunicationsView view = communications();
    const CommunicationsFields fields = differences(view, mTold) & *mAskedCommunications;
    mTold = view;
    if (fields.none()) return;
    tell([id = mId, view, fields](Clients& clients) { raise(clients, id, view, fields); });
}

CommunicationsView Phone::communications() const {
    const CallAbilities can = mCalls.abilities();
    CommunicationsView view;
    view.signalStrength = mNetwork.signalStrength;
    view.registrationStatus = mNetwork.registrationStatus;
    view.airplaneMode = mNetwork.airplaneMode;
    view.carrier = mNetwork.carrier;
    view.cellular = mNetwork.cellular;
    view.telephony = mNetwork.telephony;
    view.videoCalls = mNetwork.videoCalls;
    view.muted = mMuted;
    view.initiateAvailable = can.initiate && mNetwork.telephony && !mNetwork.airplaneMode;
    view.callCount = static_cast<uint8_t>(mCalls.calls().size());
    view.newVoicemails = mNetwork.newVoicemails;
    view.endAndAcceptAvailable = can.endAndAccept;
    view.holdAndAcceptAvailable = can.holdAndAccept;
    view.swapAvailable = can.swap;
    view.mergeAvailable = can.merge;
    view.holdAvailable = can.hold;
    view.anyCall = view.callCount > 0;
    return view;
}

int32_t Phone::deviceTime() const {
    return static_cast<int32_t>(mProfile.clock.seconds) + static_cast<int32_t>(mStage.now().count() / 1000);
}

void Phone::later(const std::string& uuid, milliseconds delay, Stage::Action action) {
    std::unique_ptr<Timer>& timer = mTimers[uuid];
    if (timer == nullptr) timer = std::make_unique<Timer>(mStage);
    timer->start(delay, std::move(action));
}

}  // namespace accessory::simulator
