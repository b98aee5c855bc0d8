#include "simulator/device/Sessions.h"

#include <algorithm>

#include "simulator/Text.h"

namespace accessory::simulator {

void Sessions::reset() {
    mSessions.clear();
    mOpened = 0;
}

int Sessions::open(int protocol) {
    const int id = ++mOpened;
    mSessions.push_back({protocol, id});
    tell(&Clients::EASessionStart, protocol, id);
    return id;
}

bool Sessions::close(int protocol) {
    const auto first = std::stable_partition(mSessions.begin(), mSessions.end(), [&](const Session& session) {
        return session.protocol != protocol;
    });
    const bool any = first != mSessions.end();
    for (auto session = first; session != mSessions.end(); ++session)
        tell(&Clients::EASessionStop, session->id);
    mSessions.erase(first, mSessions.end());
    return any;
}

void Sessions::receive(int protocol, int length) {
    for (const Session& session : mSessions) {
        if (session.protocol == protocol && session.channel)
            tell(&Clients::EASessionRecvDataReady, session.id, length);
    }
}

int Sessions::identify(int index, int* protocol, int* session) const {
    if (protocol == nullptr || session == nullptr) return kBadArgument;
    if (index < 0 || index >= count()) return kNotFound;
    *protocol = mSessions[static_cast<size_t>(index)].protocol;
    *session = mSessions[static_cast<size_t>(index)].id;
    return kDone;
}

int Sessions::registerChannel(unsigned int session, unsigned int value1, unsigned int value2) {
    Session* const found = find(session);
    if (found == nullptr) return kNotFound;
    if (found->channel) return kWrongState;
    found->channel = true;
    found->value1 = value1;
    found->value2 = value2;
    return kDone;
}

int Sessions::unregisterChannel(unsigned int session) {
    Session* const found = find(session);
    if (found == nullptr) return kNotFound;
    if (!found->channel) return kWrongState;
    found->channel = false;
    return kDone;
}

int Sessions::sendReady(unsigned int session, unsigned int length) {
    Session* const found = find(session);
    if (found == nullptr) return kNotFound;
    if (!found->channel) return kWrongState;
    found->received += length;
    tell(&Clients::EASessionRecvDataReady, found->id, static_cast<int>(length));
    return kDone;
}

int Sessions::status(unsigned int protocol, unsigned int available) {
    if (available == 0) close(static_cast<int>(protocol));
    return kDone;
}

void Sessions::describe(std::string* out) const {
    for (const Session& session : mSessions)
        appendLine(out, "  session %d: protocol %d, %s, %llu bytes received", session.id, session.protocol,
                   session.channel ? "channel registered" : "no channel",
                   static_cast<unsigned long long>(session.received));
}

Sessions::Session* Sessions::find(unsigned int session) {
    const auto found = std::find_if(mSessions.begin(), mSessions.end(), [&](const Session& each) {
        return static_cast<unsigned int>(each.id) == session;
    });
    return found != mSessions.end() ? &*found : nullptr;
}

}  // namespace accessory::simulator
