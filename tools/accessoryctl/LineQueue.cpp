#include "tools/accessoryctl/LineQueue.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <utility>

namespace accessory::ctl {

namespace {

/// @return false when the reader is gone.
bool writeToOutput(const std::string& text) {
    size_t done = 0;
    while (done < text.size()) {
        const ssize_t count = write(STDOUT_FILENO, text.data() + done, text.size() - done);
        if (count >= 0) {
            done += static_cast<size_t>(count);
        } else if (errno == EAGAIN) {
            pollfd output{STDOUT_FILENO, POLLOUT, 0};
            poll(&output, 1, -1);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

}  // namespace

LineQueue::LineQueue(size_t most, DroppedLine dropped)
    : mMost(most), mDropped(std::move(dropped)), mWriter([this] { writeAll(); }) {}

LineQueue::~LineQueue() {
    if (mWriter.joinable()) mWriter.detach();
}

void LineQueue::push(std::string line) {
    const std::lock_guard lock(mLock);
    if (mLines.size() >= mMost) {
        ++mDroppedCount;
        return;
    }
    mLines.push_back(std::move(line));
    mChanged.notify_all();
}

bool LineQueue::isBroken() const {
    const std::lock_guard lock(mLock);
    return mBroken;
}

bool LineQueue::finish(double seconds) {
    std::unique_lock lock(mLock);
    mClosing = true;
    mChanged.notify_all();
    if (!mChanged.wait_for(lock, std::chrono::duration<double>(seconds), [this] { return mEnded; }))
        return false;
    lock.unlock();
    mWriter.join();
    return true;
}

/// Waits for something to write. Lines come in their order, the count of those that were dropped behind the
/// ones that had found room.
bool LineQueue::next(std::string* line) {
    std::unique_lock lock(mLock);
    mChanged.wait(lock, [this] { return !mLines.empty() || mDroppedCount > 0 || mClosing; });
    if (!mLines.empty()) {
        *line = std::move(mLines.front());
        mLines.pop_front();
        return true;
    }
    if (mDroppedCount == 0) return false;
    *line = mDropped(std::exchange(mDroppedCount, 0));
    return true;
}

void LineQueue::writeAll() {
    std::string line;
    bool broken = false;
    while (!broken && next(&line))
        broken = !writeToOutput(line + "\n");
    const std::lock_guard lock(mLock);
    mBroken = broken;
    mEnded = true;
    mChanged.notify_all();
}

}  // namespace accessory::ctl
