// Meanwhile: what a test wants done within the calls that it gets.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <utility>

namespace accessory::test {

/// May be set while calls come in on other threads; those that come later do it. Nothing until then.
class Meanwhile {
  public:
    Meanwhile& operator=(std::function<void()> task) {
        const auto made = std::make_shared<std::function<void()>>(std::move(task));
        const std::lock_guard lock(mLock);
        mTask = made;
        return *this;
    }

    void operator()() const {
        if (const auto task = current()) (*task)();
    }

  private:
    std::shared_ptr<std::function<void()>> current() const {
        const std::lock_guard lock(mLock);
        return mTask;
    }

    mutable std::mutex mLock;
    std::shared_ptr<std::function<void()>> mTask;
};

}  // namespace accessory::test
