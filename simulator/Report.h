// Report: what the simulator tells whoever runs it: one line each for requests, events and the timeline.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>

namespace accessory::simulator {

/// Any thread may use it.
class Report {
  public:
    enum class Kind { kRequest, kEvent, kStep, kFault };

    /// @param verbose false: lines are only counted. @param coloured whether the terminal shows colours.
    Report(bool verbose, bool coloured) : mVerbose(verbose), mColoured(coloured) {}

    bool verbose() const { return mVerbose; }
    void tell(Kind kind, std::chrono::milliseconds time, const std::string& text);
    uint64_t count(Kind kind) const { return mCounts[static_cast<size_t>(kind)]; }

  private:
    const bool mVerbose;
    const bool mColoured;
    std::atomic<uint64_t> mCounts[4] = {};
    std::mutex mLock;
};

}  // namespace accessory::simulator
