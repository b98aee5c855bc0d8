#include "tests/tools/CaptureBytes.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace accessory::test {

namespace {

std::string padded(std::string bytes) {
    bytes.resize((bytes.size() + 3) / 4 * 4);
    return bytes;
}

std::string option(uint16_t code, const std::string& value) {
    return number(code, 2) + number(value.size(), 2) + padded(value);
}

std::string block(uint32_t type, const std::string& body) {
    const std::string size = number(body.size() + 12, 4);
    return number(type, 4) + size + body + size;
}

}  // namespace

std::string number(uint64_t value, size_t size) {
    std::string bytes;
    for (size_t i = 0; i < size; ++i)
        bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

std::string cells(const std::vector<int64_t>& values) {
    std::string bytes;
    for (const int64_t each : values)
        bytes += number(static_cast<uint64_t>(each), 4);
    return bytes;
}

std::string cstrBytes(const std::string& text) { return padded(text + '\0'); }

std::string tokenBytes(const std::string& descriptor) {
    std::string units;
    for (const char each : descriptor)
        units += number(static_cast<uint8_t>(each), 2);
    return cells({0, -1, static_cast<int64_t>(descriptor.size())}) + padded(units + number(0, 2));
}

std::string PacketBytes::bytes() const {
    const std::string name = padded(descriptor);
    std::string text = test::number(1, 1) + test::number(kind, 1) + test::number(direction, 1) +
                       test::number(0, 1) + test::number(72 + 16 * binders.size() + name.size(), 4) +
                       test::number(number, 8) +
                       cells({code, flags, status, static_cast<int64_t>(binders.size()),
                              static_cast<int64_t>(descriptor.size()), static_cast<int64_t>(data.size()), pid,
                              1000, peerPid, 1001, tid, 0}) +
                       test::number(object, 8);
    for (const uint32_t offset : binders)
        text += cells({offset, 1}) + test::number(0x1234, 8);
    return text + name + data;
}

std::string captureBeginning(const std::string& comment) {
    const std::string end = cells({0});
    return block(0x0a0d0d0a, cells({0x1a2b3c4d, 1, -1, -1}) + (comment.empty() ? "" : option(1, comment)) +
                                 option(4, "prog") + end) +
           block(1, cells({147, 0}) + option(2, "binder") + option(9, "\x09") + end);
}

std::string packetBlock(uint64_t time, const std::string& packet) {
    const auto size = static_cast<int64_t>(packet.size());
    return block(
        6, cells({0, static_cast<int64_t>(time >> 32), static_cast<int64_t>(time & 0xffffffff), size, size}) +
               padded(packet) + cells({0}));
}

std::string packetBlock(uint64_t time, const PacketBytes& packet) {
    return packetBlock(time, packet.bytes());
}

TemporaryFile::TemporaryFile(const std::string& content) : mPath(testing::TempDir() + "capture-XXXXXX") {
    const int file = mkstemp(mPath.data());
    EXPECT_GE(file, 0);
    close(file);
    set(content);
}

TemporaryFile::~TemporaryFile() { unlink(mPath.c_str()); }

void TemporaryFile::set(const std::string& content) const {
    std::ofstream(mPath, std::ios::binary | std::ios::trunc) << content;
}

PacketBytes launch() {
    PacketBytes packet;
    packet.code = 13;
    packet.descriptor = kManager;
    packet.data = tokenBytes(kManager) + cells({7}) + cstrBytes("com.example.maps") + cells({2});
    return packet;
}

PacketBytes launchReply() {
    PacketBytes packet = launch();
    packet.kind = 2;
    packet.direction = 2;
    packet.data = cells({0, -5});
    return packet;
}

}  // namespace accessory::test
