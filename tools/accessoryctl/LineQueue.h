// LineQueue: lines on their way to the standard output, so that nobody who has one waits for its reader.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace accessory::ctl {

/// A bounded queue and the thread that writes from it. When the reader of the standard output is slow and the
/// queue is full, lines are dropped and counted; the count is written as soon as there is room again.
///
/// The lock guards the queue and the counts and is never held while writing.
class LineQueue {
  public:
    using DroppedLine = std::function<std::string(size_t count)>;

    /// @param most    how many lines may wait.
    /// @param dropped makes the line that tells how many were dropped, without a newline.
    LineQueue(size_t most, DroppedLine dropped);
    /// finish() must have been called.
    ~LineQueue();
    LineQueue(const LineQueue&) = delete;
    LineQueue& operator=(const LineQueue&) = delete;

    /// Any thread; never blocks. @param line without a newline.
    void push(std::string line);

    /// Whether the reader has gone away.
    bool isBroken() const;

    /// Waits until everything is written, at most so long.
    /// @return false when the reader did not take everything: the thread is then left behind, and the process
    /// must end with _exit().
    bool finish(double seconds);

  private:
    void writeAll();
    bool next(std::string* line);

    const size_t mMost;
    const DroppedLine mDropped;
    mutable std::mutex mLock;
    std::condition_variable mChanged;
    std::deque<std::string> mLines;
    size_t mDroppedCount = 0;
    bool mClosing = false;
    bool mEnded = false;  ///< the thread writes no more
    bool mBroken = false;
    std::thread mWriter;
};

}  // namespace accessory::ctl
