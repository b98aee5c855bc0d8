#include <accessory/testing/RecordingBinder.h>
#include <binder/Parcel.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace accessory::testkit {

using android::DEAD_OBJECT;
using android::NO_ERROR;
using android::Parcel;
using android::sp;
using android::status_t;
using android::wp;

namespace {

status_t write(const Bytes& bytes, Parcel* parcel) {
    if (bytes.empty()) return NO_ERROR;
    return parcel->setData(bytes.data(), bytes.size());
}

}  // namespace

RecordingBinder::RecordingBinder(const sp<IBinder>& target) : mTarget(target) {}
RecordingBinder::~RecordingBinder() = default;

std::vector<Transaction> RecordingBinder::transactions() const {
    const std::lock_guard lock(mLock);
    return mTransactions;
}

std::vector<Transaction> RecordingBinder::transactions(uint32_t code) const {
    const std::lock_guard lock(mLock);
    std::vector<Transaction> found;
    std::copy_if(mTransactions.begin(), mTransactions.end(), std::back_inserter(found),
                 [code](const Transaction& one) { return one.code == code; });
    return found;
}

void RecordingBinder::forget() {
    const std::lock_guard lock(mLock);
    mTransactions.clear();
}

void RecordingBinder::plan(uint32_t code, Plan what) {
    const std::lock_guard lock(mLock);
    mPlans[code] = std::move(what);
}

void RecordingBinder::answer(uint32_t code, Bytes reply) {
    plan(code, {Plan::Kind::kAnswer, std::move(reply)});
}

void RecordingBinder::fail(uint32_t code, status_t status) { plan(code, {Plan::Kind::kFail, {}, status}); }
void RecordingBinder::dieIn(uint32_t code) { plan(code, {Plan::Kind::kDie}); }

void RecordingBinder::passOn(uint32_t code) {
    const std::lock_guard lock(mLock);
    mPlans.erase(code);
}

const RecordingBinder::Plan* RecordingBinder::planFor(uint32_t code, Plan* copy) const {
    const std::lock_guard lock(mLock);
    const auto found = mPlans.find(code);
    if (found == mPlans.end()) return nullptr;
    *copy = found->second;
    return copy;
}

void RecordingBinder::recordBinderIn(uint32_t code) {
    const std::lock_guard lock(mLock);
    mBringing.push_back(code);
}

bool RecordingBinder::brings(uint32_t code) const {
    const std::lock_guard lock(mLock);
    return std::find(mBringing.begin(), mBringing.end(), code) != mBringing.end();
}

sp<RecordingBinder> RecordingBinder::received() const {
    const std::lock_guard lock(mLock);
    return mReceived;
}

bool RecordingBinder::isBinderAlive() const {
    const std::lock_guard lock(mLock);
    return mAlive;
}

status_t RecordingBinder::pingBinder() { return isBinderAlive() ? NO_ERROR : DEAD_OBJECT; }

const android::String16& RecordingBinder::getInterfaceDescriptor() const {
    return mTarget != nullptr ? mTarget->getInterfaceDescriptor() : BBinder::getInterfaceDescriptor();
}

status_t RecordingBinder::dump(int fd, const android::Vector<android::String16>& args) {
    if (!isBinderAlive()) return DEAD_OBJECT;
    return mTarget != nullptr ? mTarget->dump(fd, args) : BBinder::dump(fd, args);
}

void RecordingBinder::die() {
    std::vector<Link> links;
    {
        const std::lock_guard lock(mLock);
        mAlive = false;
        links.swap(mLinks);
    }
    for (const Link& link : links) {
        const sp<DeathRecipient> recipient = link.recipient.promote();
        if (recipient != nullptr) recipient->binderDied(this);
    }
}

status_t RecordingBinder::linkToDeath(const sp<DeathRecipient>& recipient, void* cookie, uint32_t /*flags*/) {
    const std::lock_guard lock(mLock);
    if (!mAlive) return DEAD_OBJECT;
    mLinks.push_back({recipient, cookie});
    return NO_ERROR;
}

status_t RecordingBinder::unlinkToDeath(const wp<DeathRecipient>& recipient, void* cookie, uint32_t /*flags*/,
                                        wp<DeathRecipient>* outRecipient) {
    const std::lock_guard lock(mLock);
    if (!mAlive) return DEAD_OBJECT;
    const auto link = std::find_if(mLinks.begin(), mLinks.end(), [&](const Link& one) {
        return one.recipient == recipient ||
               (recipient == nullptr && cookie != nullptr && one.cookie == cookie);
    });
    if (link == mLinks.end()) return android::NAME_NOT_FOUND;
    if (outRecipient != nullptr) *outRecipient = link->recipient;
    mLinks.erase(link);
    return NO_ERROR;
}

status_t RecordingBinder::onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    Parcel unwanted;
    Parcel* const answer = reply != nullptr ? reply : &unwanted;
    Transaction call{code, flags, bytesOf(data), {}, NO_ERROR};
    call.status = serve(code, data, answer, flags);
    if (call.status != NO_ERROR) answer->freeData();
    call.reply = bytesOf(*answer);
    const std::lock_guard lock(mLock);
    mTransactions.push_back(std::move(call));
    return mTransactions.back().status;
}

status_t RecordingBinder::serve(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    if (!isBinderAlive()) return DEAD_OBJECT;
    Plan copy;
    const Plan* const planned = planFor(code, &copy);
    if (planned != nullptr && planned->kind == Plan::Kind::kFail) return planned->status;
    if (planned != nullptr && planned->kind == Plan::Kind::kAnswer) return write(planned->reply, reply);
    const status_t status = reachTarget(code, data, reply, flags);
    if (planned != nullptr) die();
    if (!isBinderAlive()) return DEAD_OBJECT;  // its answer reaches nobody
    return status;
}

status_t RecordingBinder::reachTarget(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    if (mTarget == nullptr) return BBinder::onTransact(code, data, reply, flags);
    if (!brings(code)) return mTarget->transact(code, data, reply, flags);
    Parcel request;
    request.writeInterfaceToken(getInterfaceDescriptor());
    request.writeStrongBinder(wrapped(data));
    return mTarget->transact(code, request, reply, flags);
}

/// The same binder gets the same stand-in, so that the service does not take a client for a new one.
sp<RecordingBinder> RecordingBinder::wrapped(const Parcel& data) {
    data.setDataPosition(0);
    data.enforceInterface(getInterfaceDescriptor());
    const sp<IBinder> original = data.readStrongBinder();
    const std::lock_guard lock(mLock);
    if (original == nullptr) {
        mReceived = nullptr;
    } else if (mReceived == nullptr || mReceived->mTarget != original) {
        mReceived = new RecordingBinder(original);
    }
    return mReceived;
}

}  // namespace accessory::testkit
