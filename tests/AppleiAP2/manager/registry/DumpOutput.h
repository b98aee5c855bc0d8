// DumpOutput: a descriptor for dumps, and what was written to it, write by write.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utils/String16.h>
#include <utils/Vector.h>

#include <initializer_list>
#include <optional>
#include <string>

namespace accessory::test {

inline android::Vector<android::String16> dumpArguments(std::initializer_list<const char*> texts) {
    android::Vector<android::String16> args;
    for (const char* text : texts)
        args.add(android::String16(text));
    return args;
}

/// Keeps each write apart from the next; reading never waits.
class DumpOutput {
  public:
    DumpOutput() {
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, mEnds), 0);
    }
    ~DumpOutput() {
        close(mEnds[0]);
        close(mEnds[1]);
    }
    DumpOutput(const DumpOutput&) = delete;
    DumpOutput& operator=(const DumpOutput&) = delete;

    int in() const { return mEnds[0]; }

    /// What the next write wrote; none when there was none.
    std::optional<std::string> next() const {
        std::string text(1 << 16, '\0');
        const ssize_t length = read(mEnds[1], text.data(), text.size());
        if (length < 0) return std::nullopt;
        text.resize(static_cast<size_t>(length));
        return text;
    }

    /// The text of the only write.
    std::string only() const {
        std::string text = next().value_or("nothing written");
        EXPECT_EQ(next(), std::nullopt) << "a second write";
        return text;
    }

  private:
    int mEnds[2]{-1, -1};
};

/// A pipe that takes what fits into it and refuses the rest.
class FullPipe {
  public:
    /// @param room how many bytes still fit.
    explicit FullPipe(size_t room) {
        EXPECT_EQ(pipe2(mEnds, O_NONBLOCK | O_CLOEXEC), 0);
        const std::string filling(static_cast<size_t>(fcntl(mEnds[0], F_GETPIPE_SZ)) - room, 'x');
        EXPECT_EQ(write(mEnds[1], filling.data(), filling.size()), static_cast<ssize_t>(filling.size()));
    }
    ~FullPipe() {
        close(mEnds[0]);
        close(mEnds[1]);
    }
    FullPipe(const FullPipe&) = delete;
    FullPipe& operator=(const FullPipe&) = delete;

    int in() const { return mEnds[1]; }

  private:
    int mEnds[2]{-1, -1};
};

}  // namespace accessory::test
