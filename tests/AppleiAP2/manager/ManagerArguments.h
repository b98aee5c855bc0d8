// The arguments that only the manager's requests have, as text; reading all of them, as Show.h does.
#pragma once

#include "tests/AppleiAP2/notifier/Show.h"

namespace accessory::test {

/// Bytes that @p count elements of @p width bytes take; what a negative count names is nothing.
size_t sizeOf(int count, size_t width);

/// Identifiers of displays: an array that is not there is told apart from an empty one.
std::string showIds(const int* ids, int count);

std::string show(const HIDReportAttributes* of);
std::string show(const InitiateCallParam* param);
std::string show(const CPStartSessionWiredAttributes* wired);
std::string show(const CPStartSessionWirelessAttributes* wireless);
std::string show(const android::sp<MediaLibUpdateInfo>& info);

}  // namespace accessory::test
