#include "simulator/model/CallList.h"

#include <algorithm>
#include <cstdio>
#include <initializer_list>

namespace accessory::simulator {

std::string CallList::incoming(Call call) {
    return add(std::move(call), CallState::kRinging, CallDirection::kIncoming);
}

std::string CallList::outgoing(Call call) {
    moveAll(CallState::kActive, CallState::kHeld);
    return add(std::move(call), CallState::kDialling, CallDirection::kOutgoing);
}

bool CallList::connecting(const std::string& uuid) {
    Call* const call = pick(uuid.c_str(), {CallState::kDialling});
    if (call == nullptr) return false;
    changed(call, CallState::kConnecting);
    return true;
}

bool CallList::connected(const std::string& uuid, int32_t time) {
    Call* const call = pick(uuid.c_str(), {CallState::kDialling, CallState::kConnecting});
    if (call == nullptr) return false;
    call->startTime = time;
    changed(call, CallState::kActive);
    return true;
}

bool CallList::accept(const char* uuid, bool endOthers, int32_t time) {
    const Call* const ringing = pick(uuid, {CallState::kRinging});
    if (ringing == nullptr) return false;
    const std::string accepted = ringing->uuid;
    if (endOthers) {
        for (Call& call : mCalls) {
            if (call.state == CallState::kActive) endCall(&call);
        }
    } else {
        moveAll(CallState::kActive, CallState::kHeld);
    }
    Call* const call = byUuid(accepted);
    call->startTime = time;
    changed(call, CallState::kActive);
    tidy();
    return true;
}

bool CallList::end(const char* uuid) {
    Call* const call = pick(uuid, {CallState::kRinging, CallState::kDialling, CallState::kConnecting,
                                   CallState::kActive, CallState::kHeld});
    if (call == nullptr) return false;
    endCall(call);
    tidy();
    return true;
}

bool CallList::endAll() {
    if (mCalls.empty()) return false;
    for (Call& call : mCalls)
        endCall(&call);
    tidy();
    return true;
}

bool CallList::swap() {
    if (!abilities().swap) return false;
    for (Call& call : mCalls) {
        if (call.state == CallState::kActive) {
            changed(&call, CallState::kHeld);
        } else if (call.state == CallState::kHeld) {
            changed(&call, CallState::kActive);
        }
    }
    return true;
}

bool CallList::merge() {
    if (!abilities().merge) return false;
    for (Call& call : mCalls) {
        if (call.state != CallState::kActive && call.state != CallState::kHeld) continue;
        call.conference = true;
        changed(&call, CallState::kActive);
    }
    return true;
}

bool CallList::hold(const char* uuid, bool held) {
    const CallState from = held ? CallState::kActive : CallState::kHeld;
    const CallState to = held ? CallState::kHeld : CallState::kActive;
    if (uuid == nullptr) return moveAll(from, to);
    Call* const call = pick(uuid, {from});
    if (call == nullptr) return false;
    changed(call, to);
    return true;
}

const Call* CallList::find(const char* uuid, CallState state) const {
    const auto matches = [&](const Call& call) {
        return call.state == state && (uuid == nullptr || call.uuid == uuid);
    };
    const auto found = std::find_if(mCalls.begin(), mCalls.end(), matches);
    return found != mCalls.end() ? &*found : nullptr;
}

CallAbilities CallList::abilities() const {
    const size_t active = count(CallState::kActive);
    const size_t held = count(CallState::kHeld);
    const bool ringing = count(CallState::kRinging) > 0;
    CallAbilities abilities;
    abilities.initiate = held == 0 && !ringing && active == mCalls.size();
    abilities.endAndAccept = ringing && active > 0;
    abilities.holdAndAccept = ringing && active > 0 && held == 0;
    abilities.swap = abilities.merge = active > 0 && held > 0;
    abilities.hold = active > 0;
    return abilities;
}

std::vector<Call> CallList::takeChanged() {
    std::vector<Call> changed;
    changed.swap(mChanged);
    return changed;
}

std::string CallList::add(Call call, CallState state, CallDirection direction) {
    if (call.uuid.empty()) {
        char uuid[37];
        snprintf(uuid, sizeof(uuid), "CA110000-0000-4000-8000-%012u", ++mMade);
        call.uuid = uuid;
    }
    call.direction = direction;
    mCalls.push_back(std::move(call));
    changed(&mCalls.back(), state);
    return mCalls.back().uuid;
}

Call* CallList::byUuid(const std::string& uuid) {
    const auto found =
        std::find_if(mCalls.begin(), mCalls.end(), [&](const Call& call) { return call.uuid == uuid; });
    return found != mCalls.end() ? &*found : nullptr;
}

const Call* CallList::byUuid(const std::string& uuid) const {
    return const_cast<CallList*>(this)->byUuid(uuid);
}

Call* CallList::pick(const char* uuid, std::initializer_list<CallState> states) {
    for (const CallState state : states) {
        if (const Call* const call = find(uuid, state)) return byUuid(call->uuid);
    }
    return nullptr;
}

size_t CallList::count(CallState state) const {
    return static_cast<size_t>(
        std::count_if(mCalls.begin(), mCalls.end(), [&](const Call& call) { return call.state == state; }));
}

bool CallList::moveAll(CallState from, CallState to) {
    bool moved = false;
    for (Call& call : mCalls) {
        if (call.state != from) continue;
        changed(&call, to);
        moved = true;
    }
    return moved;
}

void CallList::changed(Call* call, CallState state) {
    call->state = state;
    mChanged.push_back(*call);
}

void CallList::endCall(Call* call) {
    if (call->state == CallState::kRinging) call->reason = DisconnectReason::kDeclined;
    changed(call, CallState::kDisconnected);
}

void CallList::tidy() {
    const auto ended = [](const Call& call) { return call.state == CallState::kDisconnected; };
    mCalls.erase(std::remove_if(mCalls.begin(), mCalls.end(), ended), mCalls.end());
    const auto inConference = [](const Call& call) { return call.conference; };
    if (std::count_if(mCalls.begin(), mCalls.end(), inConference) != 1) return;
    const auto last = std::find_if(mCalls.begin(), mCalls.end(), inConference);
    last->conference = false;
    changed(&*last, last->state);
}

}  // namespace accessory::simulator
