#include "tests/platform/TestService.h"

#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <mutex>
#include <stdexcept>
#include <unordered_map>
#include <vector>

#include "tests/platform/TestObjects.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

void writeCaller(Parcel* reply) {
    const IPCThreadState& thread = *IPCThreadState::self();
    reply->writeInt32(thread.getCallingPid());
    reply->writeInt32(static_cast<int32_t>(thread.getCallingUid()));
    reply->writeInt32(getpid());
}

/// An object that is counted as long as it lives.
class Made : public BBinder {
  public:
    explicit Made(std::atomic<int>& count) : mCount(count) { ++mCount; }
    ~Made() override { --mCount; }

  protected:
    status_t onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) override {
        if (code > LAST_CALL_TRANSACTION) return BBinder::onTransact(code, data, reply, flags);
        writeCaller(reply);
        return NO_ERROR;
    }

  private:
    std::atomic<int>& mCount;
};

/// What kRecord noted down. Notices when two notes are taken at the same time.
class Notes {
  public:
    void take(int32_t sender, int32_t number) {
        if (mTaking.exchange(true)) mOverlapped = true;
        {
            const std::lock_guard lock(mLock);
            mWords.push_back(sender);
            mWords.push_back(number);
        }
        mTaking = false;
    }

    void writeTo(Parcel* reply) {
        const std::lock_guard lock(mLock);
        reply->writeInt32(mOverlapped ? 1 : 0);
        reply->writeInt32(static_cast<int32_t>(mWords.size() / 2));
        for (const int32_t word : mWords)
            reply->writeInt32(word);
    }

  private:
    std::atomic<bool> mTaking{false};
    std::atomic<bool> mOverlapped{false};
    std::mutex mLock;
    std::vector<int32_t> mWords;
};

/// See ServiceCall for what each call does.
class TestService : public BBinder {
  public:
    const String16& getInterfaceDescriptor() const override {
        static const auto* const descriptor = new String16("test.Service");
        return *descriptor;
    }

    status_t dump(int fd, const Vector<String16>& args) override {
        std::string text = "dump";
        for (const String16& arg : args)
            text += std::string(" ") + String8(arg).string();
        return write(fd, text.data(), text.size()) == static_cast<ssize_t>(text.size()) ? NO_ERROR : -errno;
    }

  protected:
    status_t onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) override {
        using Handler = status_t (TestService::*)(const Parcel&, Parcel*);
        // Never destroyed: other threads still serve calls while one ends the process.
        static const auto& handlers = *new const std::unordered_map<uint32_t, Handler>{
            {kEcho, &TestService::echo},
            {kAnswer, &TestService::answer},
            {kThrow, &TestService::throwIt},
            {kCaller, &TestService::caller},
            {kIdentity, &TestService::identity},
            {kCallerAround, &TestService::callerAround},
            {kWait, &TestService::wait},
            {kOpenGate, &TestService::openGate},
            {kWaiting, &TestService::waiting},
            {kMake, &TestService::make},
            {kMade, &TestService::made},
            {kKeep, &TestService::keep},
            {kKept, &TestService::kept},
            {kDrop, &TestService::drop},
            {kPassKept, &TestService::passKept},
            {kAskKept, &TestService::askKept},
            {kRelay, &TestService::relay},
            {kCountDown, &TestService::countDown},
            {kRecord, &TestService::record},
            {kRecorded, &TestService::recorded},
            {kRecordFor, &TestService::recordFor},
            {kReplyOf, &TestService::replyOf},
            {kDescriptors, &TestService::descriptors},
            {kReadAll, &TestService::readAll},
            {kPipes, &TestService::pipes},
            {kLeaveFree, &TestService::leaveFree},
            {kAlarms, &TestService::alarms},
            {kEnd, &TestService::end},
            {kForkSleeper, &TestService::forkSleeper},
        };
        const auto handler = handlers.find(code);
        if (handler == handlers.end()) return BBinder::onTransact(code, data, reply, flags);
        return (this->*handler->second)(data, reply);
    }

  private:
    status_t echo(const Parcel& data, Parcel* reply) { return reply->appendFrom(&data, 0, data.dataSize()); }

    status_t answer(const Parcel& data, Parcel* reply) {
        reply->writeInt32(42);
        return data.readInt32();
    }

    status_t throwIt(const Parcel& data, Parcel* /*reply*/) {
        if (data.readInt32() == 0) throw std::runtime_error("on purpose");
        throw 1;
    }

    status_t caller(const Parcel& /*data*/, Parcel* reply) {
        writeCaller(reply);
        return NO_ERROR;
    }

    status_t identity(const Parcel& /*data*/, Parcel* reply) {
        IPCThreadState& thread = *IPCThreadState::self();
        const int64_t token = thread.clearCallingIdentity();
        reply->writeInt32(thread.getCallingPid());
        thread.restoreCallingIdentity(token);
        return reply->writeInt32(thread.getCallingPid());
    }

    status_t callerAround(const Parcel& data, Parcel* reply) {
        reply->writeInt32(IPCThreadState::self()->getCallingPid());
        const sp<IBinder> caller = data.readStrongBinder();
        if (caller == nullptr) return BAD_VALUE;
        const status_t status = Call(caller, kEcho).run();
        reply->writeInt32(IPCThreadState::self()->getCallingPid());
        return status;
    }

    status_t wait(const Parcel& /*data*/, Parcel* reply) { return reply->writeInt32(mGate.pass() ? 1 : 0); }

    status_t openGate(const Parcel& /*data*/, Parcel* /*reply*/) {
        mGate.open();
        return NO_ERROR;
    }

    status_t waiting(const Parcel& /*data*/, Parcel* reply) { return reply->writeInt32(mGate.waiting()); }

    status_t make(const Parcel& /*data*/, Parcel* reply) { return reply->writeStrongBinder(new Made(mMade)); }

    status_t made(const Parcel& /*data*/, Parcel* reply) { return reply->writeInt32(mMade); }

    status_t keep(const Parcel& data, Parcel* /*reply*/) {
        setKept(data.readStrongBinder());
        return NO_ERROR;
    }

    status_t kept(const Parcel& /*data*/, Parcel* reply) { return reply->writeStrongBinder(kept()); }

    status_t drop(const Parcel& /*data*/, Parcel* /*reply*/) {
        setKept(nullptr);
        return NO_ERROR;
    }

    status_t passKept(const Parcel& data, Parcel* /*reply*/) {
        Call call(data.readStrongBinder(), kKeep);
        call << kept();
        return call.send();
    }

    status_t askKept(const Parcel& data, Parcel* reply) {
        Call call(kept(), static_cast<uint32_t>(data.readInt32()));
        reply->writeInt32(call.run());
        return reply->appendFrom(&call.reply, 0, call.reply.dataSize());
    }

    status_t relay(const Parcel& data, Parcel* /*reply*/) {
        Call from(data.readStrongBinder(), kMake);
        Call to(data.readStrongBinder(), kKeep);
        const status_t status = from.run();
        if (status != NO_ERROR) return status;
        to << from.reply.readStrongBinder();
        return to.run();
    }

    status_t countDown(const Parcel& data, Parcel* reply) {
        const sp<IBinder> other = data.readStrongBinder();
        const int32_t depth = data.readInt32();
        if (depth == 0) return reply->writeInt32(0);
        Call call(other, kCountDown);
        call << sp<IBinder>(this) << depth - 1;
        const status_t status = call.run();
        if (status != NO_ERROR) return status;
        return reply->writeInt32(call.reply.readInt32() + 1);
    }

    status_t record(const Parcel& data, Parcel* /*reply*/) {
        const int32_t sender = data.readInt32();
        mNotes.take(sender != 0 ? sender : IPCThreadState::self()->getCallingPid(), data.readInt32());
        return NO_ERROR;
    }

    status_t recorded(const Parcel& /*data*/, Parcel* reply) {
        mNotes.writeTo(reply);
        return NO_ERROR;
    }

    status_t recordFor(const Parcel& data, Parcel* /*reply*/) {
        Call call(data.readStrongBinder(), kRecord);
        const int32_t sender = data.readInt32();
        call << sender << data.readInt32();
        return call.send();
    }

    status_t replyOf(const Parcel& data, Parcel* reply) {
        return reply->setDataSize(static_cast<size_t>(data.readInt32()));
    }

    status_t descriptors(const Parcel& /*data*/, Parcel* reply) {
        return reply->writeInt32(openDescriptors());
    }

    status_t readAll(const Parcel& data, Parcel* reply) {
        const int fd = data.readFileDescriptor();
        if (fd < 0) return BAD_TYPE;
        std::array<char, 64> text{};
        const ssize_t length = read(fd, text.data(), text.size());
        reply->writeInt32((fcntl(fd, F_GETFD) & FD_CLOEXEC) != 0 ? 1 : 0);
        return reply->writeString8(String8(text.data(), length > 0 ? static_cast<size_t>(length) : 0));
    }

    status_t pipes(const Parcel& data, Parcel* reply) {
        for (int32_t left = data.readInt32(); left > 0; --left) {
            std::array<int, 2> ends{};
            if (pipe2(ends.data(), O_CLOEXEC) != 0) return -errno;
            const bool written = write(ends[1], "pipe", 4) == 4;
            close(ends[1]);
            const status_t status = written ? reply->writeFileDescriptor(ends[0], true) : -EIO;
            if (status != NO_ERROR) return status;
        }
        return NO_ERROR;
    }

    status_t leaveFree(const Parcel& data, Parcel* /*reply*/) {
        const int32_t count = data.readInt32();
        return leaveDescriptors(count) ? NO_ERROR : -errno;
    }

    status_t alarms(const Parcel& /*data*/, Parcel* /*reply*/) {
        static const auto* const untilTheEnd = new Alarms;
        static_cast<void>(untilTheEnd);
        return NO_ERROR;
    }

    status_t end(const Parcel& data, Parcel* /*reply*/) {
        switch (data.readInt32()) {
            case kExit:
                std::exit(7);
            case kQuickExit:
                _exit(8);
            case kKill:
                ::kill(getpid(), SIGKILL);
                break;
            case kSegfault:
                std::signal(SIGSEGV, SIG_DFL);
                ::kill(getpid(), SIGSEGV);
                break;
            default:
                execl("/bin/sleep", "sleep", "1000", nullptr);
        }
        pause();
        return UNKNOWN_ERROR;
    }

    status_t forkSleeper(const Parcel& /*data*/, Parcel* reply) {
        const pid_t child = fork();
        if (child == 0) {
            alarm(60);  // in case the test cannot end it
            for (;;)
                pause();
        }
        return reply->writeInt32(child);
    }

    sp<IBinder> kept() {
        const std::lock_guard lock(mLock);
        return mKept;
    }

    void setKept(sp<IBinder> object) {
        const std::lock_guard lock(mLock);
        std::swap(mKept, object);
    }

    Gate mGate;
    Notes mNotes;
    std::atomic<int> mMade{0};
    std::mutex mLock;  // guards mKept
    sp<IBinder> mKept;
};

CHILD_ROLE(service) {
    const int poolThreads = std::stoi(args.at(1));
    ProcessState::self()->setThreadPoolMaxThreadCount(static_cast<size_t>(poolThreads));
    if (poolThreads > 0) ProcessState::self()->startThreadPool();
    if (poolThreads == 0) std::thread([] { IPCThreadState::self()->joinThreadPool(); }).detach();
    const status_t status =
        defaultServiceManager()->addService(String16(args.at(0).c_str()), new TestService);
    parent.send(std::to_string(status));
    parent.awaitHangUp();
    return 0;
}

}  // namespace

sp<IBinder> makeTestService() { return new TestService; }

std::string uniqueServiceName() {
    static std::atomic<int> count{0};
    return "test." + std::to_string(getpid()) + "." + std::to_string(++count);
}

ServiceProcess::ServiceProcess(int poolThreads)
    : mName(uniqueServiceName()), mProcess("service", {mName, std::to_string(poolThreads)}) {
    EXPECT_EQ("0", mProcess.expectLine());
    mObject = defaultServiceManager()->checkService(String16(mName.c_str()));
    EXPECT_NE(nullptr, mObject) << mName;
}

void ServiceProcess::kill() {
    mProcess.kill();
    mProcess.wait();
}

}  // namespace accessory::test
