#include "OnewayQueue.h"

#include "../Contained.h"
#include "../Log.h"
#include "../OutOfMemory.h"
#include "Limits.h"
#include "RuntimeThread.h"

namespace android::runtime {

bool OnewayQueue::push(std::unique_ptr<OnewayCall>* call) {
    const std::lock_guard<std::mutex> guard(mLock);
    Sender& sender = mSenders[(*call)->caller.pid];
    const size_t weight = (*call)->weight;
    const auto entered = mBusy.try_emplace((*call)->object.get());
    auto& queue = entered.first->second;
    elseUndo([&] { queue.push_back(std::move(*call)); },
             [&] {
                 // An object that counts as busy and is not would never be called again.
                 if (entered.second) mBusy.erase(entered.first);
             });
    sender.bytes += weight;
    sender.isGone = false;
    return entered.second;
}

bool OnewayQueue::hasRoom(Connection& connection) {
    return patiently([&] {
        const std::lock_guard<std::mutex> guard(mLock);
        const auto sender = mSenders.find(connection.credentials().pid);
        if (sender == mSenders.end() || sender->second.bytes <= kMostOnewayBytes) return true;
        sender->second.leftAlone.push_back(&connection);
        return false;
    });
}

void OnewayQueue::drain(const BBinder* object) {
    std::vector<Connection*> resumed;
    while (const std::unique_ptr<OnewayCall> call = next(object, &resumed)) {
        for (Connection* const connection : resumed)
            mResume(*connection);
        resumed.clear();
        unlessThreadEnds([&] { call->run(); }, [&] { drainElsewhere(object); });
    }
}

/// For a thread that ends in a call: the calls behind it go on, on a thread of their own.
void OnewayQueue::drainElsewhere(const BBinder* object) {
    if (startRuntimeThread("binder-oneway", [this, object] { drain(object); })) return;
    BINDER_LOGE("one-way calls behind one that ended its thread are lost");
    std::vector<Connection*> resumed;
    while (next(object, &resumed) != nullptr) {
    }
    for (Connection* const connection : resumed)
        mResume(*connection);
}

/// The object counts as busy until it is found without a call here.
std::unique_ptr<OnewayCall> OnewayQueue::next(const BBinder* object, std::vector<Connection*>* resumed) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto queue = mBusy.find(object);
    if (queue->second.empty()) {
        mBusy.erase(queue);
        return nullptr;
    }
    std::unique_ptr<OnewayCall> call = std::move(queue->second.front());
    queue->second.pop_front();
    discountLocked(*call, resumed);
    return call;
}

/// @param resumed gets the connections that need not be left alone any longer.
void OnewayQueue::discountLocked(const OnewayCall& call, std::vector<Connection*>* resumed) {
    const auto found = mSenders.find(call.caller.pid);
    Sender& sender = found->second;
    sender.bytes -= call.weight;
    if (sender.bytes <= kMostOnewayBytes / 2) resumed->swap(sender.leftAlone);
    if (sender.bytes == 0 && sender.isGone) mSenders.erase(found);
}

/// Entries of processes that stay are kept, so that their calls need no memory for one.
void OnewayQueue::forget(pid_t process) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto found = mSenders.find(process);
    if (found == mSenders.end()) return;
    found->second.isGone = true;
    if (found->second.bytes == 0) mSenders.erase(found);
}

}  // namespace android::runtime
