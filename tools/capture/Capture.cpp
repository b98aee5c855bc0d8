#include "tools/capture/Capture.h"

#include <algorithm>
#include <cstring>

#include "tables/Note.h"

namespace accessory::tools {

namespace {

enum OptionCode : uint16_t { kComment = 1, kUserApplication = 4, kDropped = 5, kTimeResolution = 9 };

constexpr uint16_t kLinkType = 147;
constexpr char kNanoseconds[] = {9};

// Where the parts of a packet's block begin.
constexpr size_t kInterface = 0;
constexpr size_t kTimeHigh = 4;
constexpr size_t kTimeLow = 8;
constexpr size_t kCapturedSize = 12;
constexpr size_t kPacket = 20;

constexpr size_t kStatisticsOptions = 12;

/// The bytes of the packet; none when its size is not true.
std::pair<const uint8_t*, size_t> packetIn(const Block& block) {
    const size_t size = block.number<uint32_t>(kCapturedSize);
    if (block.body.size() < kPacket || size > block.body.size() - kPacket) return {nullptr, 0};
    return {block.body.data() + kPacket, size};
}

uint64_t timeOf(const Block& block) {
    return uint64_t{block.number<uint32_t>(kTimeHigh)} << 32 | block.number<uint32_t>(kTimeLow);
}

std::string digestIn(const std::string& comment) {
    if (comment.rfind(wire::kTablesNote, 0) != 0) return {};
    return comment.substr(wire::kTablesNoteFront, wire::kDigestDigits);
}

}  // namespace

Capture::Capture(const std::string& path) : mReader(path) {
    Block block;
    try {
        while (mReader.next(&block))
            look(block);
    } catch (const CaptureError& error) {
        if (!mHasInterface) throw;
        mDamage.emplace(error);
    }
}

void Capture::look(const Block& block) {
    switch (block.type) {
        case kSectionHeader:
            return lookAtSection(block);
        case kInterfaceDescription:
            return lookAtInterface(block);
        case kInterfaceStatistics:
            return lookAtStatistics(block);
        case kEnhancedPacket:
            return lookAtPacket(block);
        default:
            return;  // what others may have added
    }
}

void Capture::lookAtPacket(const Block& block) {
    if (!mHasInterface || block.number<uint32_t>(kInterface) != 0)
        throw CaptureError(path(), block.offset, "a packet of an interface that is not described");
    Packet unused;
    const auto [bytes, size] = packetIn(block);
    const std::string wrong = parsePacket(bytes, size, &unused);
    if (!wrong.empty()) throw CaptureError(path(), block.offset, wrong);
    mPlaces.push_back({timeOf(block), 0, block.offset});
}

void Capture::lookAtStatistics(const Block& block) {
    for (const BlockOption& option : optionsOf(block, kStatisticsOptions)) {
        if (option.code != kDropped || option.value.size() != sizeof(mDropped)) continue;
        memcpy(&mDropped, option.value.data(), sizeof(mDropped));
    }
}

void Capture::lookAtSection(const Block& block) {
    constexpr size_t kOptions = 16;
    if (mHasInterface) throw CaptureError(path(), block.offset, "a second section");
    for (const BlockOption& option : optionsOf(block, kOptions)) {
        if (option.code == kComment) mTables = digestIn(option.value);
        if (option.code == kUserApplication) mProgram = option.value;
    }
}

void Capture::lookAtInterface(const Block& block) {
    constexpr size_t kOptions = 8;
    const auto type = block.number<uint16_t>(0);
    if (type != kLinkType) {
        throw CaptureError(path(), block.offset,
                           "packets of link type " + std::to_string(type) + ", not " +
                               std::to_string(kLinkType) + ": no capture of transactions");
    }
    const auto options = optionsOf(block, kOptions);
    const bool exact = std::any_of(options.begin(), options.end(), [](const BlockOption& option) {
        return option.code == kTimeResolution && option.value == std::string(kNanoseconds, 1);
    });
    if (!exact) throw CaptureError(path(), block.offset, "times that are not in nanoseconds");
    mHasInterface = true;
}

Packet Capture::packetAt(const PacketPlace& place) {
    Block block;
    Packet packet;
    mReader.seek(place.offset);
    const bool there = mReader.next(&block) && block.type == kEnhancedPacket;
    const auto [bytes, size] = packetIn(block);
    const std::string wrong = there ? parsePacket(bytes, size, &packet) : "the file has changed meanwhile";
    if (!wrong.empty()) throw CaptureError(path(), place.offset, wrong);
    packet.time = place.time;
    return packet;
}

Captures::Captures(const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        mAll.push_back(std::make_unique<Capture>(path));
}

void Captures::forEach(const std::function<void(const Capture&, const Packet&)>& use) {
    std::vector<PacketPlace> places;
    for (size_t i = 0; i < mAll.size(); ++i) {
        for (PacketPlace place : mAll[i]->places()) {
            place.capture = i;
            places.push_back(place);
        }
    }
    std::stable_sort(places.begin(), places.end(),
                     [](const PacketPlace& one, const PacketPlace& other) { return one.time < other.time; });
    for (const PacketPlace& place : places)
        use(*mAll[place.capture], mAll[place.capture]->packetAt(place));
}

}  // namespace accessory::tools
