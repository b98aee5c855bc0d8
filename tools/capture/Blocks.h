// BlockReader: the blocks of a pcapng file, one after the other, whatever is in it.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "tools/capture/Errors.h"

namespace accessory::tools {

/// The kinds of block that a capture is made of.
enum BlockType : uint32_t {
    kSectionHeader = 0x0a0d0d0a,
    kInterfaceDescription = 1,
    kInterfaceStatistics = 5,
    kEnhancedPacket = 6,
};

/// A block's content, without its type and sizes.
struct Block {
    uint32_t type = 0;
    uint64_t offset = 0;  ///< of the block in the file
    std::vector<uint8_t> body;

    /// The number at @p at; 0 behind the end.
    template <typename T>
    T number(size_t at) const {
        T value{};
        if (at <= body.size() && body.size() - at >= sizeof(value)) memcpy(&value, &body[at], sizeof(value));
        return value;
    }
};

/// An option of a block.
struct BlockOption {
    uint16_t code;
    std::string value;
};

/// The options of @p block from @p at on, as far as they are whole.
std::vector<BlockOption> optionsOf(const Block& block, size_t at);

/// Reads a file block by block. Takes no more memory than the largest block that a capture can have.
class BlockReader {
  public:
    /// @throws CaptureError when there is no such file, or it is none of pcapng in this machine's byte order.
    explicit BlockReader(const std::string& path);

    /// @return false at the end of the file.
    /// @throws CaptureError for what is no whole block.
    bool next(Block* block);

    /// Goes to a block whose place is known.
    void seek(uint64_t offset);

    const std::string& path() const { return mPath; }

  private:
    struct Closer {
        void operator()(FILE* file) const { fclose(file); }
    };

    size_t read(void* room, size_t size);
    void checkSection(uint32_t type, uint32_t size);
    [[noreturn]] void refuse(const std::string& what) const;

    const std::string mPath;
    std::unique_ptr<FILE, Closer> mFile;
    uint64_t mOffset = 0;
};

}  // namespace accessory::tools
