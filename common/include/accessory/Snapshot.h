// Snapshot: a value that many threads read while some replace it.
#pragma once

#include <memory>
#include <utility>

namespace accessory {

/// Readers get the value as it is at that moment, whole, and keep it as long as they like; nobody waits for a
/// reader. Changes copy the value, change the copy and put it in place, again when somebody else was faster,
/// so none is lost.
///
/// The standard library guards the exchange of the pointer itself for the few instructions that it takes;
/// nothing waits and no foreign code runs under that guard.
template <typename Value>
class Snapshot {
  public:
    /// Never null.
    std::shared_ptr<const Value> load() const { return std::atomic_load(&mCurrent); }

    /// Replaces the value by a copy that @p change was given to change.
    /// @return what the last call of @p change returned. It may be called several times.
    template <typename Change>
    auto update(const Change& change) {
        std::shared_ptr<const Value> current = load();
        for (;;) {
            auto copy = std::make_shared<Value>(*current);
            auto result = change(*copy);
            std::shared_ptr<const Value> changed = std::move(copy);
            if (std::atomic_compare_exchange_strong(&mCurrent, &current, changed)) return result;
        }
    }

  private:
    std::shared_ptr<const Value> mCurrent = std::make_shared<const Value>();
};

}  // namespace accessory
