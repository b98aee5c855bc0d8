// Transfers: files that the device sends: those that it offers, and the artwork of its tracks.
#pragma once

#include <map>
#include <memory>

#include "simulator/device/Feature.h"
#include "simulator/engine/Timer.h"
#include "simulator/model/MediaLibrary.h"
#include "simulator/model/Transfer.h"

namespace accessory::simulator {

class Transfers : public Feature {
  public:
    /// FileTransferSetup::value2.
    enum Content : uint32_t { kFile = 0, kArtwork = 1 };

    Transfers(Stage& stage, unsigned int id, const MediaLibrary& library);

    void reset() { mJobs.clear(); }

    /// The device has a file for the head unit: fileTransferSetup(). @param size in bytes. @param rate in
    /// bytes per second.
    void offer(uint32_t transfer, uint64_t size, uint64_t rate);

    /// Gets a transfer ready; one of artwork that was not offered is set up first.
    int prepare(uint32_t transfer);
    int start(uint32_t transfer);
    int pause(uint32_t transfer);
    int cancel(uint32_t transfer);

    int registerChannel(uint32_t transfer);
    int unregisterChannel(uint32_t transfer);

    void describe(std::string* out) const;

  private:
    struct Job {
        explicit Job(Stage& stage) : finish(stage) {}
        Transfer transfer;
        bool channel = false;
        Timer finish;
    };

    Job* find(uint32_t transfer);
    bool isArtwork(uint32_t transfer) const;
    Job& setUp(uint32_t transfer, Content content, uint64_t size, uint64_t rate);

    const MediaLibrary& mLibrary;
    std::map<uint32_t, std::unique_ptr<Job>> mJobs;
};

}  // namespace accessory::simulator
