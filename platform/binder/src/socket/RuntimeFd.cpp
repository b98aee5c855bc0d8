#include "RuntimeFd.h"

#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <mutex>
#include <vector>

#include "../OutOfMemory.h"

namespace android::runtime {

namespace {

std::atomic<bool> gForkedChild{false};

/// The open descriptors. mLock is a leaf, and held across fork() so that the child finds the list whole.
class FdList {
  public:
    static FdList& instance() {
        static auto* const list = patiently([] { return new FdList(); });
        return *list;
    }

    std::unique_lock<std::mutex> hold() { return std::unique_lock<std::mutex>(mLock); }

    /// The caller holds the list.
    void add(int fd) {
        const auto size = static_cast<size_t>(fd) + 1;
        if (size > mOpen.size()) patiently([&] { mOpen.resize(size); });
        mOpen[static_cast<size_t>(fd)] = true;
    }

    /// Closes under the lock: a fork in between would either see the number in use or the descriptor gone.
    void close(int fd) {
        const std::lock_guard<std::mutex> guard(mLock);
        mOpen[static_cast<size_t>(fd)] = false;
        ::close(fd);
    }

  private:
    FdList() { pthread_atfork(beforeFork, afterForkInParent, afterForkInChild); }

    static void beforeFork() { instance().mLock.lock(); }
    static void afterForkInParent() { instance().mLock.unlock(); }
    static void afterForkInChild() {
        FdList& list = instance();
        for (size_t fd = 0; fd < list.mOpen.size(); ++fd) {
            if (list.mOpen[fd]) ::close(static_cast<int>(fd));
        }
        list.mOpen.assign(list.mOpen.size(), false);
        gForkedChild = true;
        list.mLock.unlock();
    }

    std::mutex mLock;
    std::vector<bool> mOpen;  // by number
};

}  // namespace

RuntimeFd::RuntimeFd(int fd) : mFd(fd) {
    if (fd < 0) return;
    const auto guard = holdForks();
    enlist(fd);
}

std::unique_lock<std::mutex> RuntimeFd::holdForks() { return FdList::instance().hold(); }

void RuntimeFd::enlist(int fd) { FdList::instance().add(fd); }

RuntimeFd& RuntimeFd::operator=(RuntimeFd&& other) noexcept {
    if (this != &other) {
        reset();
        mFd = std::exchange(other.mFd, -1);
    }
    return *this;
}

void RuntimeFd::reset() {
    // In a forked child the number may already belong to something else.
    if (mFd >= 0 && !isForkedChild()) FdList::instance().close(mFd);
    mFd = -1;
}

bool RuntimeFd::isForkedChild() { return gForkedChild; }

void RuntimeFd::noticeForks() { FdList::instance(); }

}  // namespace android::runtime
