#include "Recorder.h"

#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <new>

#include "../Contained.h"
#include "../Log.h"
#include "../socket/Frame.h"
#include "Blocks.h"
#include "Trace.h"

namespace android::runtime::trace {

namespace {

/// How long the writer gathers before it looks again. What a killed process recorded last is lost for as
/// long.
constexpr timespec kInterval{0, 10'000'000};

/// Pieces that are handed to the kernel at a time.
constexpr size_t kPieces = 256;

constexpr size_t padded(size_t size) { return (size + 3) & ~size_t{3}; }

int32_t threadId() {
    static thread_local const int32_t id = gettid();
    return id;
}

/// The records in the form of the capture.
std::vector<PacketObject> packetObjects(const Transaction& transaction) {
    const auto* const records = static_cast<const uint8_t*>(transaction.records);
    std::vector<PacketObject> objects(transaction.header.objectCount);
    for (size_t i = 0; i < objects.size(); ++i) {
        ObjectRecord record;
        std::memcpy(&record, records + i * sizeof(record), sizeof(record));
        objects[i] = {record.offset, static_cast<uint32_t>(record.kind), identityOf(record.token)};
    }
    return objects;
}

iovec piece(const void* bytes, size_t size) { return {const_cast<void*>(bytes), size}; }

/// Takes @p done bytes away from the front.
void advance(std::vector<iovec>* pieces, size_t done) {
    auto first = pieces->begin();
    for (; first != pieces->end() && done >= first->iov_len; ++first)
        done -= first->iov_len;
    pieces->erase(pieces->begin(), first);
    if (done > 0)
        pieces->front() = {static_cast<uint8_t*>(pieces->front().iov_base) + done,
                           pieces->front().iov_len - done};
}

}  // namespace

Recorder::Recorder(RuntimeFd file, size_t capacity)
    : mRing(capacity), mFile(std::move(file)), mPid(getpid()), mUid(geteuid()) {
    sem_init(&mWake, 0, 0);
}

Recorder::~Recorder() { sem_destroy(&mWake); }

bool Recorder::begin(const std::string& program, const std::string& note) {
    const std::lock_guard<std::mutex> guard(mWriting);
    const std::string beginning = fileBeginning(program, note);
    std::vector<iovec> pieces = {piece(beginning.data(), beginning.size())};
    return mRing.isReady() && writeLocked(&pieces);
}

uint64_t Recorder::now() {
    timespec moment{};
    clock_gettime(CLOCK_REALTIME, &moment);
    return static_cast<uint64_t>(moment.tv_sec) * 1'000'000'000 + static_cast<uint64_t>(moment.tv_nsec);
}

void Recorder::complete(PacketHeader* header, size_t nameSize) const {
    header->pid = mPid;
    header->uid = mUid;
    header->tid = threadId();
    header->nameSize = static_cast<uint32_t>(nameSize);
    header->headerSize = static_cast<uint32_t>(sizeof(*header) + header->objectCount * sizeof(PacketObject) +
                                               padded(nameSize));
}

void Recorder::record(uint64_t time, const Transaction& transaction) {
    const int error = errno;
    bool isIn = false;
    try {
        isIn = put(time, transaction);
    } catch (const std::bad_alloc&) {  // counts as no room
    }
    if (!isIn) mDropped.fetch_add(1, std::memory_order_relaxed);
    wakeWriter();
    errno = error;
}

/// @return false when there is no room in the ring.
bool Recorder::put(uint64_t time, const Transaction& transaction) {
    static constexpr uint8_t kZeros[3] = {};
    PacketHeader header = transaction.header;
    complete(&header, transaction.name.size());
    const std::vector<PacketObject> objects = packetObjects(transaction);
    const size_t packetSize = size_t{header.headerSize} + header.dataSize;
    PacketBegin begin(time, static_cast<uint32_t>(packetSize));
    PacketEnd end;
    begin.blockSize = static_cast<uint32_t>(sizeof(begin) + padded(packetSize) + sizeof(end));
    end.blockSize = begin.blockSize;
    end.flags = header.direction == Direction::kIn ? 1 : 2;
    const iovec pieces[] = {
        piece(&begin, sizeof(begin)),
        piece(&header, sizeof(header)),
        piece(objects.data(), objects.size() * sizeof(PacketObject)),
        piece(transaction.name.text(), header.nameSize),
        piece(kZeros, padded(header.nameSize) - header.nameSize),
        piece(transaction.data, header.dataSize),
        piece(kZeros, padded(packetSize) - packetSize),
        piece(&end, sizeof(end)),
    };
    return mRing.put(pieces, std::size(pieces));
}

/// Either the writer sees the record that was reserved before this load, or this sees that it sleeps.
void Recorder::wakeWriter() {
    if (mAsleep.load() && mAsleep.exchange(false)) sem_post(&mWake);
}

void Recorder::awaitRecords() {
    mAsleep.store(true);
    if (!mRing.isEmpty()) {
        mAsleep.store(false);
        return;
    }
    while (mAsleep.load())
        sem_wait(&mWake);
}

void Recorder::run() {
    for (;;) {
        awaitRecords();
        thrownBy([this] { flush(); });  // without memory it is tried again
        nanosleep(&kInterval, nullptr);
    }
}

void Recorder::flush() {
    const std::lock_guard<std::mutex> guard(mWriting);
    flushLocked();
    if (mDropped.load(std::memory_order_relaxed) != mDroppedTold) writeStatisticsLocked();
}

void Recorder::finish() {
    const std::lock_guard<std::mutex> guard(mWriting);
    flushLocked();
    writeStatisticsLocked();
}

void Recorder::flushLocked() {
    std::vector<iovec> pieces;
    pieces.reserve(kPieces + 2);  // nothing may be taken that cannot be released
    for (;;) {
        const Ring::Taken taken = mRing.take(&pieces, kPieces);
        if (taken.records == 0) return;
        if (writeLocked(&pieces)) mWritten += taken.records;
        mRing.release(taken.bytes);
        pieces.clear();
    }
}

void Recorder::writeStatisticsLocked() {
    mDroppedTold = mDropped.load(std::memory_order_relaxed);
    const std::string block = statistics(now(), mWritten, mDroppedTold);
    std::vector<iovec> pieces = {piece(block.data(), block.size())};
    writeLocked(&pieces);
}

/// A capture that cannot be written on is left as it is; the process goes on.
bool Recorder::writeLocked(std::vector<iovec>* pieces) {
    while (!mFailed && !pieces->empty()) {
        const ssize_t written = writev(mFile.get(), pieces->data(), static_cast<int>(pieces->size()));
        if (written >= 0) {
            advance(pieces, static_cast<size_t>(written));
        } else if (errno != EINTR) {
            mFailed = true;
            BINDER_LOGE("the capture of transactions ends here: %s", strerror(errno));
        }
    }
    return !mFailed;
}

}  // namespace android::runtime::trace
