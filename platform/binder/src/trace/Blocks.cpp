#include "Blocks.h"

#include <cstring>

namespace android::runtime::trace {

namespace {

constexpr uint32_t kSectionHeader = 0x0a0d0d0a;
constexpr uint32_t kByteOrderMagic = 0x1a2b3c4d;
constexpr uint32_t kInterfaceDescription = 1;
constexpr uint32_t kInterfaceStatistics = 5;

enum Option : uint16_t {
    kEndOfOptions = 0,
    kComment = 1,
    kInterfaceName = 2,
    kUserApplication = 4,
    kReceived = 4,
    kDropped = 5,
    kTimeResolution = 9,
};

constexpr uint8_t kNanoseconds = 9;

/// One block in the making.
class Block {
  public:
    explicit Block(uint32_t type) {
        add(type);
        add(uint32_t{0});
    }

    template <typename T>
    void add(T value) {
        mBytes.append(reinterpret_cast<const char*>(&value), sizeof(value));
    }

    void option(Option code, const void* value, size_t size) {
        add<uint16_t>(code);
        add(static_cast<uint16_t>(size));
        mBytes.append(static_cast<const char*>(value), size);
        mBytes.resize((mBytes.size() + 3) & ~size_t{3});
    }
    void option(Option code, const std::string& text) { option(code, text.data(), text.size()); }

    std::string finish() {
        option(kEndOfOptions, nullptr, 0);
        const auto size = static_cast<uint32_t>(mBytes.size() + sizeof(uint32_t));
        add(size);
        std::memcpy(&mBytes[sizeof(uint32_t)], &size, sizeof(size));
        return std::move(mBytes);
    }

  private:
    std::string mBytes;
};

void addTime(Block* block, uint64_t time) {
    block->add(static_cast<uint32_t>(time >> 32));
    block->add(static_cast<uint32_t>(time));
}

/// As much of @p text as an option carries.
std::string fitting(const std::string& text) { return text.substr(0, 1024); }

std::string section(const std::string& program, const std::string& note) {
    constexpr uint16_t kMajor = 1;
    constexpr uint16_t kMinor = 0;
    constexpr int64_t kUnknownLength = -1;
    Block block(kSectionHeader);
    block.add(kByteOrderMagic);
    block.add(kMajor);
    block.add(kMinor);
    block.add(kUnknownLength);
    if (!note.empty()) block.option(kComment, fitting(note));
    block.option(kUserApplication, fitting(program));
    return block.finish();
}

std::string interface() {
    constexpr uint16_t kReserved = 0;
    constexpr uint32_t kNoLimit = 0;
    Block block(kInterfaceDescription);
    block.add(kLinkType);
    block.add(kReserved);
    block.add(kNoLimit);
    block.option(kInterfaceName, "binder");
    block.option(kTimeResolution, &kNanoseconds, sizeof(kNanoseconds));
    return block.finish();
}

}  // namespace

PacketBegin::PacketBegin(uint64_t time, uint32_t packetSize)
    : timeHigh(static_cast<uint32_t>(time >> 32)),
      timeLow(static_cast<uint32_t>(time)),
      capturedSize(packetSize),
      originalSize(packetSize) {}

std::string fileBeginning(const std::string& program, const std::string& note) {
    return section(program, note) + interface();
}

std::string statistics(uint64_t time, uint64_t written, uint64_t dropped) {
    constexpr uint32_t kTheOnlyInterface = 0;
    Block block(kInterfaceStatistics);
    block.add(kTheOnlyInterface);
    addTime(&block, time);
    block.option(kReceived, &written, sizeof(written));
    block.option(kDropped, &dropped, sizeof(dropped));
    return block.finish();
}

}  // namespace android::runtime::trace
