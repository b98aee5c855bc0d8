#include "tests/faults/Depot.h"

#include <binder/IPCThreadState.h>
#include <unistd.h>

#include <utility>

namespace accessory::test {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

namespace {

constexpr size_t kMostKept = 4;

}  // namespace

status_t Depot::onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    ++mCalls;
    switch (code) {
        case kEchoAll:
            return reply->appendFrom(&data, 0, data.dataSize());
        case kStay:
            for (;;)
                pause();
        case kCrowd:
            return gate.pass() ? NO_ERROR : TIMED_OUT;
        case kBring:
            bring(data.readStrongBinder());
            return NO_ERROR;
        case kTakeOne:
            return reply->writeStrongBinder(one());
        case kCallOne: {
            const sp<IBinder> kept = one();
            return reply->writeInt32(kept != nullptr ? kept->pingBinder() : NO_ERROR);
        }
        case kGift:
            return reply->writeStrongBinder(new Gift);
        case kAnchor: {
            const std::lock_guard guard(mLock);
            mAnchor = data.readStrongBinder();
            mAnchored = IPCThreadState::self()->getCallingPid();
            return NO_ERROR;
        }
        default:
            return BBinder::onTransact(code, data, reply, flags);
    }
}

/// What has to go is released without the lock: its destructor may wait.
void Depot::bring(sp<IBinder> object) {
    sp<IBinder> oldest;
    const std::lock_guard guard(mLock);
    if (mKept.size() == kMostKept) {
        oldest = mKept.front();
        mKept.erase(mKept.begin());
    }
    mKept.push_back(std::move(object));
}

sp<IBinder> Depot::one() {
    const std::lock_guard guard(mLock);
    return mKept.empty() ? nullptr : mKept.back();
}

sp<IBinder> Depot::anchorOf(pid_t process) {
    const std::lock_guard guard(mLock);
    return mAnchored == process ? mAnchor : nullptr;
}

void Depot::clear() {
    std::vector<sp<IBinder>> kept;
    sp<IBinder> anchor;
    const std::lock_guard guard(mLock);
    mKept.swap(kept);
    std::swap(mAnchor, anchor);
}

}  // namespace accessory::test
