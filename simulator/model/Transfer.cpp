#include "simulator/model/Transfer.h"

#include <algorithm>

namespace accessory::simulator {

namespace {

constexpr uint64_t kMillisecondsPerSecond = 1000;

}  // namespace

const char* nameOf(TransferState state) {
    constexpr const char* kNames[] = {"offered", "ready", "running", "paused", "cancelled", "finished"};
    return kNames[static_cast<size_t>(state)];
}

bool Transfer::prepare() {
    if (mState == TransferState::kRunning || mState == TransferState::kPaused) return false;
    mReceived = 0;
    mState = TransferState::kReady;
    return true;
}

bool Transfer::start(milliseconds now) {
    if (mState != TransferState::kReady && mState != TransferState::kPaused) return false;
    mSince = now;
    mState = TransferState::kRunning;
    return true;
}

bool Transfer::pause(milliseconds now) {
    if (mState != TransferState::kRunning || advance(now)) return false;
    mState = TransferState::kPaused;
    return true;
}

bool Transfer::cancel() {
    if (mState == TransferState::kCancelled || mState == TransferState::kFinished) return false;
    mState = TransferState::kCancelled;
    return true;
}

milliseconds Transfer::timeLeft(milliseconds now) const {
    const uint64_t whole = ((mSize - mReceived) * kMillisecondsPerSecond + mRate - 1) / mRate;
    return std::max(mSince + milliseconds(static_cast<int64_t>(whole)) - now, milliseconds(0));
}

bool Transfer::advance(milliseconds now) {
    if (mState != TransferState::kRunning) return false;
    const auto passed = static_cast<uint64_t>((now - mSince).count());
    mReceived = std::min(mSize, mReceived + passed * mRate / kMillisecondsPerSecond);
    mSince = now;
    if (mReceived == mSize) mState = TransferState::kFinished;
    return mState == TransferState::kFinished;
}

}  // namespace accessory::simulator
