// Calls: requests and replies put together again, and both sides of a call when both were captured.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "tools/capture/Decode.h"
#include "tools/capture/Packet.h"

namespace accessory::tools {

/// One call as one process saw it.
struct Call {
    bool isMade = false;  ///< by this process; otherwise it was served
    bool isOneway = false;
    bool isEnded = false;  ///< its reply was captured; a one-way call has ended at once
    uint64_t begin = 0;    ///< nanoseconds since 1970
    uint64_t end = 0;
    int32_t pid = 0;
    int32_t tid = 0;
    int32_t peerPid = 0;
    uint64_t number = 0;
    int32_t status = 0;
    std::string name;
    Json::Value arguments;
    Json::Value reply;
    size_t other = kNone;  ///< of a served call: the index of the same call where it was made

    static constexpr size_t kNone = SIZE_MAX;
};

/// Takes packets in the order of their time.
class CallList {
  public:
    void add(const Packet& packet);

    /// All calls in the order of their beginnings; those without a reply end with the last packet.
    ///
    /// Captures of two processes have no number in common. A served call is that made one which has the same
    /// processes, object, code and bytes and which was not yet over; of several like that, the earliest. So
    /// the two sides are mixed up only where two threads do exactly the same at the same time, and it makes
    /// no difference.
    std::vector<Call> finish();

  private:
    /// What a call looks the same by on both sides.
    using Likeness = std::tuple<int32_t, int32_t, uint64_t, uint32_t, bool, std::string>;

    void addReply(const Packet& packet, const Decoded& decoded);
    void match(size_t served, std::vector<size_t>* made);

    std::vector<Call> mCalls;
    std::map<std::tuple<int32_t, bool, uint64_t>, size_t> mOpen;  // by process, side, number
    std::map<Likeness, std::pair<std::vector<size_t>, std::vector<size_t>>> mAlike;  // made, served
    uint64_t mLast = 0;
};

}  // namespace accessory::tools
