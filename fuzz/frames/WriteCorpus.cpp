// Writes frames of every kind as files: WriteCorpus <folder>. Stream.h tells how an input begins.
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "FlatObject.h"
#include "socket/Frame.h"

namespace {

using namespace android::runtime;

template <typename T>
std::string bytesOf(const T& value) {
    return {reinterpret_cast<const char*>(&value), sizeof(value)};
}

/// A text with its length in front, as a String8, then a number.
const std::string kText("\x05\0\0\0hello\0\0\0\x2a\0\0\0", 16);
const std::string kObject(sizeof(flat_binder_object), '\0');

std::string frame(FrameHeader header, const std::string& data, const ObjectRecord* record = nullptr) {
    header.dataSize = static_cast<uint32_t>(data.size());
    header.objectCount = record != nullptr ? 1 : 0;
    header.target.low = 1;
    return bytesOf(header) + data + (record != nullptr ? bytesOf(*record) : "");
}

FrameHeader header(FrameKind kind, uint8_t descriptors = 0, uint8_t sharing = 0) {
    FrameHeader made;
    made.kind = kind;
    made.descriptorCount = descriptors;
    made.sharing = sharing;
    return made;
}

ObjectRecord record(ObjectKind kind, uint32_t offset) {
    ObjectRecord made;
    made.kind = kind;
    made.offset = offset;
    return made;
}

class Corpus {
  public:
    explicit Corpus(std::filesystem::path folder) : mFolder(std::move(folder)) {
        std::filesystem::create_directories(mFolder);
    }
    /// @param how @param piece the two bytes before the frames.
    void add(char how, char piece, const std::string& frames) {
        std::ofstream(mFolder / std::to_string(mCount++), std::ios::binary) << how << piece << frames;
    }

  private:
    const std::filesystem::path mFolder;
    int mCount = 0;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return EXIT_FAILURE;
    Corpus corpus(argv[1]);
    const ObjectRecord binder = record(ObjectKind::kBinder, 16);
    const ObjectRecord descriptor = record(ObjectKind::kDescriptor, 16);
    const std::string call = frame(header(FrameKind::kCall), kText);
    const std::string oneway = frame(header(FrameKind::kOneway), kText);
    corpus.add(0, 0, call);
    corpus.add(0, 7, call);
    corpus.add(0, 0, frame(header(FrameKind::kReply), ""));
    corpus.add(1, 0, oneway + oneway);
    corpus.add(1, 40, oneway + frame(header(FrameKind::kOneway), kText + kObject, &binder));
    corpus.add(0, 0, frame(header(FrameKind::kCall), kText + kObject, &binder));
    corpus.add(2, 0, frame(header(FrameKind::kCall, 1), kText + kObject, &descriptor));
    const std::string offer = frame(header(FrameKind::kCall, 0, kOffersBlock), kText);
    const std::string inBlock = frame(header(FrameKind::kCall, 0, kDataInBlock), kText);
    corpus.add(2 | 8, static_cast<char>(offer.size()), offer + call);
    corpus.add(2 | 8, static_cast<char>(offer.size()), offer + inBlock.substr(0, sizeof(FrameHeader)));
    return EXIT_SUCCESS;
}
