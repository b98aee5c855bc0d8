#include "tools/capture/Blocks.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace accessory::tools {

namespace {

constexpr uint32_t kByteOrderMagic = 0x1a2b3c4d;
constexpr uint32_t kForeignMagic = 0x4d3c2b1a;
constexpr uint32_t kFrame = 3 * sizeof(uint32_t);  // type, size, size again

/// Far beyond a packet that holds the largest parcel.
constexpr uint32_t kLargestBlock = 16 * 1024 * 1024;

}  // namespace

std::vector<BlockOption> optionsOf(const Block& block, size_t at) {
    constexpr size_t kFront = 2 * sizeof(uint16_t);
    std::vector<BlockOption> options;
    while (at + kFront <= block.body.size()) {
        const auto code = block.number<uint16_t>(at);
        const size_t size = block.number<uint16_t>(at + sizeof(uint16_t));
        at += kFront;
        if (code == 0 || size > block.body.size() - at) break;
        options.push_back({code, std::string(block.body.begin() + static_cast<ptrdiff_t>(at),
                                             block.body.begin() + static_cast<ptrdiff_t>(at + size))});
        at += (size + 3) & ~size_t{3};
    }
    return options;
}

BlockReader::BlockReader(const std::string& path) : mPath(path), mFile(fopen(path.c_str(), "rbe")) {
    if (mFile == nullptr) throw CaptureError(mPath, strerror(errno));
    Block first;
    if (!next(&first)) refuse("the file is empty");
    if (first.type != kSectionHeader) refuse("this is no pcapng file");
    seek(0);
}

void BlockReader::refuse(const std::string& what) const { throw CaptureError(mPath, mOffset, what); }

void BlockReader::seek(uint64_t offset) {
    mOffset = offset;
    if (fseeko(mFile.get(), static_cast<off_t>(offset), SEEK_SET) != 0) refuse(strerror(errno));
}

size_t BlockReader::read(void* room, size_t size) {
    const size_t got = fread(room, 1, size, mFile.get());
    if (got < size && ferror(mFile.get()) != 0) refuse("cannot be read");
    return got;
}

/// A section says in which byte order it was written; that comes before any other number counts.
void BlockReader::checkSection(uint32_t type, uint32_t size) {
    if (mOffset == 0 && type != kSectionHeader) refuse("this is no pcapng file");
    if (type != kSectionHeader) return;
    uint32_t magic = 0;
    if (read(&magic, sizeof(magic)) < sizeof(magic)) refuse("the file ends in the middle of a block");
    if (magic == kForeignMagic) refuse("written on a machine of the other byte order");
    if (magic != kByteOrderMagic) refuse("this is no pcapng file");
    if (size < kFrame + sizeof(magic)) refuse("a block of " + std::to_string(size) + " bytes");
    fseeko(mFile.get(), -static_cast<off_t>(sizeof(magic)), SEEK_CUR);
}

bool BlockReader::next(Block* block) {
    uint32_t front[2] = {};
    const size_t got = read(front, sizeof(front));
    if (got == 0) return false;
    if (got < sizeof(front)) refuse("the file ends in the middle of a block");
    const auto [type, size] = front;
    checkSection(type, size);
    if (size < kFrame || size % 4 != 0 || size > kLargestBlock) {
        refuse("a block of " + std::to_string(size) + " bytes");
    }
    block->type = type;
    block->offset = mOffset;
    block->body.resize(size - kFrame);
    uint32_t again = 0;
    if (read(block->body.data(), block->body.size()) < block->body.size() ||
        read(&again, sizeof(again)) < sizeof(again)) {
        refuse("the file ends in the middle of a block");
    }
    if (again != size) refuse("a block ends with another size than it begins with");
    mOffset += size;
    return true;
}

}  // namespace accessory::tools
