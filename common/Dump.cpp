#include "common/Dump.h"

#include <unistd.h>

#include <cstdio>

namespace accessory {

android::status_t appendDumpHeader(const android::String16& descriptor, android::String8* result) {
    char header[256];
    snprintf(header, sizeof(header), "-[%s]-\n", android::String8(descriptor).string());
    return result->append(header);
}

bool asksForNotifiers(const android::Vector<android::String16>& args) {
    static constexpr char16_t kNotifier[] = u"notifier";
    constexpr size_t kLength = sizeof(kNotifier) / sizeof(char16_t) - 1;
    return !args.isEmpty() && strzcmp16(args[0].string(), args[0].size(), kNotifier, kLength) == 0;
}

ssize_t writeDump(int fd, const android::String8& text) { return write(fd, text.string(), text.bytes()); }

}  // namespace accessory
