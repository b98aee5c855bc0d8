#include "simulator/device/Transfers.h"

#include <algorithm>

#include "simulator/Text.h"

namespace accessory::simulator {

namespace {

constexpr uint64_t kArtworkSize = 30'000;   // bytes
constexpr uint64_t kArtworkRate = 200'000;  // bytes per second

}  // namespace

Transfers::Transfers(Stage& stage, unsigned int id, const MediaLibrary& library)
    : Feature(stage, id), mLibrary(library) {}

void Transfers::offer(uint32_t transfer, uint64_t size, uint64_t rate) { setUp(transfer, kFile, size, rate); }

int Transfers::prepare(uint32_t transfer) {
    Job* job = find(transfer);
    if (job == nullptr) {
        if (!isArtwork(transfer)) return kNotFound;
        job = &setUp(transfer, kArtwork, kArtworkSize, kArtworkRate);
    }
    return job->transfer.prepare() ? kDone : kWrongState;
}

int Transfers::start(uint32_t transfer) {
    Job* const job = find(transfer);
    if (job == nullptr) return kNotFound;
    if (!job->transfer.start(mStage.now())) return kWrongState;
    tell(&Clients::fileTransferStart, transfer);
    job->finish.start(job->transfer.timeLeft(mStage.now()), [this, job, transfer] {
        if (job->transfer.advance(mStage.now())) tell(&Clients::fileTransferRecvFinish, transfer);
    });
    return kDone;
}

int Transfers::pause(uint32_t transfer) {
    Job* const job = find(transfer);
    if (job == nullptr) return kNotFound;
    if (!job->transfer.pause(mStage.now())) return kWrongState;
    job->finish.stop();
    tell(&Clients::fileTransferPause, transfer);
    return kDone;
}

int Transfers::cancel(uint32_t transfer) {
    Job* const job = find(transfer);
    if (job == nullptr) return kNotFound;
    if (!job->transfer.cancel()) return kWrongState;
    job->finish.stop();
    tell(&Clients::fileTransferCancel, transfer);
    return kDone;
}

int Transfers::registerChannel(uint32_t transfer) {
    Job* const job = find(transfer);
    if (job == nullptr) return kNotFound;
    if (job->channel) return kWrongState;
    job->channel = true;
    return kDone;
}

int Transfers::unregisterChannel(uint32_t transfer) {
    Job* const job = find(transfer);
    if (job == nullptr) return kNotFound;
    if (!job->channel) return kWrongState;
    job->channel = false;
    return kDone;
}

void Transfers::describe(std::string* out) const {
    for (const auto& [id, job] : mJobs)
        appendLine(out, "  transfer %u: %s, %llu of %llu bytes%s", id, nameOf(job->transfer.state()),
                   static_cast<unsigned long long>(job->transfer.received()),
                   static_cast<unsigned long long>(job->transfer.size()),
                   job->channel ? ", channel registered" : "");
}

Transfers::Job* Transfers::find(uint32_t transfer) {
    const auto found = mJobs.find(transfer);
    return found != mJobs.end() ? found->second.get() : nullptr;
}

bool Transfers::isArtwork(uint32_t transfer) const {
    const TrackList& tracks = mLibrary.tracks();
    return transfer != 0 && std::any_of(tracks.begin(), tracks.end(), [&](const TrackPointer& track) {
               return static_cast<uint32_t>(track->artworkTransferId) == transfer;
           });
}

Transfers::Job& Transfers::setUp(uint32_t transfer, Content content, uint64_t size, uint64_t rate) {
    std::unique_ptr<Job>& job = mJobs[transfer];
    job = std::make_unique<Job>(mStage);
    job->transfer = Transfer(size, rate);
    tell([id = mId, transfer, content, size](Clients& clients) {
        FileTransferSetup setup;
        setup.value1 = transfer;
        setup.value2 = content;
        setup.value3 = static_cast<uint32_t>(size);
        setup.value4 = static_cast<uint32_t>(size >> 32);
        clients.fileTransferSetup(id, &setup);
    });
    return *job;
}

}  // namespace accessory::simulator
