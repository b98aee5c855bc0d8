#include "OnewayQueue.h"

namespace android::runtime {

namespace {

/// Waiting bytes beyond which nothing more is taken in; every call counts with a little for itself.
constexpr size_t kMostBytes = 4 * kMaxTransaction;

/// A process has few descriptors, and needs them for its other callers: some 250 may wait, and one call more.
constexpr size_t kBytesOfADescriptor = size_t{16} * 1024;

size_t sizeOf(const OnewayCall& call) {
    return sizeof(call) + call.data.dataCapacity() + call.descriptors * kBytesOfADescriptor;
}

}  // namespace

bool OnewayQueue::push(std::unique_ptr<OnewayCall> call) {
    const std::lock_guard<std::mutex> guard(mLock);
    mBytes += sizeOf(*call);
    const auto [queue, isIdle] = mBusy.try_emplace(call->object.get());
    queue->second.push_back(std::move(call));
    return isIdle;
}

bool OnewayQueue::hasRoom(Connection& connection) {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mBytes <= kMostBytes) return true;
    mLeftAlone.push_back(&connection);
    return false;
}

void OnewayQueue::drain(const BBinder* object) {
    while (const std::unique_ptr<OnewayCall> call = next(object)) {
        resumeIfRoom();
        call->run();
    }
}

/// The object counts as busy until it is found without a call here.
std::unique_ptr<OnewayCall> OnewayQueue::next(const BBinder* object) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto queue = mBusy.find(object);
    if (queue->second.empty()) {
        mBusy.erase(queue);
        return nullptr;
    }
    std::unique_ptr<OnewayCall> call = std::move(queue->second.front());
    queue->second.pop_front();
    mBytes -= sizeOf(*call);
    return call;
}

void OnewayQueue::resumeIfRoom() {
    std::vector<Connection*> resumed;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mBytes <= kMostBytes / 2) resumed.swap(mLeftAlone);
    }
    for (Connection* const connection : resumed)
        mResume(*connection);
}

}  // namespace android::runtime
