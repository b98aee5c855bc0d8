#include "tools/capture/Calls.h"

#include <algorithm>
#include <functional>
#include <string_view>

namespace accessory::tools {

namespace {

Call callOf(const Packet& packet, const Decoded& decoded) {
    Call call;
    call.isMade = packet.isMade();
    call.isOneway = packet.kind == Packet::kOneway;
    call.isEnded = call.isOneway;
    call.begin = packet.time;
    call.end = packet.time;
    call.pid = packet.pid;
    call.tid = packet.tid;
    call.peerPid = packet.peerPid;
    call.number = packet.number;
    call.name = decoded.name;
    call.arguments = decoded.error.empty() ? decoded.content : Json::Value(decoded.error);
    return call;
}

/// Size and hash stand for the bytes.
std::string fingerprint(const std::vector<uint8_t>& data) {
    const std::string_view bytes(reinterpret_cast<const char*>(data.data()), data.size());
    return std::to_string(data.size()) + "/" + std::to_string(std::hash<std::string_view>()(bytes));
}

}  // namespace

void CallList::add(const Packet& packet) {
    mLast = std::max(mLast, packet.time);
    const Decoded decoded = decodePacket(packet);
    if (packet.kind == Packet::kReply) return addReply(packet, decoded);
    const size_t index = mCalls.size();
    mCalls.push_back(callOf(packet, decoded));
    const Call& call = mCalls.back();
    if (!call.isOneway) mOpen[{call.pid, call.isMade, call.number}] = index;
    const int32_t caller = call.isMade ? call.pid : call.peerPid;
    const int32_t callee = call.isMade ? call.peerPid : call.pid;
    auto& [made, served] =
        mAlike[{caller, callee, packet.object, packet.code, call.isOneway, fingerprint(packet.data)}];
    (call.isMade ? made : served).push_back(index);
}

void CallList::addReply(const Packet& packet, const Decoded& decoded) {
    const auto open = mOpen.find({packet.pid, packet.isMade(), packet.number});
    if (open == mOpen.end()) return;
    Call& call = mCalls[open->second];
    call.isEnded = true;
    call.end = packet.time;
    call.status = packet.status;
    call.reply = decoded.error.empty() ? decoded.content : Json::Value(decoded.error);
    mOpen.erase(open);
}

void CallList::match(size_t served, std::vector<size_t>* made) {
    Call& call = mCalls[served];
    const auto fits = [&](size_t index) {
        const Call& other = mCalls[index];
        const bool over = !call.isOneway && other.isEnded && call.isEnded && other.end < call.end;
        return other.begin <= call.begin && !over;
    };
    const auto found = std::find_if(made->begin(), made->end(), fits);
    if (found == made->end()) return;
    call.other = *found;
    made->erase(found);
}

std::vector<Call> CallList::finish() {
    for (Call& call : mCalls)
        if (!call.isEnded) call.end = mLast;
    for (auto& [likeness, both] : mAlike) {
        for (const size_t served : both.second)
            match(served, &both.first);
    }
    return std::move(mCalls);
}

}  // namespace accessory::tools
