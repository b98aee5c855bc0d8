// An object of another process, reached over its peer's connections.
#pragma once

#include <cstdint>
#include <memory>

#include "../Transport.h"
#include "Identity.h"

namespace android::runtime {

class Peer;

class SocketRemote : public RemoteObject {
  public:
    SocketRemote(std::shared_ptr<Peer> peer, const Token& token);
    ~SocketRemote() override;

    int32_t handle() const override { return mHandle; }
    status_t transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) override;

    Peer& peer() const { return *mPeer; }
    const Token& token() const { return mToken; }

    /// References received and not yet given back; guarded by the peer's lock.
    uint32_t received = 0;

  private:
    const std::shared_ptr<Peer> mPeer;
    const Token mToken;
    const int32_t mHandle;
};

}  // namespace android::runtime
