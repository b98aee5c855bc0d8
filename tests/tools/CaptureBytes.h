// Captures spelt by hand, and files that hold them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace accessory::test {

/// One packet, of which a test tells only what matters to it.
struct PacketBytes {
    uint8_t kind = 1;       ///< 1: request, 2: reply, 3: one-way
    uint8_t direction = 1;  ///< 1: out, 2: in
    uint64_t number = 1;
    uint32_t code = 0;
    std::string descriptor;
    std::string data;
    int32_t status = 0;
    int32_t pid = 100;
    int32_t peerPid = 200;
    int32_t tid = 101;
    uint32_t flags = 0;
    uint64_t object = 0xabc;
    std::vector<uint32_t> binders;  ///< offsets of binders in the data; each has the identity 0x1234

    std::string bytes() const;
};

/// A number in little endian, as on the machines this runs on.
std::string number(uint64_t value, size_t size);
/// int32 values.
std::string cells(const std::vector<int64_t>& values);
/// The characters and a NUL, filled up to whole cells.
std::string cstrBytes(const std::string& text);
/// What every request begins with.
std::string tokenBytes(const std::string& descriptor);

/// Section and interface. @param comment none when empty.
std::string captureBeginning(const std::string& comment = {});
/// A packet's block. @param time in nanoseconds.
std::string packetBlock(uint64_t time, const std::string& packet);
std::string packetBlock(uint64_t time, const PacketBytes& packet);

/// A file with that content, as long as it lives.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::string& content = {});
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& path() const { return mPath; }
    void set(const std::string& content) const;

  private:
    std::string mPath;
};

inline constexpr char kManager[] = "accessory.AppleiAP2Manager";

/// launchAPP(7, "com.example.maps", 2), as its caller sends it, and the answer -5.
PacketBytes launch();
PacketBytes launchReply();

}  // namespace accessory::test
