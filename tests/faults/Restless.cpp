#include "tests/faults/Restless.h"

#include <utility>

#include "tests/faults/Depot.h"

namespace accessory::test {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

namespace {

constexpr size_t kMostTaken = 4;

}  // namespace

Restless::Restless(sp<IAppleiAP2Manager> manager, sp<IBinder> depot, sp<IAppleiAP2ManagerNotifier> notifier,
                   unsigned seed)
    : mManager(std::move(manager)), mDepot(std::move(depot)), mNotifier(std::move(notifier)), mRandom(seed) {}

bool Restless::step() {
    constexpr unsigned kRegistering = 2;
    constexpr unsigned kAll = 8;
    const unsigned first = mNotifier != nullptr ? 0 : kRegistering;
    switch (first + mRandom() % (kAll - first)) {
        case 0:
            mManager->setNotifier(mNotifier);
            return true;
        case 1:
            mManager->clearNotifier();
            return true;
        case 2:
            mManager->startHID(7);
            return true;
        case 3:
            return exchangeLargeData();
        case 4:
            return passAnObject();
        case 5:
            return takeAnObject(kGift);
        case 6:
            return takeAnObject(kTakeOne);
        default:
            return letItCallBack();
    }
}

/// Large enough for the way through shared memory, now and then for the largest call that there is.
bool Restless::exchangeLargeData() {
    Call call(mDepot, kEchoAll);
    call.request.setDataSize(mRandom() % 8 == 0 ? 1040384 : 16384 + mRandom() % 200'000);
    return call.run() != DEAD_OBJECT;
}

bool Restless::passAnObject() {
    Call call(mDepot, kBring);
    call << sp<IBinder>(new Gift);
    return call.run() != DEAD_OBJECT;
}

bool Restless::takeAnObject(uint32_t code) {
    Call call(mDepot, code);
    if (call.run() == DEAD_OBJECT) return false;
    if (mTaken.size() == kMostTaken) mTaken.clear();
    mTaken.push_back(call.reply.readStrongBinder());
    return true;
}

bool Restless::letItCallBack() { return Call(mDepot, kCallOne).run() != DEAD_OBJECT; }

}  // namespace accessory::test
