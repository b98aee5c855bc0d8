#include "Reactor.h"

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

#include "../Log.h"
#include "../OutOfMemory.h"
#include "RuntimeThread.h"

namespace android::runtime {

namespace {

constexpr uint64_t kWakeUp = 0;

}  // namespace

bool Reactor::start() {
    const std::lock_guard<std::mutex> guard(mStarting);
    if (mRuns) return true;
    if (!open()) {
        BINDER_LOGE("no descriptors left to watch other processes with: %s", strerror(errno));
        return false;
    }
    return mRuns = startRuntimeThread("binder-reactor", [this] { run(); });
}

/// Under mLock, for the descriptors may be asked for before the thread runs.
bool Reactor::open() {
    const std::lock_guard<std::mutex> guard(mLock);
    if (!mEpoll.isOpen()) mEpoll = RuntimeFd::made([] { return epoll_create1(EPOLL_CLOEXEC); });
    if (!mEpoll.isOpen()) return false;
    if (mWakeUp.isOpen()) return true;
    RuntimeFd wakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    epoll_event event{EPOLLIN, {}};
    event.data.u64 = kWakeUp;
    if (!wakeUp.isOpen() || epoll_ctl(mEpoll.get(), EPOLL_CTL_ADD, wakeUp.get(), &event) != 0) return false;
    mWakeUp = std::move(wakeUp);
    return true;
}

uint64_t Reactor::watch(int fd, uint32_t events, Handler handler) {
    auto kept = std::make_shared<Handler>(std::move(handler));
    const std::lock_guard<std::mutex> guard(mLock);
    const uint64_t number = ++mLastNumber;
    const auto entry = mHandlers.emplace(number, std::move(kept)).first;
    epoll_event event{events, {}};
    event.data.u64 = number;
    if (epoll_ctl(mEpoll.get(), EPOLL_CTL_ADD, fd, &event) == 0) return number;
    const int error = errno;
    mHandlers.erase(entry);
    if (error == ENOMEM || error == ENOSPC) throw std::bad_alloc();
    return 0;
}

void Reactor::change(uint64_t number, int fd, uint32_t events) {
    epoll_event event{events, {}};
    event.data.u64 = number;
    epoll_ctl(mEpoll.get(), EPOLL_CTL_MOD, fd, &event);
}

void Reactor::forget(uint64_t number, int fd) {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mHandlers.erase(number) > 0) epoll_ctl(mEpoll.get(), EPOLL_CTL_DEL, fd, nullptr);
}

void Reactor::after(std::chrono::milliseconds delay, std::function<void()> action) {
    const std::lock_guard<std::mutex> guard(mLock);
    mTimers.emplace(Clock::now() + delay, std::move(action));
    eventfd_write(mWakeUp.get(), 1);
}

void Reactor::run() {
    for (;;) {
        epoll_event events[64];
        const int count = epoll_wait(mEpoll.get(), events, 64, untilNextTimer());
        for (int i = 0; i < count; ++i) {
            handle(events[i].data.u64, events[i].events);
        }
        runTimers();
    }
}

void Reactor::handle(uint64_t number, uint32_t events) {
    if (number == kWakeUp) {
        eventfd_t ignored = 0;
        eventfd_read(mWakeUp.get(), &ignored);
    } else if (const auto handler = handlerOf(number)) {
        unlessExhausted([&] {
            (*handler)(events);
            return NO_ERROR;
        });
    }
}

/// In milliseconds, rounded up; -1 when there is none.
int Reactor::untilNextTimer() {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mTimers.empty()) return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(mTimers.begin()->first - Clock::now());
    return static_cast<int>(std::max<int64_t>(0, left.count()));
}

void Reactor::runTimers() {
    for (;;) {
        std::function<void()> action;
        {
            const std::lock_guard<std::mutex> guard(mLock);
            if (mTimers.empty() || mTimers.begin()->first > Clock::now()) return;
            action = std::move(mTimers.begin()->second);
            mTimers.erase(mTimers.begin());
        }
        unlessExhausted([&] {
            action();
            return NO_ERROR;
        });
    }
}

std::shared_ptr<Reactor::Handler> Reactor::handlerOf(uint64_t number) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto found = mHandlers.find(number);
    return found != mHandlers.end() ? found->second : nullptr;
}

}  // namespace android::runtime
