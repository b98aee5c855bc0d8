#include "Reactor.h"

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "../Log.h"
#include "RuntimeThread.h"

namespace android::runtime {

namespace {

constexpr uint64_t kWakeUp = 0;

}  // namespace

Reactor::Reactor() : mEpoll(epoll_create1(EPOLL_CLOEXEC)), mWakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    epoll_event event{EPOLLIN, {}};
    event.data.u64 = kWakeUp;
    if (epoll_ctl(mEpoll.get(), EPOLL_CTL_ADD, mWakeUp.get(), &event) != 0) {
        BINDER_LOGE("no descriptors left to watch other processes with: %s", strerror(errno));
        return;
    }
    startRuntimeThread("binder-reactor", [this] { run(); });
}

uint64_t Reactor::watch(int fd, uint32_t events, Handler handler) {
    const std::lock_guard<std::mutex> guard(mLock);
    epoll_event event{events, {}};
    event.data.u64 = ++mLastNumber;
    if (epoll_ctl(mEpoll.get(), EPOLL_CTL_ADD, fd, &event) != 0) return 0;
    mHandlers.emplace(mLastNumber, std::make_shared<Handler>(std::move(handler)));
    return mLastNumber;
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
            if (events[i].data.u64 == kWakeUp) {
                eventfd_t ignored = 0;
                eventfd_read(mWakeUp.get(), &ignored);
            } else if (const auto handler = handlerOf(events[i].data.u64)) {
                (*handler)(events[i].events);
            }
        }
        runTimers();
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
        action();
    }
}

std::shared_ptr<Reactor::Handler> Reactor::handlerOf(uint64_t number) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto found = mHandlers.find(number);
    return found != mHandlers.end() ? found->second : nullptr;
}

}  // namespace android::runtime
