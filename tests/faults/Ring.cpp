#include "tests/faults/Ring.h"

#include <binder/Binder.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <atomic>
#include <mutex>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

namespace {

enum RingCall : uint32_t {
    kFollow = IBinder::FIRST_CALL_TRANSACTION,  ///< object: the next in the ring
    kTurn,  ///< calls: unless 1, calls the next with one less -> calls made
};

class Member : public BBinder {
  public:
    int underWay() const { return mUnderWay; }

  protected:
    status_t onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) override {
        if (code == kTurn) return turn(data.readInt32(), reply);
        if (code != kFollow) return BBinder::onTransact(code, data, reply, flags);
        const std::lock_guard guard(mLock);
        mNext = data.readStrongBinder();
        return NO_ERROR;
    }

  private:
    status_t turn(int32_t calls, Parcel* reply) {
        if (calls == 1) return reply->writeInt32(1);
        Call next(following(), kTurn);
        next << calls - 1;
        ++mUnderWay;
        const status_t status = next.run();
        --mUnderWay;
        return status == NO_ERROR ? reply->writeInt32(next.reply.readInt32() + 1) : status;
    }

    sp<IBinder> following() {
        const std::lock_guard guard(mLock);
        return mNext;
    }

    std::mutex mLock;  // guards mNext
    sp<IBinder> mNext;
    std::atomic<int> mUnderWay{0};
};

/// A member of a ring; any line is answered with how many calls it is in the middle of.
CHILD_ROLE(ringMember) {
    ProcessState::self()->setThreadPoolMaxThreadCount(std::stoul(args.at(1)));
    ProcessState::self()->startThreadPool();
    const sp<Member> member = new Member;
    defaultServiceManager()->addService(String16(args.at(0).c_str()), member);
    parent.send("ready");
    for (std::string told = parent.expectLine(); told != "bye"; told = parent.expectLine())
        parent.send(std::to_string(member->underWay()));
    return 0;
}

}  // namespace

Ring::Ring(int processes, int poolThreads) {
    for (int i = 0; i < processes; ++i) {
        const std::string name = uniqueServiceName();
        mProcesses.push_back(
            std::make_unique<ChildProcess>("ringMember", RoleArguments{name, std::to_string(poolThreads)}));
        EXPECT_EQ("ready", mProcesses.back()->expectLine());
        mMembers.push_back(defaultServiceManager()->checkService(String16(name.c_str())));
    }
    for (size_t i = 0; i < mMembers.size(); ++i) {
        Call follow(mMembers[i], kFollow);
        follow << mMembers[(i + 1) % mMembers.size()];
        EXPECT_EQ(NO_ERROR, follow.run());
    }
}

status_t Ring::turn(int calls, int* made) const {
    Call first(mMembers.front(), kTurn);
    first << calls;
    const status_t status = first.run();
    if (status == NO_ERROR) *made = first.reply.readInt32();
    return status;
}

int Ring::callsUnderWay() const {
    int calls = 0;
    for (const auto& process : mProcesses) {
        process->send("how many?");
        calls += std::stoi(process->expectLine());
    }
    return calls;
}

}  // namespace accessory::test
