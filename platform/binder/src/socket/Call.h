// Calls over connections: making them, serving them, and the nesting of both.
#pragma once

#include <binder/Parcel.h>

#include <cstdint>

#include "Connection.h"
#include "Identity.h"

namespace android::runtime {

/// Calls an object of @p peer and waits for the answer. Calls that arrive on the same connection meanwhile
/// run on this thread. While this thread serves a call of @p peer the same connection is used again: the
/// other end's thread is waiting there and can serve this one.
status_t call(Peer& peer, const Token& token, uint32_t code, const Parcel& data, Parcel* reply,
              uint32_t flags);

status_t callOneway(Peer& peer, const Token& token, uint32_t code, const Parcel& data, uint32_t flags);

/// Runs the call in @p frame, which came over @p connection, and sends the answer.
/// @return false when the connection is gone.
bool serveCall(Connection& connection, Frame* frame);

/// A one-way call that waits for its turn.
struct OnewayCall {
    sp<BBinder> object;  ///< null when it is gone; the call is dropped then
    uint32_t code = 0;
    uint32_t flags = 0;
    Credentials caller;
    size_t weight = 0;  ///< in bytes, what it costs while it waits
    Parcel data;

    /// Takes the content of @p frame over.
    OnewayCall(Connection& connection, Frame* frame);
    void run();
};

}  // namespace android::runtime
