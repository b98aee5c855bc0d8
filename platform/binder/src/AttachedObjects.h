// Objects that users hang on a binder, by ID, until it is destroyed.
#pragma once

#include <binder/IBinder.h>

#include <map>
#include <mutex>

namespace android::runtime {

/// mLock guards the map; cleanup functions run in the destructor, when nobody else can be here.
class AttachedObjects {
  public:
    ~AttachedObjects() {
        for (const auto& [id, entry] : mEntries) {
            if (entry.cleanup != nullptr) entry.cleanup(id, entry.object, entry.cookie);
        }
    }

    void attach(const void* id, void* object, void* cookie, IBinder::object_cleanup_func cleanup) {
        const std::lock_guard<std::mutex> guard(mLock);
        mEntries.emplace(id, Entry{object, cookie, cleanup});
    }

    void* find(const void* id) const {
        const std::lock_guard<std::mutex> guard(mLock);
        const auto found = mEntries.find(id);
        return found != mEntries.end() ? found->second.object : nullptr;
    }

    void detach(const void* id) {
        const std::lock_guard<std::mutex> guard(mLock);
        mEntries.erase(id);
    }

  private:
    struct Entry {
        void* object;
        void* cookie;
        IBinder::object_cleanup_func cleanup;
    };

    mutable std::mutex mLock;
    std::map<const void*, Entry> mEntries;
};

}  // namespace android::runtime
