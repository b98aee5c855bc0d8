// How much one process may have of another's, each far beyond what an honest one needs. docs/RUNTIME.md says
// what happens beyond.
#pragma once

#include <cstddef>

namespace android::runtime {

/// Connections for calls, in one direction: one for each call under way, and a few at rest.
constexpr size_t kMostConnections = 512;

/// Links. Two processes need one; threads that reach for a new peer at once may each open one.
constexpr size_t kMostLinks = 128;

/// Connections that have not said what they are for: of one process, and of all.
constexpr size_t kMostGreetings = 64;
constexpr size_t kMostGreetingsInAll = 512;

/// Different objects of this process that another may hold, or claim to, and so also objects of another for
/// which this one has proxies.
constexpr size_t kMostObjects = size_t{16} * 1024;

/// Bytes of one-way calls of another process that wait for their turn; each call and what comes with it
/// counts with what it costs here.
constexpr size_t kMostOnewayBytes = size_t{4} * 1024 * 1024;
constexpr size_t kOnewayObjectBytes = 512;
constexpr size_t kOnewayDescriptorBytes = size_t{8} * 1024;

/// Bytes that the connections of another process keep here, of calls that have come in part and of answers
/// that have gone in part. A descriptor counts so much that there are at most 512.
constexpr size_t kMostHeldBytes = size_t{64} * 1024 * 1024;
constexpr size_t kHeldDescriptorBytes = kMostHeldBytes / 512;

/// Bytes of link messages that wait until another process reads its link.
constexpr size_t kMostOutboxBytes = size_t{4} * 1024 * 1024;

/// Processes that hold objects of this one and cannot be reached yet.
constexpr size_t kMostUnreached = 4096;

}  // namespace android::runtime
