// Operation: who writes or reads a record, as the log lines and the assertion reports name it.
#pragma once

#include "common/Check.h"

namespace accessory {

/// The public function at work. The machinery of the records checks and asserts in its name.
struct Operation {
    const Unit& unit;
    const char* function;   ///< short name
    const char* signature;  ///< full signature

    Site at(int line) const { return Site{unit, function, line}; }
};

}  // namespace accessory

/// The operation of the function it stands in.
#define ACCESSORY_OPERATION(unit) \
    ::accessory::Operation { (unit), __func__, __PRETTY_FUNCTION__ }
