#include "simulator/engine/EventLoop.h"

namespace accessory::simulator {

EventLoop::EventLoop(double speed) : mSpeed(speed), mJumping(speed == 0) {}

EventLoop::~EventLoop() { stop(); }

milliseconds EventLoop::now() const {
    const std::lock_guard lock(mLock);
    return mClock.now();
}

void EventLoop::post(milliseconds due, Action action) {
    const std::lock_guard lock(mLock);
    mQueue.emplace(Place(due, mCount++), std::move(action));
    mChanged.notify_all();
}

void EventLoop::jumpUntil(milliseconds end) {
    if (mSpeed != 0) return;
    const std::lock_guard lock(mLock);
    mClock.setSpeed(0);
    mJumping = true;
    mJumpEnd = end;
    mChanged.notify_all();
}

void EventLoop::start() {
    {
        const std::lock_guard lock(mLock);
        if (!mJumping) mClock.setSpeed(livingSpeed());
    }
    mThread = std::thread([this] { run(); });
}

void EventLoop::finish() {
    const std::lock_guard lock(mLock);
    mStopping = true;
    mChanged.notify_all();
}

void EventLoop::stop() {
    finish();
    if (mThread.joinable()) mThread.join();
}

void EventLoop::run() {
    std::unique_lock lock(mLock);
    while (Action action = next(lock)) {
        lock.unlock();
        action();
        lock.lock();
    }
}

EventLoop::Action EventLoop::next(std::unique_lock<std::mutex>& lock) {
    while (!mStopping) {
        if (mQueue.empty()) {
            mChanged.wait(lock);
        } else if (const milliseconds due = mQueue.begin()->first.first; isDue(due)) {
            return std::move(mQueue.extract(mQueue.begin()).mapped());
        } else {
            mChanged.wait_until(lock, mClock.realTimeOf(due));
        }
    }
    return {};
}

bool EventLoop::isDue(milliseconds due) {
    if (!mJumping) return due <= mClock.now();
    if (due <= mJumpEnd) {
        mClock.advanceTo(due);
        return true;
    }
    mJumping = false;
    mClock.setSpeed(livingSpeed());
    return false;
}

}  // namespace accessory::simulator
