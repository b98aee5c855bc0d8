// The frame that the dumps of all managers share.
#pragma once

#include <utils/Errors.h>
#include <utils/String16.h>
#include <utils/String8.h>
#include <utils/Vector.h>

namespace accessory {

/// Appends "-[descriptor]-\n", at most 255 characters of it. @return the status of the append.
android::status_t appendDumpHeader(const android::String16& descriptor, android::String8* result);

/// Whether the caller of a dump asked for the registered notifiers instead of the implementation's state.
bool asksForNotifiers(const android::Vector<android::String16>& args);

/// Writes all of @p text to @p fd with one write, not retried. @return what the write returned.
ssize_t writeDump(int fd, const android::String8& text);

}  // namespace accessory
