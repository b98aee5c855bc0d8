// LineChannel: lines of text between a test and its child process, with deadlines instead of hangs.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <utility>

#include "tests/support/Eventually.h"

namespace accessory::test {

/// One end of a connected stream socket. For one thread at a time.
class LineChannel {
  public:
    /// @param descriptor the socket; owned from here on. -1: an end that is closed from the start.
    explicit LineChannel(int descriptor);
    ~LineChannel();

    LineChannel(const LineChannel&) = delete;
    LineChannel& operator=(const LineChannel&) = delete;

    /// Two descriptors that are connected with each other, close-on-exec.
    static std::pair<int, int> connectedPair();

    /// @param line without a newline.
    /// @return false when the other end is gone or does not read for kPatience.
    bool send(const std::string& line);

    /// @return the next line without its newline; none when it did not come in time, or the other end
    /// hung up, which ended() then tells.
    std::optional<std::string> receive(std::chrono::milliseconds patience);

    /// Waits, without a deadline, until the other end hung up; drops what still arrives.
    void drain();

    /// Whether the other end was seen to hang up.
    bool ended() const { return mEnded; }

    void close();

  private:
    std::optional<std::string> takeLine();
    bool readMore(int waitMilliseconds);

    int mDescriptor;
    std::string mPending;  ///< received, not yet taken
    bool mEnded = false;
};

}  // namespace accessory::test
