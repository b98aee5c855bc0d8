// The small objects of the runtime's tests: one whose calls run a function, one that waits for deaths, and
// one call with its request and its reply.
#pragma once

#include <binder/Binder.h>
#include <binder/Parcel.h>
#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <utility>

#include "tests/support/Eventually.h"

namespace accessory::test {

/// An object whose calls run @p body, on whatever thread they arrive.
class FunctionObject : public android::BBinder {
  public:
    using Body = std::function<android::status_t(uint32_t code, const android::Parcel& data,
                                                 android::Parcel* reply, uint32_t flags)>;

    explicit FunctionObject(Body body) : mBody(std::move(body)) {}

  protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override {
        return mBody(code, data, reply, flags);
    }

  private:
    const Body mBody;
};

/// Counts the deaths it is told of and does what it was given to do at each.
class Recipient : public android::IBinder::DeathRecipient {
  public:
    explicit Recipient(std::function<void()> reaction = [] {}) : mReaction(std::move(reaction)) {}

    void binderDied(const android::wp<android::IBinder>& who) override {
        mWho = who.unsafe_get();
        ++mNotices;
        mReaction();
    }

    int notices() const { return mNotices; }
    /// The last object that died; for comparing addresses only.
    const void* who() const { return mWho; }

    testing::AssertionResult isTold() const {
        return eventually([this] { return mNotices > 0; });
    }

  private:
    const std::function<void()> mReaction;
    std::atomic<const void*> mWho{nullptr};
    std::atomic<int> mNotices{0};
};

/// Holds threads up until it is opened.
class Gate {
  public:
    /// @return false when it was not opened within the patience of a test.
    bool pass() {
        std::unique_lock lock(mLock);
        ++mWaiting;
        const bool opened = mOpened.wait_for(lock, kPatience, [this] { return mOpen; });
        --mWaiting;
        return opened;
    }

    void open() {
        const std::lock_guard lock(mLock);
        mOpen = true;
        mOpened.notify_all();
    }

    int waiting() {
        const std::lock_guard lock(mLock);
        return mWaiting;
    }

  private:
    std::mutex mLock;
    std::condition_variable mOpened;
    int mWaiting = 0;
    bool mOpen = false;
};

/// One call: Call call(object, kCode); call << 5; call.run(); call.reply.readInt32().
struct Call {
    Call(const android::sp<android::IBinder>& object, uint32_t code) : target(object), code(code) {}

    Call& operator<<(int32_t value) {
        request.writeInt32(value);
        return *this;
    }
    Call& operator<<(const android::sp<android::IBinder>& object) {
        request.writeStrongBinder(object);
        return *this;
    }

    android::status_t run(uint32_t flags = 0) { return target->transact(code, request, &reply, flags); }
    android::status_t send() {
        return target->transact(code, request, nullptr, android::IBinder::FLAG_ONEWAY);
    }

    android::sp<android::IBinder> target;
    uint32_t code;
    android::Parcel request;
    android::Parcel reply;
};

/// Calls @p object with @p arguments and fails the test unless that goes well.
/// @return the first word of the answer.
template <typename... Arguments>
int32_t ask(const android::sp<android::IBinder>& object, uint32_t code, const Arguments&... arguments) {
    Call call(object, code);
    ((call << arguments), ...);
    EXPECT_EQ(android::NO_ERROR, call.run()) << "call " << code;
    return call.reply.readInt32();
}

/// As ask(), for an answer that is an object.
template <typename... Arguments>
android::sp<android::IBinder> askForObject(const android::sp<android::IBinder>& object, uint32_t code,
                                           const Arguments&... arguments) {
    Call call(object, code);
    ((call << arguments), ...);
    EXPECT_EQ(android::NO_ERROR, call.run()) << "call " << code;
    return call.reply.readStrongBinder();
}

/// Interrupts this process's system calls all the time: thousands of signals a second, none of which lets an
/// interrupted call go on by itself.
class Alarms {
  public:
    Alarms();
    ~Alarms();
    Alarms(const Alarms&) = delete;
    Alarms& operator=(const Alarms&) = delete;
};

/// How many of those signals have come so far.
int alarmCount();

/// How many descriptors this process has open.
int openDescriptors();

/// Lets this process open only @p count descriptors more; -1 takes that back.
bool leaveDescriptors(int count);

}  // namespace accessory::test
