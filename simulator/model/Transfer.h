// Transfer: one file on its way from the device, in its states and with its progress.
#pragma once

#include <chrono>
#include <cstdint>

namespace accessory::simulator {

using std::chrono::milliseconds;

enum class TransferState { kOffered, kReady, kRunning, kPaused, kCancelled, kFinished };

const char* nameOf(TransferState state);

class Transfer {
  public:
    /// @param size in bytes. @param rate in bytes per second; not 0.
    explicit Transfer(uint64_t size = 0, uint64_t rate = 65'536) : mSize(size), mRate(rate) {}

    /// Each: @return false when the state does not allow it.
    bool prepare();
    /// Starts, or goes on after a pause, at @p now.
    bool start(milliseconds now);
    bool pause(milliseconds now);
    bool cancel();

    /// How long it will take from @p now, if nothing comes between.
    milliseconds timeLeft(milliseconds now) const;
    /// @return whether the last byte has arrived.
    bool advance(milliseconds now);

    TransferState state() const { return mState; }
    uint64_t size() const { return mSize; }
    uint64_t received() const { return mReceived; }

  private:
    uint64_t mSize;
    uint64_t mRate;
    uint64_t mReceived = 0;
    milliseconds mSince{0};
    TransferState mState = TransferState::kOffered;
};

}  // namespace accessory::simulator
