// The parts of bench_scale. Each tells what it does on stderr and adds what it measured.
#pragma once

#include "bench/support/Options.h"
#include "bench/support/Results.h"

namespace accessory::bench {

/// 1 to 64 clients that call at once: how much is done in all, and how long a single call takes then.
void measureClientsAtOnce(const Options& options, Results* results);
/// What one more registered client takes, in time and in the service's memory.
void measureRegistrations(const Options& options, Results* results);
/// Allocations and system calls of a warm small call.
void measureCostOfACall(const Options& options, Results* results);
/// From the start of a client's process to its first answer.
void measureStartUp(const Options& options, Results* results);
/// The files that a device has to hold.
void measureLibraries(const Options& options, Results* results);
/// What a service does while nobody wants anything.
void measureIdleness(const Options& options, Results* results);

}  // namespace accessory::bench
