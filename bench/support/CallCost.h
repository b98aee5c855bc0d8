// What a warm small call costs besides time: memory and system calls, on either side.
#pragma once

#include <cstddef>

namespace accessory::bench {

struct CallCost {
    size_t calls = 0;  ///< that the numbers below are the sum of
    size_t callerAllocations = 0;
    size_t serviceAllocations = 0;
    size_t callerSystemCalls = 0;
    /// Of the whole process. One more or less than exact: the service waits for the next call before or after
    /// the last answer has ended the counting.
    size_t serviceSystemCalls = 0;
};

/// Calls AcceptCall with 16 bytes in several windows and tells of the quietest: a pause that a busy machine
/// puts between two calls costs the service a wait that belongs to no call.
/// @throw std::system_error when processes may not be traced here.
CallCost measureCallCost(size_t windows, size_t callsAWindow);

}  // namespace accessory::bench
