// Capture: the transactions of one traced process, out of a file; and those of several in the order of their
// time.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/capture/Blocks.h"
#include "tools/capture/Packet.h"

namespace accessory::tools {

/// Where a packet lies.
struct PacketPlace {
    uint64_t time = 0;
    size_t capture = 0;  ///< number of the capture that it is in
    uint64_t offset = 0;
};

/// One file. Keeps of every packet no more than its place.
class Capture {
  public:
    /// Looks through the file. Damage further back leaves what is in front of it: see damage().
    /// @throws CaptureError for a file that is no capture at all.
    explicit Capture(const std::string& path);

    const std::string& path() const { return mReader.path(); }
    const std::string& program() const { return mProgram; }
    /// The digest of the writer's tables in hex; empty when the capture does not say.
    const std::string& tables() const { return mTables; }
    /// Packets for which the writer had no room.
    uint64_t dropped() const { return mDropped; }
    const std::optional<CaptureError>& damage() const { return mDamage; }

    const std::vector<PacketPlace>& places() const { return mPlaces; }
    /// @throws CaptureError when what is there is no longer what it was.
    Packet packetAt(const PacketPlace& place);

  private:
    void look(const Block& block);
    void lookAtSection(const Block& block);
    void lookAtInterface(const Block& block);
    void lookAtPacket(const Block& block);
    void lookAtStatistics(const Block& block);

    BlockReader mReader;
    std::string mProgram;
    std::string mTables;
    uint64_t mDropped = 0;
    bool mHasInterface = false;
    std::optional<CaptureError> mDamage;
    std::vector<PacketPlace> mPlaces;
};

/// Several captures as one.
class Captures {
  public:
    explicit Captures(const std::vector<std::string>& paths);

    const std::vector<std::unique_ptr<Capture>>& all() const { return mAll; }

    /// Every packet of all of them, the earliest first.
    void forEach(const std::function<void(const Capture&, const Packet&)>& use);

  private:
    std::vector<std::unique_ptr<Capture>> mAll;
};

}  // namespace accessory::tools
