// The trace of a destructor, which must not fail.
#pragma once

#include <accessory/IAPAutoTrace.h>

#include <new>
#include <optional>

#include "common/Unit.h"

namespace accessory {

/// Brackets the run of a destructor in the log, as IAPAutoTrace does. When there is no memory for that the
/// run goes untold: an exception in a destructor would end the process.
class DestructorTrace {
  public:
    DestructorTrace(const Unit& unit, const char* function) noexcept {
        try {
            mTrace.emplace(unit.tag, unit.file, function);
        } catch (const std::bad_alloc&) {  // untold
        }
    }

  private:
    std::optional<IAPAutoTrace> mTrace;
};

}  // namespace accessory
