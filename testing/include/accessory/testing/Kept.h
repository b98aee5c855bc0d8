// kept(): for objects that hold each other for good, so that no leak checker mistakes them for lost.
#pragma once

#include <utils/RefBase.h>

#include <mutex>
#include <vector>

namespace accessory::testkit {

/// Holds @p object for the life of the process and returns it. A manager's stub, its registry and its death
/// recipients hold each other: they stay anyway, and here they stay reachable, as in a service, which keeps
/// its stub.
template <typename Object>
android::sp<Object> kept(const android::sp<Object>& object) {
    static std::mutex& lock = *new std::mutex;
    static std::vector<android::sp<Object>>& all = *new std::vector<android::sp<Object>>;
    const std::lock_guard guard(lock);
    all.push_back(object);
    return object;
}

/// For a new object: kept(new BnAppleiAP2Manager(service)).
template <typename Object>
android::sp<Object> kept(Object* object) {
    return kept(android::sp<Object>(object));
}

}  // namespace accessory::testkit
