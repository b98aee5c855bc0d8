// The two check forms and the assertion. The library never throws on a failed marshaling or registry step:
// it checks, logs under its unit's tag, and in most places goes on.
#pragma once

#include <utils/Errors.h>

#include "common/Unit.h"

namespace accessory {

/// Where a check stands: what its log line names.
struct Site {
    const Unit& unit;
    const char* function;  ///< short name of the operation
    int line;              ///< of the source; no meaning beyond the log
};

/// Condition check: when @p condition is false, logs "[function][line] check 'text' failed" at ERROR.
/// @return @p condition.
bool holds(const Site& site, bool condition, const char* text);

/// Return-value check: when @p status is not 0, logs "function line:check return value failed" at ERROR.
/// @return whether @p status was 0.
bool succeeded(const Site& site, android::status_t status);

/// Ends the process through the C library's assertion report, in every build type.
/// @param text      the condition that did not hold.
/// @param signature full signature of the function.
[[noreturn]] void assertionFailed(const Unit& unit, const char* text, int line, const char* signature);

}  // namespace accessory

/// The site of the line it stands on, named after the enclosing function.
#define ACCESSORY_HERE(unit) \
    ::accessory::Site { (unit), __func__, __LINE__ }

/// Condition check with the condition's own source text.
#define ACCESSORY_CHECK(unit, condition) \
    ::accessory::holds(ACCESSORY_HERE(unit), static_cast<bool>(condition), #condition)

/// Condition check with the text that the log must show where the source cannot be written that way.
#define ACCESSORY_CHECK_AS(unit, condition, text) \
    ::accessory::holds(ACCESSORY_HERE(unit), static_cast<bool>(condition), (text))

/// Return-value check.
#define ACCESSORY_CHECK_STATUS(unit, status) ::accessory::succeeded(ACCESSORY_HERE(unit), (status))

/// Assertion with the condition's own source text.
#define ACCESSORY_ASSERT(unit, condition) ACCESSORY_ASSERT_AS(unit, condition, #condition)

/// Assertion with the text that the report must show.
#define ACCESSORY_ASSERT_AS(unit, condition, text) \
    ((condition) ? void() : ::accessory::assertionFailed((unit), (text), __LINE__, __PRETTY_FUNCTION__))
