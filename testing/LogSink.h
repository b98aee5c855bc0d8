// Where the test program's stand-ins for liblog's print functions hand their lines.
#pragma once

#include <string>

namespace accessory::testkit {

/// Takes one line from any thread. @p tag may be null, as for the platform log.
void sinkLogLine(int priority, const char* tag, const std::string& text);

/// Does nothing but stand beside the stand-ins: whoever calls it makes the linker take them out of the
/// archive.
void standInForLiblog();

}  // namespace accessory::testkit
