// Recorder: takes transactions in on the threads that make them, and writes them to the capture on its own.
#pragma once

#include <semaphore.h>

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

#include "../socket/RuntimeFd.h"
#include "InterfaceName.h"
#include "Packet.h"
#include "Ring.h"

namespace android::runtime::trace {

/// One transaction as it passes; borrows everything.
struct Transaction {
    PacketHeader header;  ///< all but sizes and who this is
    const InterfaceName& name;
    const void* data = nullptr;
    const void* records = nullptr;  ///< ObjectRecord, header.objectCount of them; need not be aligned
};

/// What is recorded goes into a ring, from which a thread empties it into the file within a few milliseconds.
/// That thread sleeps while nothing is recorded. What finds no room in the ring is counted; the file tells
/// how many.
///
/// mWriting guards the taker's end of the ring, and the file. It is a leaf, and no caller ever takes it.
class Recorder {  // NOLINT(clang-analyzer-optin.performance.Padding): one in a process, the ring wants lines
  public:
    /// @param file the capture, open and empty. @param capacity of the ring.
    Recorder(RuntimeFd file, size_t capacity);
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    /// Writes the beginning of the file. @return false when it cannot, or there is no memory.
    bool begin(const std::string& program, const std::string& note);

    /// Nanoseconds since 1970.
    static uint64_t now();

    /// A number for a transaction.
    uint64_t nextNumber() { return mLastNumber.fetch_add(1, std::memory_order_relaxed) + 1; }

    /// Never waits, never fails as far as the caller is concerned.
    void record(uint64_t time, const Transaction& transaction);

    /// Writes what is there.
    void flush();
    /// Writes what is there, and the counts.
    void finish();

    /// The body of the writing thread: flushes as long as the process lives.
    [[noreturn]] void run();

  private:
    bool put(uint64_t time, const Transaction& transaction);
    void complete(PacketHeader* header, size_t nameSize) const;
    void wakeWriter();
    void awaitRecords();
    void flushLocked();
    void writeStatisticsLocked();
    bool writeLocked(std::vector<iovec>* pieces);

    Ring mRing;
    const RuntimeFd mFile;
    const int32_t mPid;
    const uint32_t mUid;
    std::atomic<uint64_t> mLastNumber{0};
    std::atomic<uint64_t> mDropped{0};
    std::atomic<bool> mAsleep{false};
    sem_t mWake{};

    std::mutex mWriting;
    uint64_t mWritten = 0;
    uint64_t mDroppedTold = 0;
    bool mFailed = false;
};

}  // namespace android::runtime::trace
