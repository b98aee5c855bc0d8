// A parcel's objects on their way between processes.
#pragma once

#include <binder/Parcel.h>

#include <cstdint>
#include <utility>
#include <vector>

#include "Frame.h"

namespace android::runtime {

struct Frame;
class Peer;

/// A parcel made ready for one peer: its objects are lent to the peer, or credited to it by their owners, and
/// taken back unless it was sent. Borrows the parcel and the peer.
class EncodedParcel {
  public:
    EncodedParcel(const Parcel& parcel, Peer& receiver);
    ~EncodedParcel();
    EncodedParcel(const EncodedParcel&) = delete;
    EncodedParcel& operator=(const EncodedParcel&) = delete;

    /// NO_ERROR, or why it cannot be sent: FAILED_TRANSACTION for too many bytes or descriptors, BAD_VALUE
    /// for an object that does not lie at a whole cell, the parcel's own error.
    status_t status() const { return mStatus; }
    /// Enters the sizes.
    void describe(FrameHeader* header) const;
    const void* data() const { return mBlanked.empty() ? mParcel.data() : mBlanked.data(); }
    const std::vector<ObjectRecord>& records() const { return mRecords; }
    const std::vector<int>& fds() const { return mFds; }

    /// The frame is out: what it lent and passed on stays with the peer.
    void sent();

  private:
    status_t encodeObjects();
    status_t encodeBinder(size_t offset, const sp<IBinder>& binder);

    const Parcel& mParcel;
    Peer& mReceiver;
    status_t mStatus;
    std::vector<uint8_t> mBlanked;  // the data without this process's addresses, if there are any in it
    std::vector<ObjectRecord> mRecords;
    std::vector<int> mFds;
    std::vector<Token> mLent;
    std::vector<std::pair<std::shared_ptr<Peer>, Token>> mPassedOn;
};

/// Makes the body of @p frame, which came from @p sender, the content of @p parcel: objects become proxies,
/// or themselves when they live here; null stands for those that are gone.
void decode(Frame* frame, Parcel* parcel, Peer& sender);

/// Gives back the reference that came with @p record, out of a frame from @p sender that is not decoded.
void giveBack(const ObjectRecord& record, Peer& sender);

}  // namespace android::runtime
